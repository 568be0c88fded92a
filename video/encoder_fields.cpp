// "BrookTree Registers & Fields": a register browser over one encoder or the other.
#include "video/encoder_fields.h"

#include <cstdint>

#include "driver/papi.h"
#include "driver/result_code.h"
#include "regs/register_browser.h"
#include "services/diagnostics.h"
#include "services/number_field.h"
#include "video/encoder_catalogue.h"
#include "video/encoder_choice.h"

namespace {

// What other failures leave is 0, and that is shown behind their report.
std::optional<std::string> Read(HWND dialog, std::size_t row) {
    uint32_t value = 0;
    const ResultCode code = CodeOf(vdapi_BT85X_ReadCtrlRegister(
        ChosenEncoder(dialog), encoder::kFields[row].id & 0xFFFF, &value));
    if (code == VXD_ILLEGAL_OPERATION) {
        return std::nullopt;
    }
    ReportFailure(dialog, code, "vdapi_BT85X_ReadCtrlRegister");
    return HexText(value & 0xFF, 2);
}

void Write(HWND dialog, std::size_t row, const std::string& text) {
    ReportFailure(dialog,
                  CodeOf(vdapi_BT85X_WriteCtrlRegister(ChosenEncoder(dialog),
                                                       encoder::kFields[row].id & 0xFFFF,
                                                       ParseHexShortAfterPrefix(text))),
                  "vdapi_BT85X_WriteCtrlRegister");
}

// The list shows its first row when it gets the focus, which is before anyone sees the dialog.
void Open(HWND dialog) {
    RecallEncoder(dialog, setting::kFieldsEncoder);
}

bool HandleCommand(HWND dialog, int id) {
    if (id != IDC_ENCODER_BT855 && id != IDC_ENCODER_BT858) {
        return false;
    }
    ShowCurrentRow(dialog);
    return true;
}

void Close(HWND dialog) {
    WriteSetting(setting::kFieldsEncoder, ChosenEncoder(dialog));
}

constexpr RegisterBrowser kBrowser{
    .dialog = IDD_ENCODER_FIELDS,
    .list = IDC_BROWSER_DEVICE_LIST,
    .value = IDC_BROWSER_DEVICE_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<encoder::kFields>,
    .read = Read,
    .failureText = "Failure",
    .write = Write,
    .open = Open,
    .command = HandleCommand,
    .close = Close,
};

}  // namespace

INT_PTR OpenEncoderFields(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kBrowser);
}
