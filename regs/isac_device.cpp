// "Select ISAC  Device" and "Initialize ISAC  ": the ISAC device that a command is about.
#include "regs/isac_device.h"

#include "regs/device_selection.h"
#include "res/resource.h"

namespace {

constexpr uint16_t kMonitor = 13;
constexpr uint16_t kIsdn = 14;

// Kept for the whole run: both dialogs open on the last choice.
DeviceSelection selection{
    {{{IDC_ISAC_DEVICE_MONITOR, kMonitor}, {IDC_ISAC_DEVICE_ISDN, kIsdn}}},
    IDC_ISAC_DEVICE_INITIALIZE_CHIP,
    kMonitor,
};

}  // namespace

INT_PTR OpenSelectIsacDevice(HINSTANCE instance, HWND owner) {
    return OpenDeviceSelection(instance, IDD_SELECT_ISAC_DEVICE, owner, selection);
}

INT_PTR OpenInitializeIsac(HINSTANCE instance, HWND owner) {
    return OpenDeviceSelection(instance, IDD_INITIALIZE_ISAC, owner, selection);
}

uint16_t SelectedIsacDevice() {
    return selection.device;
}

bool InitializesIsacChip() {
    return selection.initializesChip;
}
