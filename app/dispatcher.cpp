#include "app/dispatcher.h"

#include <algorithm>
#include <array>
#include <tuple>

#include "codec/bas_commands.h"
#include "codec/bonding.h"
#include "codec/download.h"
#include "codec/raw_command.h"
#include "codec/streams.h"
#include "codec/variable_access.h"
#include "commands/arcofi_loops.h"
#include "commands/board_commands.h"
#include "commands/board_menu.h"
#include "commands/chip_command_tables.h"
#include "commands/chip_commands.h"
#include "commands/data_channels.h"
#include "commands/debug_level_commands.h"
#include "commands/echo_canceller.h"
#include "commands/led.h"
#include "commands/media_services.h"
#include "commands/message_channel.h"
#include "commands/monitor_receive.h"
#include "commands/pci_queries.h"
#include "commands/registration.h"
#include "commands/tdm_routing.h"
#include "commands/video_windows.h"
#include "commands/window_commands.h"
#include "debug/about.h"
#include "debug/debug_levels.h"
#include "debug/gds_dump.h"
#include "driver/kora_dll32.h"
#include "driver/papi.h"
#include "regs/aec_latch.h"
#include "regs/akm_control.h"
#include "regs/annexd_loader.h"
#include "regs/arcofi_browsers.h"
#include "regs/audio_config.h"
#include "regs/auxdev_browsers.h"
#include "regs/camera_browsers.h"
#include "regs/camera_selection.h"
#include "regs/eprom.h"
#include "regs/i2c_access.h"
#include "regs/isac_browsers.h"
#include "regs/jade_access.h"
#include "regs/mbe_send.h"
#include "regs/memory_access.h"
#include "regs/saec_browser.h"
#include "regs/uss_registers.h"
#include "regs/vpic_browsers.h"
#include "regs/vpic_i2c_access.h"
#include "res/resource.h"
#include "services/application.h"
#include "video/encoder_basics.h"
#include "video/encoder_fields.h"
#include "video/kora_vid.h"
#include "video/overlay.h"
#include "video/palette.h"
#include "video/pixel_mask.h"
#include "video/vpp_mode.h"
#include "video/vpp_statistics.h"

