#include "board/trace.h"

#include <algorithm>
#include <array>
#include <cinttypes>
#include <cstdio>
#include <string>
#include <string_view>

#include "board/state.h"
#include "driver/debug_levels.h"
#include "driver/firmware_command.h"
#include "platform/win32.h"

namespace board {
namespace {

struct Owner {
    std::string_view prefix;  // how the names of its operations and commands begin
    uint32_t module;
};

// The first that fits a name is its owner.
constexpr auto kOwners = std::to_array<Owner>({
    {"KORA_DLL_", FIRMWARE_MODULE_DRV},
    {"TALVERO_DBG_", FIRMWARE_MODULE_DRV},
    {"vdapi_JADE_", FIRMWARE_MODULE_JADE},
    {"vdapi_VCPXI_", FIRMWARE_MODULE_VCPXI},
    {"vdapi_VcpCode_", FIRMWARE_MODULE_VCP},
    {"vdapi_Stream_", FIRMWARE_MODULE_VCPXI_STREAM},
    {"vdapi_AKM_", FIRMWARE_MODULE_AKM},
    {"vdapi_CAM_", FIRMWARE_MODULE_API_CAM},
    {"vdapi_VIDINLAY_", FIRMWARE_MODULE_API_VID},
    {"vdapi_VPP_", FIRMWARE_MODULE_API_VID},
    {"PELLAN_COMMAND_VCP_", FIRMWARE_MODULE_VCP},
    {"PELLAN_COMMAND_RUN_VCP_", FIRMWARE_MODULE_VCP},
    {"PELLAN_COMMAND_SAA7111_", FIRMWARE_MODULE_DRV_CAM},
    {"PELLAN_COMMAND_JADE_", FIRMWARE_MODULE_JADE},
    {"PELLAN_COMMAND_486_", FIRMWARE_MODULE_SYS},
    {"PELLAN_COMMAND_STANDBY", FIRMWARE_MODULE_SYS},
    {"PELLAN_COMMAND_AUDIO_", FIRMWARE_MODULE_CONV},
    {"PELLAN_COMMAND_AKM_", FIRMWARE_MODULE_AKM},
    {"PELLAN_COMMAND_CAM_", FIRMWARE_MODULE_DRV_CAM},
    {"PELLAN_COMMAND_PLAY_VIDEO_FILE", FIRMWARE_MODULE_FILE},
    {"PELLAN_COMMAND_SEND_FILE", FIRMWARE_MODULE_FILE},
    {"PELLAN_COMMAND_OPEN_STREAM", FIRMWARE_MODULE_VCPXI_STREAM},
    {"PELLAN_COMMAND_CLOSE_STREAM", FIRMWARE_MODULE_VCPXI_STREAM},
    {"PELLAN_COMMAND_RESYNC_STREAM", FIRMWARE_MODULE_VCPXI_STREAM},
    {"PELLAN_COMMAND_ASYNCHRONOUS_RESYNC_STREAM", FIRMWARE_MODULE_VCPXI_STREAM},
    {"PELLAN_COMMAND_STREAM_", FIRMWARE_MODULE_VCPXI_STREAM},
    {"PELLAN_COMMAND_SET_LED_STATE", FIRMWARE_MODULE_UI},
    {"PELLAN_COMMAND_ERASE_", FIRMWARE_MODULE_PROG},
    {"PELLAN_COMMAND_BURN_", FIRMWARE_MODULE_PROG},
    {"PELLAN_COMMAND_DUMP_", FIRMWARE_MODULE_PROG},
    {"PELLAN_COMMAND_UPDATE_VERSION", FIRMWARE_MODULE_PROG},
});

uint32_t OwnerOf(std::string_view name) {
    const auto found = std::ranges::find_if(
        kOwners, [name](const Owner& owner) { return name.starts_with(owner.prefix); });
    return found == kOwners.end() ? uint32_t{FIRMWARE_MODULE_API} : found->module;
}

uint32_t LevelOf(const State& state, uint32_t module) {
    uint32_t level = DEBUG_LEVEL_NONE;
    state.firmware.moduleDebugLevels.Read(module, level);
    return level;
}

void Tell(State& state, uint32_t module, uint32_t severity, const std::string& text) {
    std::array<char, 64> prefix{};
    std::snprintf(prefix.data(), prefix.size(), "%3" PRIu32 "*%2" PRIX32 ": [%" PRIu32 "]%s:\t ",
                  uint32_t{GetTickCount()} % 1000, uint32_t{GetCurrentProcessId()} & 0xFF, severity,
                  kFirmwareModules[module].name);
    state.outbox.lines.push_back(prefix.data() + text + '\n');
}

template <typename... Values>
std::string Format(const char* format, Values... values) {
    std::array<char, 128> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

// What the USB link tells of: USB_TRACE_ flags.
uint32_t UsbFlags(const State& state) {
    uint32_t flags = 0;
    if (LevelOf(state, FIRMWARE_MODULE_USB) != DEBUG_LEVEL_NONE) {
        state.firmware.softwareVariables.Read(kUsbTraceVariable, flags);
    }
    return flags;
}

void TellOfUsb(State& state, uint32_t flag, const std::string& text) {
    if ((UsbFlags(state) & flag) != 0) {
        Tell(state, FIRMWARE_MODULE_USB,
             flag == USB_TRACE_ERRORS ? DEBUG_LEVEL_ERROR : DEBUG_LEVEL_TRACE1, text);
    }
}

// What the link tells of calls that aren't firmware commands, or of commands that were refused.
void TraceLink(State& state, const Call& call, bool failed) {
    if (call.operation == "vdapi_SendCommand" && failed) {
        TellOfUsb(state, USB_TRACE_ERRORS,
                  Format("%s refused: %u", call.command.empty() ? "command" : call.command.c_str(),
                         static_cast<unsigned>(call.result)));
    } else if (call.operation == "vdapi_Initialize" && !failed) {
        TellOfUsb(state, USB_TRACE_HWDIAG, "link up, full speed");
        TellOfUsb(state, USB_TRACE_CHAP9, "SET_ADDRESS, GET_DESCRIPTOR, SET_CONFIGURATION 1");
    } else if (call.operation == "vdapi_AUXDEV_HardwareReset" && !failed) {
        TellOfUsb(state, USB_TRACE_HWEVENT, "bus reset");
    }
}

}  // namespace

void TraceCall(State& state, const Call& call, bool resultIsBit) {
    const std::string& name = call.command.empty() ? call.operation : call.command;
    const uint32_t module = OwnerOf(name);
    const bool failed = call.result != VXD_SUCCESS && !resultIsBit;
    const uint32_t severity = failed ? DEBUG_LEVEL_ERROR : DEBUG_LEVEL_TRACE1;
    const uint32_t level = LevelOf(state, module);
    if (level >= severity) {
        Tell(state, module, severity,
             level >= DEBUG_LEVEL_TRACE2
                 ? Describe(call)
                 : name + Format(" = %u", static_cast<unsigned>(call.result)));
    }
    TraceLink(state, call, failed);
}

void TraceUsb(State& state, const FirmwareCommand& command, const FirmwareParameters& parameters,
              const FirmwareResponses& responses) {
    // By default errors alone, which TraceLink tells: no call waits for texts that nobody reads.
    if ((UsbFlags(state) & ~uint32_t{USB_TRACE_ERRORS}) == 0) {
        return;
    }
    TellOfUsb(state, USB_TRACE_ANY, command.name);
    TellOfUsb(state, USB_TRACE_FLOW, Format("%s goes out", command.name));
    TellOfUsb(state, USB_TRACE_BUFQE, "one buffer taken, 16 bytes");
    TellOfUsb(state, USB_TRACE_VSP, Format("vendor request %" PRIu32, command.number));
    TellOfUsb(state, USB_TRACE_TXDATA,
              Format("%08" PRIX32 " %08" PRIX32 " %08" PRIX32 " %08" PRIX32, command.number,
                     parameters.first, parameters.second, parameters.third));
    TellOfUsb(state, USB_TRACE_HWINT, "endpoint 1 in");
    TellOfUsb(state, USB_TRACE_PROTO, Format("answer to %" PRIu32, command.number));
    TellOfUsb(state, USB_TRACE_RXDATA,
              Format("%08" PRIX32 " %08" PRIX32 " %04X", responses.first, responses.second,
                     static_cast<unsigned>(responses.third)));
    TellOfUsb(state, USB_TRACE_BUFQE, "one buffer given back");
    TellOfUsb(state, USB_TRACE_FLOW, Format("%s is answered", command.name));
}

}  // namespace board
