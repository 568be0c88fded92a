#include "board/firmware.h"

#include <algorithm>

#include "board/firmware_commands.h"
#include "driver/debug_levels.h"
#include "driver/firmware_command.h"

namespace board {

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
    for (const auto& family : {HardwareCommands(), StreamCommands(), SoftwareCommands()}) {
        const auto found = std::ranges::find(family, number, &FirmwareCommand::number);
        if (found != family.end()) {
            return &*found;
        }
    }
    return nullptr;
}

}  // namespace board
