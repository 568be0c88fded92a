// "VPIC I2C Access": the levels of the VPIC's I2C clock and data lines, one line at a time.
#include "regs/vpic_i2c_access.h"

#include <array>
#include <cstdint>

#include "driver/debug_command.h"
#include "driver/low_memory.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

// Characters of the value field that count, with the terminator.
constexpr std::size_t kValueField = 16;

uint16_t ChosenLine(HWND dialog) {
    return IsDlgButtonChecked(dialog, IDC_VPIC_I2C_DATA) == BST_CHECKED ? VPIC_I2C_LINE_DATA
                                                                        : VPIC_I2C_LINE_CLOCK;
}

// A failed read shows 0.
void ShowLine(HWND dialog) {
    const LowObject<uint16_t> level;
    I2cLineGetBlock block{ChosenLine(dialog), level.Address()};
    const ResultCode code = CodeOf(vdapi_Debug(TALVERO_DBG_VPIC_TR_I2C_GET, sizeof block, &block));
    SetDlgItemTextA(dialog, IDC_VPIC_I2C_VALUE, *level != 0 ? "1" : "0");
    ReportFailure(dialog, code, "vdapi_Debug: TALVERO_DBG_VPIC_TR_I2C_GET");
}

// Any number but 0 raises the line.
void SetLine(HWND dialog) {
    const uint16_t level =
        ParseDecimal(FieldText(dialog, IDC_VPIC_I2C_VALUE, kValueField)) != 0 ? 1 : 0;
    I2cLineSetBlock block{ChosenLine(dialog), level};
    ReportFailure(dialog, CodeOf(vdapi_Debug(TALVERO_DBG_VPIC_TR_I2C_SET, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_VPIC_TR_I2C_SET");
}

void Open(HWND dialog) {
    CheckRadioButton(dialog, IDC_VPIC_I2C_CLOCK, IDC_VPIC_I2C_DATA, IDC_VPIC_I2C_CLOCK);
    ShowLine(dialog);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_VPIC_I2C_CLOCK, ShowLine},
    {IDC_VPIC_I2C_DATA, ShowLine},
    {IDC_VPIC_I2C_SET, SetLine},
    {IDOK, EndWith<1>},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenVpicI2cAccess(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_VPIC_I2C_ACCESS, owner, {Open, kActions});
}
