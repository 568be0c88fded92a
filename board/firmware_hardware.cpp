// The commands that reach the board's chips, lines and flash memory.
#include <array>
#include <optional>

#include "board/firmware_commands.h"
#include "driver/firmware_command.h"

namespace board {
namespace {

using Parameters = FirmwareParameters;
using Responses = FirmwareResponses;

constexpr uint32_t kFlashBlocks = 16;
constexpr uint32_t kWordsPerFlashBlock = 256;
constexpr uint32_t kErasedWord = 0xFFFFFFFF;

// --- The 486's memory and I/O ---

uint32_t UnitBytes(const AddressSpace& space, uint32_t unitSize) {
    return unitSize == 0 ? space.WidestUnit() : unitSize;
}

template <AddressSpace Hardware::*kMember>
ResultCode ReadUnit(State& state, const Parameters& parameters, Responses& responses) {
    const AddressSpace& space = state.hardware.*kMember;
    return space.Read(parameters.first, UnitBytes(space, parameters.second), responses.first);
}

template <AddressSpace Hardware::*kMember>
ResultCode WriteUnit(State& state, const Parameters& parameters, Responses& responses) {
    AddressSpace& space = state.hardware.*kMember;
    const ResultCode code =
        space.Write(parameters.first, UnitBytes(space, parameters.second), parameters.third);
    return code == VXD_SUCCESS ? ReadUnit<kMember>(state, parameters, responses) : code;
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

// --- USS ---

ResultCode ReadUssRegister(State& state, const Parameters& parameters, Responses& responses) {
    return state.firmware.ussRegisters.Read(parameters.first, responses.second);
}

ResultCode WriteUssRegister(State& state, const Parameters& parameters, Responses& responses) {
    return WriteTo(state.firmware.ussRegisters, parameters.first, parameters.second,
                   responses.second);
}

// --- Sound and camera ---

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

template <bool kActive>
ResultCode SetLine(State& state, const Parameters& parameters, Responses& responses) {
    const ResultCode code = state.auxiliaryDevice.SetLine(parameters.first, kActive);
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

constexpr auto kCommands = std::to_array<FirmwareCommand>({
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
    {PELLAN_COMMAND_AKM_SWITCH, "PELLAN_COMMAND_AKM_SWITCH", SwitchMixer},
    {PELLAN_COMMAND_AKM_WRITE_REGISTER, "PELLAN_COMMAND_AKM_WRITE_REGISTER", WriteAkm},
    {PELLAN_COMMAND_AKM_READ_REGISTER, "PELLAN_COMMAND_AKM_READ_REGISTER", ReadAkm},
    {PELLAN_COMMAND_AKM_VOLUME, "PELLAN_COMMAND_AKM_VOLUME", SetVolume},
    {PELLAN_COMMAND_AKM_MUTE, "PELLAN_COMMAND_AKM_MUTE", MuteChannel},
    {PELLAN_COMMAND_CAM_SET_INPUT, "PELLAN_COMMAND_CAM_SET_INPUT", SetCameraInput},
    {PELLAN_COMMAND_CAM_SET_TYPE, "PELLAN_COMMAND_CAM_SET_TYPE", Set<&Firmware::cameraType>},
    {PELLAN_COMMAND_READ_PORT, "PELLAN_COMMAND_READ_PORT", Read<&Firmware::ports>},
    {PELLAN_COMMAND_WRITE_PORT, "PELLAN_COMMAND_WRITE_PORT", Write<&Firmware::ports>},
    {PELLAN_COMMAND_AUXDEV_SET_FIELD, "PELLAN_COMMAND_AUXDEV_SET_FIELD", WriteField},
    {PELLAN_COMMAND_AUXDEV_GET_FIELD, "PELLAN_COMMAND_AUXDEV_GET_FIELD", ReadField},
    {PELLAN_COMMAND_AUXDEV_ACTIVATE, "PELLAN_COMMAND_AUXDEV_ACTIVATE", SetLine<true>},
    {PELLAN_COMMAND_AUXDEV_DEACTIVATE, "PELLAN_COMMAND_AUXDEV_DEACTIVATE", SetLine<false>},
    {PELLAN_COMMAND_AUXDEV_TEST, "PELLAN_COMMAND_AUXDEV_TEST", TestLine},
    {PELLAN_COMMAND_AUXDEV_HW_RESET, "PELLAN_COMMAND_AUXDEV_HW_RESET", ResetHardware},
    {PELLAN_COMMAND_AEC_SET_MODE, "PELLAN_COMMAND_AEC_SET_MODE", SetAecMode},
    {PELLAN_COMMAND_AEC_GET_MODE, "PELLAN_COMMAND_AEC_GET_MODE", GetAecMode},
    {PELLAN_COMMAND_AEC_SET_8KHZ, "PELLAN_COMMAND_AEC_SET_8KHZ", Set<&Firmware::aecAt8kHz>},
    {PELLAN_COMMAND_ERASE_ONE_BLOCK, "PELLAN_COMMAND_ERASE_ONE_BLOCK", EraseFlash},
    {PELLAN_COMMAND_BURN_BLOCK, "PELLAN_COMMAND_BURN_BLOCK", BurnFlash},
    {PELLAN_COMMAND_DUMP_BLOCK, "PELLAN_COMMAND_DUMP_BLOCK", DumpFlash},
    {PELLAN_COMMAND_SET_LED_STATE, "PELLAN_COMMAND_SET_LED_STATE", SetLed},
    {PELLAN_COMMAND_GET_USS_REG, "PELLAN_COMMAND_GET_USS_REG", ReadUssRegister},
    {PELLAN_COMMAND_SET_USS_REG, "PELLAN_COMMAND_SET_USS_REG", WriteUssRegister},
});

}  // namespace

std::span<const FirmwareCommand> HardwareCommands() {
    return kCommands;
}

}  // namespace board
