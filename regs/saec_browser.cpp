// The SAEC's registers, of 8 and of 16 bits.
#include "regs/saec_browser.h"

#include <array>
#include <cstdint>

#include "driver/papi.h"
#include "driver/result_code.h"
#include "regs/register_browser.h"
#include "regs/saec_catalogue.h"
#include "regs/saec_levels.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

std::optional<std::string> ReadRegister(HWND /*dialog*/, std::size_t row) {
    const saec::Register& entry = saec::kRegisters[row];
    uint32_t value = 0;
    if (CodeOf(vdapi_SAEC_Read(entry.id, &value)) != VXD_SUCCESS)
        return std::nullopt;
    return entry.width == saec::kByte ? HexText(value & 0xFF, 2) : HexText(value & 0xFFFF, 4);
}

void WriteRegister(HWND dialog, std::size_t row, const std::string& text) {
    const uint32_t value = ParseHexShortAfterPrefix(text);
    ReportFailure(dialog, CodeOf(vdapi_SAEC_Write(saec::kRegisters[row].id, &value)),
                  "vdapi_SAEC_Write");
}

// Its address stands before the name.
void ShowName(HWND dialog, std::size_t row) {
    const saec::Register& entry = saec::kRegisters[row];
    ShowField(dialog, IDC_BROWSER_NAME, "0x%04X   %s", static_cast<unsigned>(entry.id & 0xFFFF),
              entry.name.Text());
}

constexpr auto kMessages = std::to_array<DialogMessage>({
    {WM_TIMER, ShowLevelsAtTick},
    {WM_RBUTTONDBLCLK, SwitchLevelsOn},
    {WM_CONTEXTMENU, SwitchLevelsOnByKey},
});

constexpr RegisterBrowser kBrowser{
    .dialog = IDD_SAEC_PORTS,
    .list = IDC_BROWSER_LIST,
    .value = IDC_BROWSER_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<saec::kRegisters>,
    .read = ReadRegister,
    .failureText = "Failure !!",
    .write = WriteRegister,
    .open = StartLevels,
    .showName = ShowName,
    .messages = kMessages,
    .end = StopLevels,
};

}  // namespace

INT_PTR OpenSaecPorts(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kBrowser);
}