namespace {

using Action = void (*)(HWND window, uint32_t command);

struct Command {
    uint32_t id;
    Action run;
};

// A command that needs nothing but the main window.
template <void (*kRun)(HWND)>
void Run(HWND window, uint32_t /*command*/) {
    kRun(window);
}

// A command that needs nothing at all.
template <void (*kRun)()>
void Run(HWND /*window*/, uint32_t /*command*/) {
    kRun();
}

// A command that does to one channel or stream what others do to theirs.
template <void (*kRun)(HWND, uint32_t), uint32_t kNumber>
void RunOn(HWND window, uint32_t /*command*/) {
    kRun(window, kNumber);
}

// A command that opens a dialog; what the dialog answers is its own affair.
template <INT_PTR (*kOpen)(HINSTANCE, HWND)>
void Open(HWND window, uint32_t /*command*/) {
    kOpen(AppInstance, window);
}

void RunEchoCancellerCommand(HWND /*window*/, uint32_t command) {
    HandleAECMode(nullptr, command);
}

constexpr std::array kCommands = {
    Command{IDM_FILE_EXIT, Run<ExitUtility>},
    Command{IDM_FILE_RESET, Run<ResetHardware>},
    Command{IDM_FILE_RESET_VXD, Run<ResetVxD>},
    Command{IDM_FILE_SEND_RAW_COMMAND, Open<OpenRawCommand>},
    Command{IDM_FILE_BANDWIDTH, Run<ShowBandwidth>},

    Command{IDM_DEBUG_LEVELS_OLDER, Open<OpenDebugLevels>},
    Command{IDM_DEBUG_LEVELS_NEWER, Open<OpenDebugLevels>},
    Command{IDM_DEBUG_KORA_MUTE, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_ERROR, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_WARN, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_TRACE_1, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_TRACE_2, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_TRACE_3, ChooseDebugLevel},
    Command{IDM_DEBUG_DUMP_GDS, Open<OpenGdsDump>},
    Command{IDM_DEBUG_LED, Run<ToggleLed>},

    Command{IDM_PCI_BIOS_PRESENT, Run<QueryPciBios>},
    Command{IDM_PCI_FIND_DEVICE, Run<FindPciDevice>},
    Command{IDM_PCI_FIND_CLASS_CODE, Run<FindPciClassCode>},
    Command{IDM_PCI_READ_CONFIG_SPACE, Run<ReadPciConfigSpace>},

    Command{IDM_SEQ_REGISTER, Run<RegisterSequencer>},
    Command{IDM_ISAC_INITIALIZE, Run<InitializeIsac>},
    Command{IDM_MONITOR_INITIALIZE, Run<InitializeMonitor>},
    Command{IDM_MONITOR_TRANSMIT, Run<ReceiveMonitorBytes>},
    Command{IDM_MONITOR_RECEIVE, Run<ReceiveMonitorBytes>},

    Command{IDM_ARCOFI_LOOP_NONE, ChooseArcofiLoop},
    Command{IDM_ARCOFI_LOOP_FRONT_END, ChooseArcofiLoop},
    Command{IDM_ARCOFI_LOOP_CONVERTER, ChooseArcofiLoop},
    Command{IDM_ARCOFI_LOOP_NOISE_SHAPER, ChooseArcofiLoop},
    Command{IDM_ARCOFI_LOOP_INTERFACE, ChooseArcofiLoop},

    Command{IDM_AEC_INITIALIZE, RunEchoCancellerCommand},
    Command{IDM_AEC_TERMINATE, RunEchoCancellerCommand},
    Command{IDM_AEC_ON, RunEchoCancellerCommand},
    Command{IDM_AEC_OFF, RunEchoCancellerCommand},
    Command{IDM_AEC_LOOPBACK, RunEchoCancellerCommand},
    Command{IDM_AEC_MUTE_ON, RunEchoCancellerCommand},
    Command{IDM_AEC_MUTE_OFF, RunEchoCancellerCommand},
    Command{IDM_AEC_SW_RESET, RunEchoCancellerCommand},
    Command{IDM_AEC_HW_RESET, RunEchoCancellerCommand},
    Command{IDM_AEC_MODE_1, RunEchoCancellerCommand},
    Command{IDM_AEC_MODE_2, RunEchoCancellerCommand},
    Command{IDM_AEC_MODE_3, RunEchoCancellerCommand},
    Command{IDM_AEC_ANS_ON, RunEchoCancellerCommand},
    Command{IDM_AEC_ANS_OFF, RunEchoCancellerCommand},
    Command{IDM_AEC_AGC_ON, RunEchoCancellerCommand},
    Command{IDM_AEC_AGC_OFF, RunEchoCancellerCommand},
    Command{IDM_AEC_LATCH, Open<OpenAecLatch>},
    Command{IDM_AKM, Open<OpenAkmControl>},
    Command{IDM_AUDIO, Open<OpenAudioConfig>},

    Command{IDM_BOARD_ROUTING_IOM2, Run<RouteToIom2>},
    Command{IDM_BOARD_ROUTING_MVIP, Run<RouteToMvip>},

    Command{IDM_ANALOG_CAMERA_SELECT, Open<OpenCameraSelection>},

    Command{IDM_LSD_INITIALIZE, RunOn<InitializeChannel, USER_DATA_LSD>},
    Command{IDM_LSD_TERMINATE, RunOn<TerminateChannel, USER_DATA_LSD>},
    Command{IDM_LSD_PACKETIZED, Run<TogglePacketized>},
    Command{IDM_LSD_OPEN, RunOn<OpenChannel, USER_DATA_LSD>},
    Command{IDM_LSD_CLOSE, RunOn<CloseChannel, USER_DATA_LSD>},
    Command{IDM_LSD_SEND, RunOn<SendOnChannel, USER_DATA_LSD>},
    Command{IDM_LSD_READ, RunOn<ReadChannel, USER_DATA_LSD>},
    Command{IDM_HSD_INITIALIZE, RunOn<InitializeChannel, USER_DATA_HSD>},
    Command{IDM_HSD_TERMINATE, RunOn<TerminateChannel, USER_DATA_HSD>},
    Command{IDM_HSD_OPEN, RunOn<OpenChannel, USER_DATA_HSD>},
    Command{IDM_HSD_CLOSE, RunOn<CloseChannel, USER_DATA_HSD>},
    Command{IDM_HSD_SEND, RunOn<SendOnChannel, USER_DATA_HSD>},
    Command{IDM_HSD_READ, RunOn<ReadChannel, USER_DATA_HSD>},
    Command{IDM_MLP_INITIALIZE, RunOn<InitializeChannel, USER_DATA_MLP>},
    Command{IDM_MLP_TERMINATE, RunOn<TerminateChannel, USER_DATA_MLP>},
    Command{IDM_MLP_OPEN, RunOn<OpenChannel, USER_DATA_MLP>},
    Command{IDM_MLP_CLOSE, RunOn<CloseChannel, USER_DATA_MLP>},
    Command{IDM_MLP_SEND, RunOn<SendOnChannel, USER_DATA_MLP>},
    Command{IDM_MLP_READ, RunOn<ReadChannel, USER_DATA_MLP>},
    Command{IDM_MBE_INITIALIZE, Run<InitializeMessages>},
    Command{IDM_MBE_SEND, Open<OpenMbeSend>},
    Command{IDM_MBE_RECEIVE, Run<ReceiveMessage>},
    Command{IDM_BAS_SEND_COMMAND, Open<OpenBasCommands>},
    Command{IDM_ANNEXD_INITIALIZE, Run<InitializeAnnexD>},
    Command{IDM_ANNEXD_TERMINATE, Run<TerminateAnnexD>},
    Command{IDM_ANNEXD_DOWNLOAD, Open<OpenAnnexdLoader>},
    Command{IDM_VIDEO_OPEN_ALL, Run<OpenAllVideoWindows>},
    Command{IDM_VIDEO_OPEN_LOCAL, Run<OpenLocalVideoWindow>},
    Command{IDM_VIDEO_OPEN_REMOTE, Run<OpenRemoteVideoWindow>},
    Command{IDM_VIDEO_CLOSE_ALL, Run<CloseAllVideo>},
    Command{IDM_VIDEO_CLOSE_LOCAL, Run<CloseLocalVideo>},
    Command{IDM_VIDEO_CLOSE_REMOTE, Run<CloseRemoteVideo>},
    Command{IDM_VIDEO_FREEZE, Run<FreezeVideo>},
    Command{IDM_VIDEO_RESTART, Run<RestartVideo>},
    Command{IDM_VCPXI_DOWNLOAD, Open<OpenDownload>},
    Command{IDM_STREAM_OPEN, Open<OpenStreams>},
    Command{IDM_VPP_INITIALIZE, Run<InitializeVpp>},
    Command{IDM_VPP_TERMINATE, Run<TerminateVpp>},
    Command{IDM_STREAM_CLOSE_VIDEO, RunOn<CloseStream, STREAM_VIDEO>},
    Command{IDM_STREAM_CLOSE_AUDIO_IN, RunOn<CloseStream, STREAM_AUDIO_TO_BOARD>},
    Command{IDM_STREAM_CLOSE_AUDIO_OUT, RunOn<CloseStream, STREAM_AUDIO_FROM_BOARD>},

    Command{IDM_VPIC_PORTS, Open<OpenVpicPorts>},
    Command{IDM_VPIC_BITS, Open<OpenVpicBits>},
    Command{IDM_ISAC_REGISTERS, Open<OpenIsacRegisters>},
    Command{IDM_ISAC_BITS, Open<OpenIsacBits>},
    Command{IDM_ARCOFI_PORTS, Open<OpenArcofiPorts>},
    Command{IDM_ARCOFI_COEFFICIENTS, Open<OpenArcofiCoefficients>},
    Command{IDM_SAEC_PORTS, Open<OpenSaecPorts>},
    Command{IDM_CAMERA_ACCESS, Open<OpenDigitalCameraRegisters>},
    Command{IDM_ANALOG_CAMERA_ACCESS, Open<OpenAnalogCameraRegisters>},
    Command{IDM_BOARD_AUXDEV_FIELDS, Open<OpenAuxdevFields>},
    Command{IDM_BOARD_AUXDEV_FEATURES, Open<OpenAuxdevFeatures>},
    Command{IDM_AUXDEV, Open<OpenAuxdevFeatures>},

    Command{IDM_VCPXI_VARIABLE_ACCESS, Open<OpenVariableAccess>},
    Command{IDM_BONDING_LOCAL_PARAMS, Open<OpenLocalBondParams>},
    Command{IDM_BONDING_REMOTE_PARAMS, Open<OpenRemoteBondParams>},
    Command{IDM_BONDING_COMMON_PARAMS, Open<OpenCommonBondParams>},
    Command{IDM_BONDING_LOCAL_PHONES, Open<OpenLocalBondPhones>},
    Command{IDM_BONDING_REMOTE_PHONES, Open<OpenRemoteBondPhones>},

    Command{IDM_486, Open<OpenMemoryAccess>},
    Command{IDM_EEPROM_ACCESS, Open<OpenEprom>},
    Command{IDM_I2C_ACCESS, Open<OpenI2cAccess>},
    Command{IDM_JADE_REGISTERS, Open<OpenJadeAccess>},
    Command{IDM_USS_REGISTERS, Open<OpenUssRegisters>},
    Command{IDM_VPIC_I2C_PORTS, Open<OpenVpicI2cAccess>},

    Command{IDM_BROOKTREE_BASICS, Open<OpenEncoderBasics>},
    Command{IDM_BROOKTREE_CONTROL_REGS, Open<OpenEncoderFields>},
    Command{IDM_BROOKTREE_OVERLAY, Open<OpenOverlay>},
    Command{IDM_BROOKTREE_PALETTE, Open<OpenPalette>},
    Command{IDM_BROOKTREE_PIXEL_MASK, Open<OpenPixelMask>},

    Command{IDM_VPP_SET_MODE, Open<OpenVppMode>},
    Command{IDM_VPP_STATISTICS, Open<OpenVppStatistics>},

    Command{IDM_HELP_ABOUT, Open<OpenAbout>},
    Command{IDM_HELP_CHANGE_COLOR, Run<ChangeColor>},
    Command{IDM_HELP_ALWAYS_ON_TOP, Run<ToggleAlwaysOnTop>},

    Command{IDM_MENU_OLDER, Run<ChooseOlderMenu>},
    Command{IDM_MENU_NEWER, Run<ChooseNewerMenu>},
};

// Whether no command stands twice in the tables.
template <typename... Tables>
constexpr bool NoneStandsTwice(const Tables&... tables) {
    std::array<uint32_t, (std::tuple_size_v<Tables> + ...)> ids{};
    auto next = ids.begin();
    ((next = std::ranges::transform(tables, next, [](const auto& row) { return row.id; }).out),
     ...);
    std::ranges::sort(ids);
    return std::ranges::adjacent_find(ids) == ids.end();
}
template <typename... Tables>
bool StandsIn(uint32_t command, const Tables&... tables) {
    const auto isIn = [command](const auto& table) {
        return std::ranges::any_of(table, [command](const auto& row) { return row.id == command; });
    };
    return (isIn(tables) || ...);
}

static_assert(NoneStandsTwice(kCommands, chip::kDebugCommands, chip::kFixedCommands,
                              chip::kChoiceCommands, chip::kOperations,
                              chip::kOperationsWithArgument, chip::kUnsupportedCommands));

}  // namespace

LRESULT DispatchCommand(HWND window, uint32_t command) {
    const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                    [command](const Command& each) { return each.id == command; });
    if (found != kCommands.end()) {
        found->run(window, command);
    } else {
        RunChipCommand(window, command);
    }
    return 0;
}

bool HasAction(uint32_t command) {
    return StandsIn(command, kCommands, chip::kDebugCommands, chip::kFixedCommands,
                    chip::kChoiceCommands, chip::kOperations, chip::kOperationsWithArgument,
                    chip::kUnsupportedCommands);
}
