// The VPIC's ports and bits. The driver takes the ids as the catalogues have them for reading, and
// without their flag for writing.
#include "regs/vpic_browsers.h"

#include <cstdint>

#include "driver/debug_command.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"
#include "regs/register_browser.h"
#include "regs/vpic_catalogue.h"
#include "services/diagnostics.h"
#include "services/number_field.h"

namespace {

constexpr uint32_t IdForWriting(const RegisterRow& row) {
    return row.id & ~vpic::kFlag;
}

std::optional<std::string> ReadPort(HWND /*dialog*/, std::size_t row) {
    uint32_t value = 0;
    if (CodeOf(vdapi_VPIC_ReadPort(vpic::kPorts[row].id, &value)) != VXD_SUCCESS)
        return std::nullopt;
    return HexText(value, 8);
}

void WritePort(HWND dialog, std::size_t row, const std::string& text) {
    const uint32_t value = ParseHexLongAfterPrefix(text);
    ReportFailure(dialog, CodeOf(vdapi_VPIC_WritePort(IdForWriting(vpic::kPorts[row]), &value)),
                  "vdapi_VPIC_WritePort");
}

// The command's own result is the bit; a failure cannot be told from it.
std::optional<std::string> ReadBit(HWND /*dialog*/, std::size_t row) {
    BitBlock block{.chip = {}, .bit = vpic::kBits[row].id};
    return std::to_string(CodeOf(vdapi_Debug(TALVERO_DBG_VPIC_OP_BIT_ST, sizeof block, &block)));
}

void WriteBit(HWND dialog, std::size_t row, const std::string& text) {
    BitBlock block{.chip = {}, .bit = IdForWriting(vpic::kBits[row])};
    if (ParseHexShort(text) != 0) {
        ReportFailure(dialog,
                      CodeOf(vdapi_Debug(TALVERO_DBG_VPIC_OP_BIT_SET, sizeof block, &block)),
                      "vdapi_Debug: TALVERO_DBG_VPIC_OP_BIT_SET");
    } else {
        ReportFailure(dialog,
                      CodeOf(vdapi_Debug(TALVERO_DBG_VPIC_OP_BIT_CLR, sizeof block, &block)),
                      "vdapi_Debug: TALVERO_DBG_VPIC_OP_BIT_CLR");
    }
}

constexpr RegisterBrowser kPortBrowser{
    .dialog = IDD_VPIC_PORTS,
    .list = IDC_BROWSER_LIST,
    .value = IDC_BROWSER_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<vpic::kPorts>,
    .read = ReadPort,
    .failureText = "Failure !!",
    .write = WritePort,
};

constexpr RegisterBrowser kBitBrowser{
    .dialog = IDD_VPIC_BITS,
    .list = IDC_BROWSER_LIST,
    .value = IDC_BROWSER_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<vpic::kBits>,
    .read = ReadBit,
    .failureText = "",
    .write = WriteBit,
};

}  // namespace

INT_PTR OpenVpicPorts(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kPortBrowser);
}

INT_PTR OpenVpicBits(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kBitBrowser);
}
