// "I2C Access": transfers of one to three bytes with a device on the board's I2C bus. Fields and
// operation are remembered.
#include "regs/i2c_access.h"

#include <array>
#include <cstdint>
#include <span>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"
#include "services/remembered_fields.h"

namespace {

// Bit 0 of a device address: the device sends.
constexpr uint8_t kReadBit = 0x01;
// A transfer's item that takes a byte from the device.
constexpr uint16_t kReadByte = 0x100;

constexpr auto kRemembered = std::to_array<RememberedHexField>({
    {IDC_I2C_ADDRESS, setting::kI2cAddress},
    {IDC_I2C_DATA_1, setting::kI2cData1},
    {IDC_I2C_DATA_2, setting::kI2cData2},
});

// The chosen operation's button; reading counts as chosen where none is.
int Operation(HWND dialog) {
    return CheckedButton(dialog, IDC_I2C_READ_REGISTER, IDC_I2C_WRITE_REGISTER);
}

// Only the operation that sends two data bytes takes the second one.
void EnableSecondByte(HWND dialog) {
    EnableWindow(GetDlgItem(dialog, IDC_I2C_DATA_2), Operation(dialog) == IDC_I2C_WRITE_REGISTER);
}

uint8_t ByteField(HWND dialog, int id) {
    return static_cast<uint8_t>(ReadHexShort(dialog, id));
}

void Write(std::span<const uint16_t> items) {
    vdapi_I2C_Transfer(items.data(), static_cast<uint32_t>(items.size()), nullptr);
}

// A failed transfer shows 0.
void ShowRegister(HWND dialog, uint16_t device) {
    const std::array<uint16_t, 2> items = {device, kReadByte};
    uint32_t result = 0;
    vdapi_I2C_Transfer(items.data(), static_cast<uint32_t>(items.size()), &result);
    ShowField(dialog, IDC_I2C_DATA_1, "0x%02hX", static_cast<uint16_t>(result & 0xFF));
}

void Apply(HWND dialog) {
    const uint8_t device = ByteField(dialog, IDC_I2C_ADDRESS);
    const uint16_t writing = device & ~kReadBit;
    const uint16_t data1 = ByteField(dialog, IDC_I2C_DATA_1);
    switch (Operation(dialog)) {
        case IDC_I2C_WRITE_ADDRESS:
            Write(std::array{writing, data1});
            break;
        case IDC_I2C_WRITE_REGISTER:
            Write(std::array<uint16_t, 3>{writing, data1, ByteField(dialog, IDC_I2C_DATA_2)});
            break;
        default:
            ShowRegister(dialog, device | kReadBit);
            break;
    }
}

void Open(HWND dialog) {
    RecallHexFields(dialog, kRemembered);
    CheckRadioButton(dialog, IDC_I2C_READ_REGISTER, IDC_I2C_WRITE_REGISTER,
                     IDC_I2C_READ_REGISTER + ReadSetting(setting::kI2cOperation));
    EnableSecondByte(dialog);
}

void Close(HWND dialog) {
    RememberHexFields(dialog, kRemembered,
                      {TextOf(setting::kI2cOperation, Operation(dialog) - IDC_I2C_READ_REGISTER)});
    EndDialog(dialog, 0);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_I2C_READ_REGISTER, EnableSecondByte},
    {IDC_I2C_WRITE_ADDRESS, EnableSecondByte},
    {IDC_I2C_WRITE_REGISTER, EnableSecondByte},
    {IDC_I2C_APPLY, Apply},
    {IDOK, Close},
    {IDCANCEL, Close},
});

}  // namespace

INT_PTR OpenI2cAccess(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_I2C_ACCESS, owner, {Open, kActions});
}
