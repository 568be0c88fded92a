#include "regs/device_selection.h"

#include "app/services/dialog_kit.h"

namespace {

void ShowSelection(HWND dialog, const DeviceSelection& selection) {
    const auto& [first, second] = selection.choices;
    CheckRadioButton(dialog, first.radioButton, second.radioButton,
                     selection.device == first.device ? first.radioButton : second.radioButton);
    CheckDlgButton(dialog, selection.initializeChipBox,
                   selection.initializesChip ? BST_CHECKED : BST_UNCHECKED);
}

void TakeSelection(HWND dialog) {
    auto& selection = StateOf<DeviceSelection>(dialog);
    const auto& [first, second] = selection.choices;
    selection.device =
        IsDlgButtonChecked(dialog, first.radioButton) == BST_CHECKED ? first.device : second.device;
    // A check box that the template does not have counts as unchecked.
    selection.initializesChip =
        IsDlgButtonChecked(dialog, selection.initializeChipBox) == BST_CHECKED;
}

INT_PTR CALLBACK DeviceSelectionProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            KeepState(dialog, lParam);
            ShowSelection(dialog, StateOf<DeviceSelection>(dialog));
            return TRUE;
        case WM_COMMAND:
            return EndSelection(dialog, LOWORD(wParam), TakeSelection);
        default:
            return FALSE;
    }
}

}  // namespace

INT_PTR OpenDeviceSelection(HINSTANCE instance, int templateId, HWND owner,
                            DeviceSelection& selection) {
    return RunDialog(instance, templateId, owner, DeviceSelectionProcedure,
                     reinterpret_cast<LPARAM>(&selection));
}
