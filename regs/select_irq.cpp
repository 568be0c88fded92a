// "Select IRQ": the interrupt sources to simulate, one check box each.
#include "regs/select_irq.h"

#include <array>

#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

struct InterruptSource {
    int checkBox;
    uint32_t bit;
};

constexpr auto kSources = std::to_array<InterruptSource>({
    {IDC_IRQ_VCP, 0x001},
    {IDC_IRQ_MASTER_ABORT, 0x002},
    {IDC_IRQ_END_OF_FRAME, 0x004},
    {IDC_IRQ_ADDRESS_BOUNDARY, 0x008},
    {IDC_IRQ_END_OF_READ, 0x010},
    {IDC_IRQ_END_OF_WRITE, 0x020},
    {IDC_IRQ_ICC, 0x040},
    {IDC_IRQ_JADE, 0x080},
    {IDC_IRQ_JADE_REALTIME, 0x100},
    {IDC_IRQ_ISAC, 0x200},
});

// Kept for the whole run: the dialog opens on the last choice.
uint32_t interrupts = 0;

void ShowInterrupts(HWND dialog) {
    for (const InterruptSource& source : kSources) {
        CheckDlgButton(dialog, source.checkBox,
                       (interrupts & source.bit) != 0 ? BST_CHECKED : BST_UNCHECKED);
    }
}

void TakeInterrupts(HWND dialog) {
    interrupts = 0;
    for (const InterruptSource& source : kSources) {
        if (IsDlgButtonChecked(dialog, source.checkBox) == BST_CHECKED)
            interrupts |= source.bit;
    }
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDOK, Accept<TakeInterrupts>},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenSelectIrq(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_SELECT_IRQ, owner, {ShowInterrupts, kActions});
}

uint32_t SelectedInterrupts() {
    return interrupts;
}
