#include "board/firmware.h"

#include <algorithm>
#include <array>
#include <optional>

#include "board/state.h"
#include "driver/debug_levels.h"
#include "driver/firmware_command.h"

namespace board {
namespace {

using Parameters = FirmwareParameters;
using Responses = FirmwareResponses;

constexpr size_t kStreamCapacity = 64;
constexpr uint32_t kFlashBlocks = 16;
constexpr uint32_t kWordsPerFlashBlock = 256;
constexpr uint32_t kErasedWord = 0xFFFFFFFF;

// --- Registers and single values ---

ResultCode WriteTo(Registers& registers, uint32_t number, uint32_t value, uint32_t& response) {
    const ResultCode code = registers.Write(number, value);
    return code == VXD_SUCCESS ? registers.Read(number, response) : code;
}

template <Registers Firmware::*Member>
ResultCode Read(State& state, const Parameters& parameters, Responses& responses) {
    return (state.firmware.*Member).Read(parameters.first, responses.first);
}

template <Registers Firmware::*Member>
ResultCode Write(State& state, const Parameters& parameters, Responses& responses) {
    return WriteTo(state.firmware.*Member, parameters.first, parameters.second, responses.first);
}

template <uint32_t Firmware::*Member>
ResultCode Set(State& state, const Parameters& parameters, Responses& responses) {
    state.firmware.*Member = parameters.first;
    responses.first = parameters.first;
    return VXD_SUCCESS;
}

ResultCode ReadUssRegister(State& state, const Parameters& parameters, Responses& responses) {
    return state.firmware.ussRegisters.Read(parameters.first, responses.second);
}

ResultCode WriteUssRegister(State& state, const Parameters& parameters, Responses& responses) {
    return WriteTo(state.firmware.ussRegisters, parameters.first, parameters.second,
                   responses.second);
}

// --- Versions ---

ResultCode GetVersions(State& state, const Parameters&, Responses& responses) {
    responses.first = state.revisions.board;
    responses.second = state.revisions.driver;
    responses.third = static_cast<uint16_t>(state.revisions.vpic << 8 | state.revisions.jade);
    return VXD_SUCCESS;
}

ResultCode UpdateVersion(State& state, const Parameters& parameters, Responses& responses) {
    state.revisions.driver = static_cast<uint16_t>(parameters.first);
    responses.first = state.revisions.driver;
    return VXD_SUCCESS;
}

// --- The 486's memory and I/O ---

uint32_t UnitBytes(const AddressSpace& space, uint32_t unitSize) {
    return unitSize == 0 ? space.WidestUnit() : unitSize;
}

template <AddressSpace Hardware::*Member>
ResultCode ReadUnit(State& state, const Parameters& parameters, Responses& responses) {
    const AddressSpace& space = state.hardware.*Member;
    return space.Read(parameters.first, UnitBytes(space, parameters.second), responses.first);
}

template <AddressSpace Hardware::*Member>
ResultCode WriteUnit(State& state, const Parameters& parameters, Responses& responses) {
    AddressSpace& space = state.hardware.*Member;
    const ResultCode code =
        space.Write(parameters.first, UnitBytes(space, parameters.second), parameters.third);
    return code == VXD_SUCCESS ? ReadUnit<Member>(state, parameters, responses) : code;
}

// --- I2C ---

ResultCode RetrieveI2c(State& state, const Parameters& parameters, Responses& responses) {
    return state.hardware.i2cBus.Read(parameters.first, parameters.second, responses.first);
}

ResultCode SendI2c(State& state, const Parameters& parameters, Responses& responses) {
    const ResultCode code =
        state.hardware.i2cBus.Write(parameters.first, parameters.second, parameters.third);
    return code == VXD_SUCCESS ? RetrieveI2c(state, parameters, responses) : code;
}

ResultCode AccessI2c(State& state, const Parameters& parameters, Responses& responses) {
    responses.first = 1;
    return state.hardware.i2cBus.Answers(parameters.first) ? VXD_SUCCESS : VXD_HARDWARE_FAILURE;
}

ResultCode ReadVideoDecoder(State& state, const Parameters& parameters, Responses& responses) {
    return RetrieveI2c(state, {kVideoDecoder, parameters.first, 0}, responses);
}

ResultCode WriteVideoDecoder(State& state, const Parameters& parameters, Responses& responses) {
    return SendI2c(state, {kVideoDecoder, parameters.first, parameters.second}, responses);
}

// --- JADE ---

ResultCode ReadJadeRegister(State& state, const Parameters& parameters, Responses& responses) {
    return ReadJade(state, parameters.first, responses.first);
}

ResultCode WriteJadeRegister(State& state, const Parameters& parameters, Responses& responses) {
    return WriteTo(state.hardware.jade, parameters.first, parameters.second, responses.first);
}

ResultCode ResetJade(State& state, const Parameters&, Responses&) {
    state.hardware.jade = JadeAtPowerOn();
    return VXD_SUCCESS;
}

// --- Audio ---

template <uint32_t Parameter>
ResultCode SetAudioParameter(State& state, const Parameters& parameters, Responses& responses) {
    return WriteTo(state.firmware.audioParameters, Parameter, parameters.first, responses.first);
}

ResultCode SwitchMixer(State& state, const Parameters& parameters, Responses& responses) {
    return state.hardware.akm.SetSwitch(parameters.first, parameters.second != 0, responses.first);
}

ResultCode SetVolume(State& state, const Parameters& parameters, Responses& responses) {
    return state.hardware.akm.SetLevel(parameters.first, parameters.second, responses.first);
}

ResultCode MuteChannel(State& state, const Parameters& parameters, Responses& responses) {
    return state.hardware.akm.Mute(parameters.first, parameters.second != 0, responses.first);
}

ResultCode ReadAkm(State& state, const Parameters& parameters, Responses& responses) {
    return state.hardware.akm.registers.Read(parameters.first, responses.first);
}

ResultCode WriteAkm(State& state, const Parameters& parameters, Responses& responses) {
    return WriteTo(state.hardware.akm.registers, parameters.first, parameters.second,
                   responses.first);
}

ResultCode GetAecMode(State& state, const Parameters&, Responses& responses) {
    responses.first = state.hardware.aec.Mode();
    return VXD_SUCCESS;
}

ResultCode SetAecMode(State& state, const Parameters& parameters, Responses& responses) {
    const ResultCode code = state.hardware.aec.SetMode(parameters.first);
    return code == VXD_SUCCESS ? GetAecMode(state, parameters, responses) : code;
}

ResultCode SetCameraInput(State& state, const Parameters& parameters, Responses& responses) {
    if (parameters.first != 1 && parameters.first != 2) {
        return VXD_INVALID_PARAMETER;
    }
    return Set<&Firmware::cameraInput>(state, parameters, responses);
}

// --- Streams ---

// A command that does with a stream what the library's operation does.
template <ResultCode (*Run)(State&, uint32_t)>
ResultCode OnStream(State& state, const Parameters& parameters, Responses&) {
    return Run(state, parameters.first);
}

ResultCode GetStreamInfo(State& state, const Parameters& parameters, Responses& responses) {
    const Stream* stream = FindStream(state, parameters.first);
    if (!stream) {
        return VXD_INVALID_PARAMETER;
    }
    responses = {stream->open, static_cast<uint32_t>(stream->words.size()), stream->resyncs};
    return VXD_SUCCESS;
}

// Wraps a command that wants an open stream.
template <ResultCode (*Run)(Stream&, const Parameters&, Responses&)>
ResultCode OnOpenStream(State& state, const Parameters& parameters, Responses& responses) {
    Stream* stream = FindStream(state, parameters.first);
    if (!stream) {
        return VXD_INVALID_PARAMETER;
    }
    return stream->open ? Run(*stream, parameters, responses) : VXD_ILLEGAL_OPERATION;
}

ResultCode Resynchronise(Stream& stream, const Parameters&, Responses& responses) {
    responses.first = ++stream.resyncs;
    return VXD_SUCCESS;
}

ResultCode WriteWord(Stream& stream, const Parameters& parameters, Responses& responses) {
    if (stream.words.size() >= kStreamCapacity) {
        return VXD_STREAM_OVERFLOW;
    }
    stream.words.push_back(parameters.second);
    responses.first = static_cast<uint32_t>(stream.words.size());
    return VXD_SUCCESS;
}

ResultCode ReadWord(Stream& stream, const Parameters&, Responses& responses) {
    if (stream.words.empty()) {
        return VXD_OPERATION_FAILED;
    }
    responses.first = stream.words.front();
    stream.words.pop_front();
    responses.second = static_cast<uint32_t>(stream.words.size());
    return VXD_SUCCESS;
}

// --- Debug levels of the firmware's modules ---

template <uint32_t Level>
ResultCode SetAllLevels(State& state, const Parameters&, Responses&) {
    Registers& levels = state.firmware.moduleDebugLevels;
    for (uint32_t module = 0; module <= levels.last; ++module) {
        levels.Write(module, Level);
    }
    return VXD_SUCCESS;
}

// --- Auxiliary device ---

ResultCode ReadField(State& state, const Parameters& parameters, Responses& responses) {
    return ReadAuxiliaryField(state, parameters.first, responses.first);
}

ResultCode WriteField(State& state, const Parameters& parameters, Responses& responses) {
    return WriteTo(state.auxiliaryDevice.fields, parameters.first, parameters.second,
                   responses.first);
}

ResultCode TestLine(State& state, const Parameters& parameters, Responses& responses) {
    bool active = false;
    const ResultCode code = state.auxiliaryDevice.GetLine(parameters.first, active);
    responses.first = active;
    return code;
}

template <bool Active>
ResultCode SetLine(State& state, const Parameters& parameters, Responses& responses) {
    const ResultCode code = state.auxiliaryDevice.SetLine(parameters.first, Active);
    return code == VXD_SUCCESS ? TestLine(state, parameters, responses) : code;
}

ResultCode SetLed(State& state, const Parameters& parameters, Responses& responses) {
    responses.first = parameters.first != 0;
    return state.auxiliaryDevice.SetLine(AUXDEV_FEATURE_LED, parameters.first != 0);
}

ResultCode ResetHardware(State& state, const Parameters&, Responses&) {
    state.PowerOn();
    return VXD_SUCCESS;
}

// --- Flash memory ---

ResultCode EraseFlash(State& state, const Parameters& parameters, Responses&) {
    if (parameters.first >= kFlashBlocks) {
        return VXD_INVALID_PARAMETER;
    }
    auto& burned = state.firmware.burnedFlash;
    const uint32_t start = parameters.first * kWordsPerFlashBlock;
    burned.erase(burned.lower_bound(start), burned.lower_bound(start + kWordsPerFlashBlock));
    return VXD_SUCCESS;
}

// The position of the word that the first two parameters name; nothing where there is none.
std::optional<uint32_t> FlashPosition(const Parameters& parameters) {
    if (parameters.first >= kFlashBlocks || parameters.second >= kWordsPerFlashBlock) {
        return std::nullopt;
    }
    return parameters.first * kWordsPerFlashBlock + parameters.second;
}

ResultCode BurnFlash(State& state, const Parameters& parameters, Responses& responses) {
    const auto position = FlashPosition(parameters);
    if (!position) {
        return VXD_INVALID_PARAMETER;
    }
    // Burning only ever clears bits.
    uint32_t& word = state.firmware.burnedFlash.try_emplace(*position, kErasedWord).first->second;
    word &= parameters.third;
    responses.first = word;
    return VXD_SUCCESS;
}

ResultCode DumpFlash(State& state, const Parameters& parameters, Responses& responses) {
    const auto position = FlashPosition(parameters);
    if (!position) {
        return VXD_INVALID_PARAMETER;
    }
    const auto burned = state.firmware.burnedFlash.find(*position);
    responses.first = burned != state.firmware.burnedFlash.end() ? burned->second : kErasedWord;
    return VXD_SUCCESS;
}

// --- The rest ---

ResultCode IsTargetConnected(State& state, const Parameters&, Responses& responses) {
    responses.first = state.firmware.serialConnect != 0;
    return VXD_SUCCESS;
}

ResultCode GiveBack(State&, const Parameters& parameters, Responses& responses) {
    responses = {parameters.first, parameters.second, static_cast<uint16_t>(parameters.third)};
    return VXD_SUCCESS;
}

template <uint32_t Number>
ResultCode Count(State& state, const Parameters&, Responses& responses) {
    responses.first = ++state.firmware.timesSent[Number];
    return VXD_SUCCESS;
}

ResultCode FindNoFile(State&, const Parameters&, Responses&) {
    return VXD_FILE_OPEN_FAILURE;
}

constexpr auto kCommands = std::to_array<FirmwareCommand>({
    {PELLAN_COMMAND_STANDBY, "PELLAN_COMMAND_STANDBY", Set<&Firmware::standby>},
    {PELLAN_COMMAND_VCP_SET_VAR, "PELLAN_COMMAND_VCP_SET_VAR", Write<&Firmware::vcpVariables>},
    {PELLAN_COMMAND_VCP_GET_VAR, "PELLAN_COMMAND_VCP_GET_VAR", Read<&Firmware::vcpVariables>},
    {PELLAN_COMMAND_RUN_VCP_SCRIPT, "PELLAN_COMMAND_RUN_VCP_SCRIPT",
     Count<PELLAN_COMMAND_RUN_VCP_SCRIPT>},
    {PELLAN_COMMAND_GET_VER, "PELLAN_COMMAND_GET_VER", GetVersions},
    {PELLAN_COMMAND_PSHELL_RUN, "PELLAN_COMMAND_PSHELL_RUN", Count<PELLAN_COMMAND_PSHELL_RUN>},
    {PELLAN_COMMAND_SAA7111_READ_REG, "PELLAN_COMMAND_SAA7111_READ_REG", ReadVideoDecoder},
    {PELLAN_COMMAND_SAA7111_WRITE_REG, "PELLAN_COMMAND_SAA7111_WRITE_REG", WriteVideoDecoder},
    {PELLAN_COMMAND_JADE_READ_REG, "PELLAN_COMMAND_JADE_READ_REG", ReadJadeRegister},
    {PELLAN_COMMAND_JADE_WRITE_REG, "PELLAN_COMMAND_JADE_WRITE_REG", WriteJadeRegister},
    {PELLAN_COMMAND_JADE_RESET, "PELLAN_COMMAND_JADE_RESET", ResetJade},
    {PELLAN_COMMAND_486_READ_MEM, "PELLAN_COMMAND_486_READ_MEM", ReadUnit<&Hardware::memory>},
    {PELLAN_COMMAND_486_WRITE_MEM, "PELLAN_COMMAND_486_WRITE_MEM", WriteUnit<&Hardware::memory>},
    {PELLAN_COMMAND_486_READ_IO, "PELLAN_COMMAND_486_READ_IO", ReadUnit<&Hardware::ports>},
    {PELLAN_COMMAND_486_WRITE_IO, "PELLAN_COMMAND_486_WRITE_IO", WriteUnit<&Hardware::ports>},
    {PELLAN_COMMAND_I2C_RETRIEVE, "PELLAN_COMMAND_I2C_RETRIEVE", RetrieveI2c},
    {PELLAN_COMMAND_I2C_SEND, "PELLAN_COMMAND_I2C_SEND", SendI2c},
    {PELLAN_COMMAND_I2C_ACCESS, "PELLAN_COMMAND_I2C_ACCESS", AccessI2c},
    {PELLAN_COMMAND_AUDIO_SELECT_INPUT, "PELLAN_COMMAND_AUDIO_SELECT_INPUT",
     SetAudioParameter<VC_AUDIOPARAM_MIC_SELECT>},
    {PELLAN_COMMAND_AUDIO_SELECT_OUTPUT, "PELLAN_COMMAND_AUDIO_SELECT_OUTPUT",
     SetAudioParameter<VC_AUDIOPARAM_SPKR_SELECT>},
    {PELLAN_COMMAND_AUDIO_SET_PARAM, "PELLAN_COMMAND_AUDIO_SET_PARAM",
     Write<&Firmware::audioParameters>},
    {PELLAN_COMMAND_AUDIO_GET_PARAM, "PELLAN_COMMAND_AUDIO_GET_PARAM",
     Read<&Firmware::audioParameters>},
    {PELLAN_COMMAND_AKM_SWITCH, "PELLAN_COMMAND_AKM_SWITCH", SwitchMixer},
    {PELLAN_COMMAND_AKM_WRITE_REGISTER, "PELLAN_COMMAND_AKM_WRITE_REGISTER", WriteAkm},
    {PELLAN_COMMAND_AKM_READ_REGISTER, "PELLAN_COMMAND_AKM_READ_REGISTER", ReadAkm},
    {PELLAN_COMMAND_AKM_VOLUME, "PELLAN_COMMAND_AKM_VOLUME", SetVolume},
    {PELLAN_COMMAND_AKM_MUTE, "PELLAN_COMMAND_AKM_MUTE", MuteChannel},
    {PELLAN_COMMAND_CAM_SET_PARAM, "PELLAN_COMMAND_CAM_SET_PARAM",
     Write<&Firmware::cameraParameters>},
    {PELLAN_COMMAND_CAM_GET_PARAM, "PELLAN_COMMAND_CAM_GET_PARAM",
     Read<&Firmware::cameraParameters>},
    {PELLAN_COMMAND_CAM_SET_INPUT, "PELLAN_COMMAND_CAM_SET_INPUT", SetCameraInput},
    {PELLAN_COMMAND_CAM_SET_TYPE, "PELLAN_COMMAND_CAM_SET_TYPE", Set<&Firmware::cameraType>},
    {PELLAN_COMMAND_READ_PORT, "PELLAN_COMMAND_READ_PORT", Read<&Firmware::ports>},
    {PELLAN_COMMAND_WRITE_PORT, "PELLAN_COMMAND_WRITE_PORT", Write<&Firmware::ports>},
    {PELLAN_COMMAND_OPEN_STREAM, "PELLAN_COMMAND_OPEN_STREAM", OnStream<OpenStream>},
    {PELLAN_COMMAND_CLOSE_STREAM, "PELLAN_COMMAND_CLOSE_STREAM", OnStream<CloseStream>},
    {PELLAN_COMMAND_RESYNC_STREAM, "PELLAN_COMMAND_RESYNC_STREAM", OnOpenStream<Resynchronise>},
    {PELLAN_COMMAND_ASYNCHRONOUS_RESYNC_STREAM, "PELLAN_COMMAND_ASYNCHRONOUS_RESYNC_STREAM",
     OnOpenStream<Resynchronise>},
    {PELLAN_COMMAND_STREAM_INFO, "PELLAN_COMMAND_STREAM_INFO", GetStreamInfo},
    {PELLAN_COMMAND_PLAY_VIDEO_FILE, "PELLAN_COMMAND_PLAY_VIDEO_FILE", FindNoFile},
    {PELLAN_COMMAND_STREAM_WRITE, "PELLAN_COMMAND_STREAM_WRITE", OnOpenStream<WriteWord>},
    {PELLAN_COMMAND_STREAM_READ, "PELLAN_COMMAND_STREAM_READ", OnOpenStream<ReadWord>},
    {PELLAN_COMMAND_DEBUG_MUTE, "PELLAN_COMMAND_DEBUG_MUTE", SetAllLevels<DEBUG_LEVEL_NONE>},
    {PELLAN_COMMAND_DEBUG_TECH, "PELLAN_COMMAND_DEBUG_TECH", SetAllLevels<DEBUG_LEVEL_ERROR>},
    {PELLAN_COMMAND_DEBUG_TRACE, "PELLAN_COMMAND_DEBUG_TRACE", SetAllLevels<DEBUG_LEVEL_TRACE1>},
    {PELLAN_COMMAND_DEBUG_SETLEVEL, "PELLAN_COMMAND_DEBUG_SETLEVEL",
     Write<&Firmware::moduleDebugLevels>},
    {PELLAN_COMMAND_DEBUG_GETLEVEL, "PELLAN_COMMAND_DEBUG_GETLEVEL",
     Read<&Firmware::moduleDebugLevels>},
    {PELLAN_COMMAND_AUXDEV_SET_FIELD, "PELLAN_COMMAND_AUXDEV_SET_FIELD", WriteField},
    {PELLAN_COMMAND_AUXDEV_GET_FIELD, "PELLAN_COMMAND_AUXDEV_GET_FIELD", ReadField},
    {PELLAN_COMMAND_AUXDEV_ACTIVATE, "PELLAN_COMMAND_AUXDEV_ACTIVATE", SetLine<true>},
    {PELLAN_COMMAND_AUXDEV_DEACTIVATE, "PELLAN_COMMAND_AUXDEV_DEACTIVATE", SetLine<false>},
    {PELLAN_COMMAND_AUXDEV_TEST, "PELLAN_COMMAND_AUXDEV_TEST", TestLine},
    {PELLAN_COMMAND_AUXDEV_HW_RESET, "PELLAN_COMMAND_AUXDEV_HW_RESET", ResetHardware},
    {PELLAN_COMMAND_AEC_SET_VALUE, "PELLAN_COMMAND_AEC_SET_VALUE", Write<&Firmware::aecValues>},
    {PELLAN_COMMAND_AEC_GET_VALUE, "PELLAN_COMMAND_AEC_GET_VALUE", Read<&Firmware::aecValues>},
    {PELLAN_COMMAND_AEC_SET_MODE, "PELLAN_COMMAND_AEC_SET_MODE", SetAecMode},
    {PELLAN_COMMAND_AEC_GET_MODE, "PELLAN_COMMAND_AEC_GET_MODE", GetAecMode},
    {PELLAN_COMMAND_AEC_SET_8KHZ, "PELLAN_COMMAND_AEC_SET_8KHZ", Set<&Firmware::aecAt8kHz>},
    {PELLAN_COMMAND_DOWNLOAD2, "PELLAN_COMMAND_DOWNLOAD2", Count<PELLAN_COMMAND_DOWNLOAD2>},
    {PELLAN_COMMAND_LAN_SET_IP, "PELLAN_COMMAND_LAN_SET_IP", Set<&Firmware::lanAddress>},
    {PELLAN_COMMAND_SERIAL_CONNECT_ENABLE, "PELLAN_COMMAND_SERIAL_CONNECT_ENABLE",
     Set<&Firmware::serialConnect>},
    {PELLAN_COMMAND_SEARCHING_FOR_TARGET, "PELLAN_COMMAND_SEARCHING_FOR_TARGET",
     Count<PELLAN_COMMAND_SEARCHING_FOR_TARGET>},
    {PELLAN_COMMAND_TARGET_CONNECTED, "PELLAN_COMMAND_TARGET_CONNECTED", IsTargetConnected},
    {PELLAN_COMMAND_GENERAL_PURPOSE_0, "PELLAN_COMMAND_GENERAL_PURPOSE_0", GiveBack},
    {PELLAN_COMMAND_GENERAL_PURPOSE_1, "PELLAN_COMMAND_GENERAL_PURPOSE_1", GiveBack},
    {PELLAN_COMMAND_GENERAL_PURPOSE_2, "PELLAN_COMMAND_GENERAL_PURPOSE_2", GiveBack},
    {PELLAN_COMMAND_GENERAL_PURPOSE_3, "PELLAN_COMMAND_GENERAL_PURPOSE_3", GiveBack},
    {PELLAN_COMMAND_ERASE_ONE_BLOCK, "PELLAN_COMMAND_ERASE_ONE_BLOCK", EraseFlash},
    {PELLAN_COMMAND_BURN_BLOCK, "PELLAN_COMMAND_BURN_BLOCK", BurnFlash},
    {PELLAN_COMMAND_DUMP_BLOCK, "PELLAN_COMMAND_DUMP_BLOCK", DumpFlash},
    {PELLAN_COMMAND_UPDATE_VERSION, "PELLAN_COMMAND_UPDATE_VERSION", UpdateVersion},
    {PELLAN_COMMAND_SEND_FILE, "PELLAN_COMMAND_SEND_FILE", FindNoFile},
    {PELLAN_COMMAND_SET_SOFTWARE_VAR, "PELLAN_COMMAND_SET_SOFTWARE_VAR",
     Write<&Firmware::softwareVariables>},
    {PELLAN_COMMAND_GET_SOFTWARE_VAR, "PELLAN_COMMAND_GET_SOFTWARE_VAR",
     Read<&Firmware::softwareVariables>},
    {PELLAN_COMMAND_SET_LED_STATE, "PELLAN_COMMAND_SET_LED_STATE", SetLed},
    {PELLAN_COMMAND_GET_USS_REG, "PELLAN_COMMAND_GET_USS_REG", ReadUssRegister},
    {PELLAN_COMMAND_SET_USS_REG, "PELLAN_COMMAND_SET_USS_REG", WriteUssRegister},
});

}  // namespace

Firmware::Firmware()
    : audioParameters{.values = {{VC_AUDIOPARAM_VOLUME, 16},
                                 {VC_AUDIOPARAM_MUTE_INCOMING, 0},
                                 {VC_AUDIOPARAM_MUTE_OUTGOING, 0},
                                 {VC_AUDIOPARAM_DEVICE_LIST, 0x07},
                                 {VC_AUDIOPARAM_DEVICE, 1},
                                 {VC_AUDIOPARAM_MIC_SELECT, 3},   // camera
                                 {VC_AUDIOPARAM_SPKR_SELECT, 1},  // internal
                                 {VC_AUDIOPARAM_SELFLOOP_SELECT, 0},
                                 {VC_AUDIOPARAM_PLAYBACK, 0},
                                 {VC_AUDIOPARAM_RECORD, 0},
                                 {VC_AUDIOPARAM_EXT_PHONE, 0},
                                 {VC_AUDIOPARAM_DELAY_ENC_G711, 0},
                                 {VC_AUDIOPARAM_DELAY_ENC_G728, 0},
                                 {VC_AUDIOPARAM_DELAY_ENC_G722, 0},
                                 {VC_AUDIOPARAM_MODE_VOICE, 0},
                                 {VC_AUDIOPARAM_G722_SUPPORT, 1},
                                 {VC_AUDIOPARAM_MIC_DETECT, 1},
                                 {VC_AUDIOPARAM_G723_SUPPORT, 1},
                                 {VC_AUDIOPARAM_INT_SPKR_DETECT, 1},
                                 {VC_AUDIOPARAM_EXT_SPKR_DETECT, 0},
                                 {VC_AUDIOPARAM_MIC_GAIN, 0},
                                 {VC_AUDIOPARAM_AGC, 1},
                                 {VC_AUDIOPARAM_ANS, 1},
                                 {VC_AUDIOPARAM_AEC, 1},
                                 {VC_AUDIOPARAM_LINE_TONE, 0}},
                      .readOnly = {VC_AUDIOPARAM_DEVICE_LIST, VC_AUDIOPARAM_G722_SUPPORT,
                                   VC_AUDIOPARAM_MIC_DETECT, VC_AUDIOPARAM_G723_SUPPORT,
                                   VC_AUDIOPARAM_INT_SPKR_DETECT, VC_AUDIOPARAM_EXT_SPKR_DETECT},
                      .onlyListed = true} {
    softwareVariables.values = {{kUsbTraceVariable, USB_TRACE_ERRORS}};
    for (uint32_t module = 0; module <= moduleDebugLevels.last; ++module) {
        moduleDebugLevels.values[module] = DEBUG_LEVEL_ERROR;
    }
}

const FirmwareCommand* FindFirmwareCommand(uint32_t number) {
    const auto found =
        std::find_if(kCommands.begin(), kCommands.end(),
                     [number](const FirmwareCommand& command) { return command.number == number; });
    return found == kCommands.end() ? nullptr : &*found;
}

}  // namespace board
