// "Jade access dialog": a register of the JADE chip, read and written by its number, which can go
// on by itself.
#include "regs/jade_access.h"

#include <array>
#include <cstdint>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

// Characters of the register field that count, with the terminator.
constexpr std::size_t kRegisterField = 6;

uint8_t ChosenRegister(HWND dialog) {
    return static_cast<uint8_t>(ReadHexShort(dialog, IDC_JADE_REGISTER, kRegisterField));
}

// Behind the last register stands 0x100, which is the first one again.
void GoOn(HWND dialog, uint8_t registerNumber) {
    if (IsDlgButtonChecked(dialog, IDC_JADE_INCREMENT) == BST_CHECKED)
        ShowField(dialog, IDC_JADE_REGISTER, "0x%02X", registerNumber + 1u);
}

// A failed read shows 0.
void Get(HWND dialog) {
    const uint8_t registerNumber = ChosenRegister(dialog);
    uint32_t value = 0;
    vdapi_JADE_Read(registerNumber, &value);
    ShowField(dialog, IDC_JADE_VALUE, "0x%02X", value & 0xFF);
    GoOn(dialog, registerNumber);
}

void Set(HWND dialog) {
    const uint8_t registerNumber = ChosenRegister(dialog);
    vdapi_JADE_Write(registerNumber, ReadHexShort(dialog, IDC_JADE_VALUE) & 0xFF);
    GoOn(dialog, registerNumber);
}

void Open(HWND dialog) {
    SetDlgItemTextA(dialog, IDC_JADE_REGISTER, "0x00");
    SetDlgItemTextA(dialog, IDC_JADE_VALUE, "0x00");
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_JADE_GET, Get},
    {IDC_JADE_SET, Set},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenJadeAccess(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_JADE_ACCESS, owner, {Open, kActions});
}
