// The auxiliary device's fields, and its feature lines, which are switched on and off.
#include "regs/auxdev_browsers.h"

#include <cstdint>

#include "driver/papi.h"
#include "driver/result_code.h"
#include "regs/auxdev_catalogue.h"
#include "regs/register_browser.h"
#include "services/diagnostics.h"
#include "services/number_field.h"

namespace {

std::optional<std::string> ReadField(HWND /*dialog*/, std::size_t row) {
    uint16_t value = 0;
    if (CodeOf(vdapi_AUXDEV_GetField(auxdev::kFields[row].id, &value)) != VXD_SUCCESS)
        return std::nullopt;
    return HexText(value, 2);
}

void WriteField(HWND dialog, std::size_t row, const std::string& text) {
    const auto value = static_cast<uint8_t>(ParseHexShortAfterPrefix(text));
    ReportFailure(dialog, CodeOf(vdapi_AUXDEV_SetField(auxdev::kFields[row].id, value)),
                  "vdapi_AUXDEV_SetField");
}

std::optional<std::string> ReadFeature(HWND /*dialog*/, std::size_t row) {
    uint16_t value = 0;
    if (CodeOf(vdapi_AUXDEV_GetFeature(auxdev::kFeatures[row].id, &value)) != VXD_SUCCESS)
        return std::nullopt;
    return HexText(value, 2);
}

void WriteFeature(HWND dialog, std::size_t row, const std::string& text) {
    const uint32_t feature = auxdev::kFeatures[row].id;
    if (static_cast<uint16_t>(ParseHexShortAfterPrefix(text)) != 0) {
        ReportFailure(dialog, CodeOf(vdapi_AUXDEV_Activate(feature)), "vdapi_AUXDEV_Activate");
    } else {
        ReportFailure(dialog, CodeOf(vdapi_AUXDEV_Deactivate(feature)), "vdapi_AUXDEV_Deactivate");
    }
}

constexpr RegisterBrowser kFieldBrowser{
    .dialog = IDD_AUXDEV_FIELDS,
    .list = IDC_BROWSER_DEVICE_LIST,
    .value = IDC_BROWSER_DEVICE_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<auxdev::kFields>,
    .read = ReadField,
    .failureText = "Failure",
    .write = WriteField,
    .open = ShowCurrentRow,
};

constexpr RegisterBrowser kFeatureBrowser{
    .dialog = IDD_AUXDEV_FEATURES,
    .list = IDC_BROWSER_DEVICE_LIST,
    .value = IDC_BROWSER_DEVICE_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<auxdev::kFeatures>,
    .read = ReadFeature,
    .failureText = "Failure!",
    .write = WriteFeature,
    .open = ShowCurrentRow,
};

}  // namespace

INT_PTR OpenAuxdevFields(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kFieldBrowser);
}

INT_PTR OpenAuxdevFeatures(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kFeatureBrowser);
}
