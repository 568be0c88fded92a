#include "regs/device_selection.h"

#include <array>

#include "services/dialog_kit.h"

namespace {

void ShowSelection(HWND dialog) {
    const auto& selection = StateOf<DeviceSelection>(dialog);
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

constexpr auto kActions = std::to_array<DialogAction>({
    {IDOK, Accept<TakeSelection>},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenDeviceSelection(HINSTANCE instance, int templateId, HWND owner,
                            DeviceSelection& selection) {
    return RunDialog(instance, templateId, owner, {ShowSelection, kActions}, &selection);
}
