#include "commands/board_commands.h"

#include "driver/papi.h"
#include "services/diagnostics.h"

void ResetHardware(HWND window) {
    ReportFailure(window, CodeOf(vdapi_AUXDEV_Initialize()), "vdapi_AUXDEV_Initialize");
    ReportFailure(window, CodeOf(vdapi_AUXDEV_HardwareReset()), "vdapi_AUXDEV_HardwareReset");
}

void ResetVxD(HWND window) {
    ReportFailure(window, CodeOf(vdapi_ResetVxD()), "vdapi_ResetVxD");
}
