// "Select Monitor Device" and "Initialize IOM2 Monitor": the device on the IOM-2 monitor channel
// that a command is about.
#include "regs/monitor_device.h"

#include "regs/device_selection.h"
#include "res/resource.h"

namespace {

constexpr uint16_t kArcofi = 3;
constexpr uint16_t kSbcx = 12;

// Kept for the whole run: both dialogs open on the last choice.
DeviceSelection selection{
    {{{IDC_MONITOR_DEVICE_ARCOFI, kArcofi}, {IDC_MONITOR_DEVICE_SBCX, kSbcx}}},
    IDC_MONITOR_DEVICE_INITIALIZE_CHIP,
    kArcofi,
};

}  // namespace

INT_PTR OpenSelectMonitorDevice(HINSTANCE instance, HWND owner) {
    return OpenDeviceSelection(instance, IDD_SELECT_MONITOR_DEVICE, owner, selection);
}

INT_PTR OpenInitializeMonitor(HINSTANCE instance, HWND owner) {
    return OpenDeviceSelection(instance, IDD_INITIALIZE_MONITOR, owner, selection);
}

uint16_t SelectedMonitorDevice() {
    return selection.device;
}

bool InitializesMonitorChip() {
    return selection.initializesChip;
}
