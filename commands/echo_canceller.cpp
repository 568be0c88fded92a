#include "commands/echo_canceller.h"

#include <algorithm>
#include <array>

#include "driver/papi.h"
#include "driver/result_code.h"
#include "res/resource.h"
#include "services/diagnostics.h"

namespace {

constexpr uint16_t kSeverity = 1;

struct ModeCommand {
    uint32_t id;
    uint32_t code;
};

// The codes are not those of the buttons of the latch dialog (regs/aec_latch.cpp).
constexpr auto kModes = std::to_array<ModeCommand>({
    {IDM_AEC_ON, 0x81},
    {IDM_AEC_OFF, 0x82},
    {IDM_AEC_LOOPBACK, 0x83},
    {IDM_AEC_MUTE_ON, 0x84},
    {IDM_AEC_MUTE_OFF, 0x88},
    {IDM_AEC_SW_RESET, 0x8C},
    {IDM_AEC_HW_RESET, 0x00},
    {IDM_AEC_MODE_1, 0x90},
    {IDM_AEC_MODE_2, 0xA0},
    {IDM_AEC_MODE_3, 0xB0},
    {IDM_AEC_ANS_ON, 0xC0},
    {IDM_AEC_ANS_OFF, 0x48},
    {IDM_AEC_AGC_ON, 0x40},
    {IDM_AEC_AGC_OFF, 0xC8},
});

void TraceFailure(uint32_t result, const char* format) {
    if (const ResultCode code = CodeOf(result); code != VXD_SUCCESS) {
        DbgMsg(kSeverity, format, static_cast<unsigned>(code));
    }
}

void SetMode(uint32_t command) {
    const auto mode = std::ranges::find(kModes, command, &ModeCommand::id);
    if (mode == kModes.end()) {
        DbgMsg(kSeverity, "HandleAECMode() : Invalid Parameter.\n");
        return;
    }
    TraceFailure(vdapi_AEC_SetMode(mode->code),
                 "HandleAECMode() : vdapi_AEC_SetMode returned error = 0x%x.\n");
}

}  // namespace

void HandleAECMode(HMENU menu, uint32_t command) {
    DbgMsg(kSeverity, "HandleAECMode() : vdapi_AEC_SetMode wParam = 0x%x; hMenu = %d.\n",
           static_cast<unsigned>(LOWORD(command)),
           static_cast<int>(reinterpret_cast<intptr_t>(menu)));
    switch (command) {
        case IDM_AEC_INITIALIZE:
            TraceFailure(vdapi_AEC_Initialize(),
                         "HandleAECMode() : vdapi_AEC_Initialize returned error = 0x%x.\n");
            break;
        case IDM_AEC_TERMINATE:
            TraceFailure(vdapi_AEC_Terminate(),
                         "HandleAECMode() : vdapi_AEC_Terminate returned error = 0x%x.\n");
            break;
        default:
            SetMode(command);
            break;
    }
}
