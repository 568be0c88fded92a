// The ARCOFI's registers and fields, and the lists of coefficients that its commands take.
#include "regs/arcofi_browsers.h"

#include <array>
#include <cstdint>
#include <string_view>

#include "driver/papi.h"
#include "driver/result_code.h"
#include "regs/arcofi_catalogue.h"
#include "regs/register_browser.h"
#include "services/application.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

// What a coefficient command takes at most.
using Coefficients = std::array<uint8_t, 8>;

// Characters of the coefficients' field that count, with the terminator.
constexpr std::size_t kCoefficientsBuffer = 513;

constexpr std::string_view kLineEnds = "\r\n";

std::optional<std::string> ReadPort(HWND /*dialog*/, std::size_t row) {
    uint8_t value = 0;
    if (CodeOf(vdapi_ARCOFI_Read(arcofi::kPorts[row].id, &value)) != VXD_SUCCESS)
        return std::nullopt;
    return HexText(value, 2);
}

void WritePort(HWND dialog, std::size_t row, const std::string& text) {
    const auto value = static_cast<uint8_t>(ParseHexShortAfterPrefix(text));
    ReportFailure(dialog, CodeOf(vdapi_ARCOFI_Write(arcofi::kPorts[row].id, &value)),
                  "vdapi_ARCOFI_Write");
}

bool HandlePortsCommand(HWND dialog, int id) {
    if (id != IDC_ARCOFI_PORTS_COEFFICIENTS)
        return false;
    OpenArcofiCoefficients(AppInstance, dialog);
    return true;
}

constexpr std::size_t ParameterCount(std::size_t row) {
    return (arcofi::kCoefficients[row].id >> 8 & 0xFF) - 1;
}

// One line for each byte.
std::optional<std::string> ReadCoefficients(HWND /*dialog*/, std::size_t row) {
    Coefficients bytes{};
    if (CodeOf(vdapi_ARCOFI_Read(arcofi::kCoefficients[row].id, bytes.data())) != VXD_SUCCESS)
        return std::nullopt;
    std::string text;
    for (std::size_t index = 0; index < ParameterCount(row); ++index) {
        if (index != 0)
            text += kLineEnds;
        text += HexText(bytes[index], 2);
    }
    return text;
}

// The bytes of the first lines, at most `count`, empty lines left out; 0 where lines are missing.
Coefficients ParseLines(std::string_view text, std::size_t count) {
    Coefficients bytes{};
    std::size_t line = text.find_first_not_of(kLineEnds);
    for (std::size_t index = 0; index < count && line != std::string_view::npos; ++index) {
        const std::size_t end = text.find_first_of(kLineEnds, line);
        bytes[index] =
            static_cast<uint8_t>(ParseHexShortAfterPrefix(text.substr(line, end - line)));
        line = text.find_first_not_of(kLineEnds, end);
    }
    return bytes;
}

void WriteCoefficients(HWND dialog, std::size_t row, const std::string& text) {
    const Coefficients bytes = ParseLines(text, ParameterCount(row));
    ReportFailure(dialog, CodeOf(vdapi_ARCOFI_Write(arcofi::kCoefficients[row].id, bytes.data())),
                  "vdapi_ARCOFI_Write");
}

void ShowCoefficientsCommand(HWND dialog, std::size_t row) {
    ShowField(dialog, IDC_COEFFICIENTS_COUNT, "%X", static_cast<unsigned>(ParameterCount(row)));
    ShowField(dialog, IDC_COEFFICIENTS_COMMAND, "COP_%X", static_cast<unsigned>(row));
}

constexpr RegisterBrowser kPortBrowser{
    .dialog = IDD_ARCOFI_PORTS,
    .list = IDC_BROWSER_LIST,
    .value = IDC_BROWSER_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<arcofi::kPorts>,
    .read = ReadPort,
    .failureText = "Failure !!",
    .write = WritePort,
    .command = HandlePortsCommand,
};

constexpr RegisterBrowser kCoefficientBrowser{
    .dialog = IDD_ARCOFI_COEFFICIENTS,
    .list = IDC_COEFFICIENTS_LIST,
    .value = IDC_COEFFICIENTS_VALUES,
    .name = 0,
    .catalogue = kCatalogueOf<arcofi::kCoefficients>,
    .read = ReadCoefficients,
    .failureText = "Failure !!",
    .write = WriteCoefficients,
    .set = IDC_COEFFICIENTS_SET,
    .valueBuffer = kCoefficientsBuffer,
    .open = ShowCurrentRow,
    .showName = ShowCoefficientsCommand,
};

}  // namespace

INT_PTR OpenArcofiPorts(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kPortBrowser);
}

INT_PTR OpenArcofiCoefficients(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kCoefficientBrowser);
}
