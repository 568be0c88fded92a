// The commands for what the firmware itself keeps and tells: versions, variables, parameters, debug
// levels.
#include <array>

#include "board/firmware_commands.h"
#include "driver/debug_levels.h"
#include "driver/firmware_command.h"

namespace board {
namespace {

using Parameters = FirmwareParameters;
using Responses = FirmwareResponses;

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

// --- Audio parameters ---

template <uint32_t kParameter>
ResultCode SetAudioParameter(State& state, const Parameters& parameters, Responses& responses) {
    return WriteTo(state.firmware.audioParameters, kParameter, parameters.first, responses.first);
}

// --- Debug levels of the firmware's modules ---

template <uint32_t kLevel>
ResultCode SetAllLevels(State& state, const Parameters&, Responses&) {
    Registers& levels = state.firmware.moduleDebugLevels;
    for (uint32_t module = 0; module <= levels.last; ++module) {
        levels.Write(module, kLevel);
    }
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

template <uint32_t kNumber>
ResultCode Count(State& state, const Parameters&, Responses& responses) {
    responses.first = ++state.firmware.timesSent[kNumber];
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
    {PELLAN_COMMAND_AUDIO_SELECT_INPUT, "PELLAN_COMMAND_AUDIO_SELECT_INPUT",
     SetAudioParameter<VC_AUDIOPARAM_MIC_SELECT>},
    {PELLAN_COMMAND_AUDIO_SELECT_OUTPUT, "PELLAN_COMMAND_AUDIO_SELECT_OUTPUT",
     SetAudioParameter<VC_AUDIOPARAM_SPKR_SELECT>},
    {PELLAN_COMMAND_AUDIO_SET_PARAM, "PELLAN_COMMAND_AUDIO_SET_PARAM",
     Write<&Firmware::audioParameters>},
    {PELLAN_COMMAND_AUDIO_GET_PARAM, "PELLAN_COMMAND_AUDIO_GET_PARAM",
     Read<&Firmware::audioParameters>},
    {PELLAN_COMMAND_CAM_SET_PARAM, "PELLAN_COMMAND_CAM_SET_PARAM",
     Write<&Firmware::cameraParameters>},
    {PELLAN_COMMAND_CAM_GET_PARAM, "PELLAN_COMMAND_CAM_GET_PARAM",
     Read<&Firmware::cameraParameters>},
    {PELLAN_COMMAND_PLAY_VIDEO_FILE, "PELLAN_COMMAND_PLAY_VIDEO_FILE", FindNoFile},
    {PELLAN_COMMAND_DEBUG_MUTE, "PELLAN_COMMAND_DEBUG_MUTE", SetAllLevels<DEBUG_LEVEL_NONE>},
    {PELLAN_COMMAND_DEBUG_TECH, "PELLAN_COMMAND_DEBUG_TECH", SetAllLevels<DEBUG_LEVEL_ERROR>},
    {PELLAN_COMMAND_DEBUG_TRACE, "PELLAN_COMMAND_DEBUG_TRACE", SetAllLevels<DEBUG_LEVEL_TRACE1>},
    {PELLAN_COMMAND_DEBUG_SETLEVEL, "PELLAN_COMMAND_DEBUG_SETLEVEL",
     Write<&Firmware::moduleDebugLevels>},
    {PELLAN_COMMAND_DEBUG_GETLEVEL, "PELLAN_COMMAND_DEBUG_GETLEVEL",
     Read<&Firmware::moduleDebugLevels>},
    {PELLAN_COMMAND_AEC_SET_VALUE, "PELLAN_COMMAND_AEC_SET_VALUE", Write<&Firmware::aecValues>},
    {PELLAN_COMMAND_AEC_GET_VALUE, "PELLAN_COMMAND_AEC_GET_VALUE", Read<&Firmware::aecValues>},
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
    {PELLAN_COMMAND_UPDATE_VERSION, "PELLAN_COMMAND_UPDATE_VERSION", UpdateVersion},
    {PELLAN_COMMAND_SEND_FILE, "PELLAN_COMMAND_SEND_FILE", FindNoFile},
    {PELLAN_COMMAND_SET_SOFTWARE_VAR, "PELLAN_COMMAND_SET_SOFTWARE_VAR",
     Write<&Firmware::softwareVariables>},
    {PELLAN_COMMAND_GET_SOFTWARE_VAR, "PELLAN_COMMAND_GET_SOFTWARE_VAR",
     Read<&Firmware::softwareVariables>},
});

}  // namespace

std::span<const FirmwareCommand> SoftwareCommands() {
    return kCommands;
}

}  // namespace board
