#include "commands/registration.h"

#include "driver/debug_command.h"
#include "driver/kora_dll32.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "regs/isac_device.h"
#include "regs/monitor_device.h"
#include "services/application.h"
#include "services/diagnostics.h"

void RegisterSequencer(HWND window) {
    SequencerRegisterBlock block{0, KORA_DLL_GetSeqHandle(0)};
    ReportFailure(window, CodeOf(vdapi_Debug(TALVERO_DBG_SEQ_TR_RGSTR, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_SEQ_TR_RGSTR");
}

void InitializeIsac(HWND window) {
    if (OpenInitializeIsac(AppInstance, window) != 1)
        return;
    const uint16_t device = SelectedIsacDevice();
    IsacInitializeBlock block{device, KORA_DLL_GetIsacHandle(device), InitializesIsacChip()};
    ReportFailure(window, CodeOf(vdapi_Debug(TALVERO_DBG_ISAC_TR_INIT, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_ISAC_TR_INIT");
}

void InitializeMonitor(HWND window) {
    if (OpenInitializeMonitor(AppInstance, window) != 1)
        return;
    const uint16_t device = SelectedMonitorDevice();
    MonitorInitializeBlock block{device, KORA_DLL_GetMonitorHandle(device, window),
                                 InitializesMonitorChip()};
    ReportFailure(window, CodeOf(vdapi_Debug(TALVERO_DBG_MON_TR_INIT, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_MON_TR_INIT");
}
