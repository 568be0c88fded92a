#include "commands/led.h"

#include "driver/papi.h"
#include "res/resource.h"
#include "services/diagnostics.h"

namespace {

constexpr UINT kBlinkMilliseconds = 1000;

bool blinking = false;
bool lit = false;

}  // namespace

void ToggleLed(HWND window) {
    if (!blinking) {
        ReportFailure(window, CodeOf(vdapi_AUXDEV_Initialize()), "vdapi_AUXDEV_Initialize");
        SetTimer(window, kLedTimer, kBlinkMilliseconds, nullptr);
        blinking = true;
        MarkLed(window);
    } else {
        KillTimer(window, kLedTimer);
        blinking = false;
        MarkLed(window);
        ReportFailure(window, CodeOf(vdapi_AUXDEV_Terminate()), "vdapi_AUXDEV_Terminate");
    }
}

void BlinkLed(HWND window) {
    lit = !lit;
    const ResultCode code = CodeOf(lit ? vdapi_AUXDEV_Activate(AUXDEV_FEATURE_LED)
                                       : vdapi_AUXDEV_Deactivate(AUXDEV_FEATURE_LED));
    // Stopped before the box is shown, or the timer would go on failing behind it.
    if (code != VXD_SUCCESS)
        KillTimer(window, kLedTimer);
    ReportFailure(window, code,
                  lit ? "vdapi_AUXDEV_Activate: AUXDEV_FEATURE_LED"
                      : "vdapi_AUXDEV_Deactivate: AUXDEV_FEATURE_LED");
}

void MarkLed(HWND window) {
    CheckMenuItem(GetMenu(window), IDM_DEBUG_LED, blinking ? MF_CHECKED : MF_UNCHECKED);
}
