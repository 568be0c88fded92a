// "Select Device": the device for which the sequencer enters or leaves an atomic section.
#include "debug/select_device.h"

#include <array>

#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

constexpr auto kDevices = std::to_array<NamedNumber>({
    {"VCP         ", 0},
    {"ISAC         ", 1},
    {"JADE         ", 2},
    {"ARCOFI       ", 3},
    {"Video Inlay  ", 4},
    {"Auxilary     ", 5},
    {"ICC          ", 6},
});

// Kept for the whole run: the dialog opens on the last choice.
uint16_t device = 0;

void ShowDevices(HWND dialog) {
    SendDlgItemMessageA(dialog, IDC_DEVICE_LIST, CB_RESETCONTENT, 0, 0);
    AddComboRows(dialog, IDC_DEVICE_LIST, kDevices);
    SendDlgItemMessageA(dialog, IDC_DEVICE_LIST, CB_SETCURSEL, device, 0);
}

// Text that stands in place of a row leaves the choice as it was.
void TakeDevice(HWND dialog) {
    if (SelectedRow(dialog, IDC_DEVICE_LIST))
        device = static_cast<uint16_t>(SelectedNumber(dialog, IDC_DEVICE_LIST));
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDOK, Accept<TakeDevice>},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenSelectDevice(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_SELECT_DEVICE, owner, {ShowDevices, kActions});
}

uint16_t SelectedDevice() {
    return device;
}
