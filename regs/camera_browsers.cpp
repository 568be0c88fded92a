// The registers of the digital camera and of the analog camera's video decoder, whose registers for
// the most part can only be written.
#include "regs/camera_browsers.h"

#include <array>
#include <cstdint>

#include "driver/papi.h"
#include "driver/result_code.h"
#include "regs/camera_catalogue.h"
#include "regs/register_browser.h"
#include "services/diagnostics.h"
#include "services/number_field.h"

namespace {

constexpr int kTestRepetitions = 100;

// "&Update All Registers" writes the first of the digital camera's registers, but for the
// brightness.
constexpr std::size_t kDigitalRowsUpdated = 8;
constexpr std::size_t kDigitalBrightness = 3;

// The registers of the decoder that can be read, and not be written.
constexpr uint32_t kDecoderVersion = 0x00;
constexpr uint32_t kDecoderStatus = 0x1F;

template <std::size_t kRows>
constexpr std::array<uint8_t, kRows> DefaultBytes(
    const std::array<camera::Register, kRows>& catalogue) {
    std::array<uint8_t, kRows> bytes{};
    for (std::size_t row = 0; row < kRows; ++row)
        bytes[row] = catalogue[row].defaultByte;
    return bytes;
}

// What was last read from each register, from the program's start to its end.
auto digitalBytes = DefaultBytes(camera::kDigital);
auto analogBytes = DefaultBytes(camera::kAnalog);

std::optional<std::string> ReadDigital(HWND dialog, std::size_t row) {
    uint8_t& byte = digitalBytes[row];
    const ResultCode code = CodeOf(vdapi_CAM_Digit_Read(camera::kDigital[row].id, &byte));
    if (code == VXD_ILLEGAL_OPERATION)
        return std::nullopt;
    ReportFailure(dialog, code, "vdapi_CAM_Digit_Read");
    return HexText(byte, 2);
}

void WriteDigitalByte(HWND dialog, std::size_t row, uint8_t byte) {
    ReportFailure(dialog, CodeOf(vdapi_CAM_Digit_Write(camera::kDigital[row].id, byte)),
                  "vdapi_CAM_Digit_Write");
}

void WriteDigital(HWND dialog, std::size_t row, const std::string& text) {
    WriteDigitalByte(dialog, row, static_cast<uint8_t>(ParseHexShortAfterPrefix(text)));
}

void UpdateDigital(HWND dialog) {
    for (std::size_t row = 0; row < kDigitalRowsUpdated; ++row) {
        if (row != kDigitalBrightness)
            WriteDigitalByte(dialog, row, digitalBytes[row]);
    }
}

bool CanBeRead(const camera::Register& decoderRegister) {
    const uint32_t address = decoderRegister.id & 0xFF;
    return address == kDecoderVersion || address == kDecoderStatus;
}

std::optional<std::string> ReadAnalog(HWND /*dialog*/, std::size_t row) {
    if (CanBeRead(camera::kAnalog[row]))
        vdapi_CAM_ACIF_Read(camera::kAnalog[row].id, &analogBytes[row]);
    return HexText(analogBytes[row], 2);
}

void WriteAnalogByte(HWND dialog, std::size_t row, uint8_t byte) {
    ReportFailure(dialog, CodeOf(vdapi_CAM_ACIF_Write(camera::kAnalog[row].id, byte)),
                  "vdapi_CAM_ACIF_Write");
}

void WriteAnalog(HWND dialog, std::size_t row, const std::string& text) {
    WriteAnalogByte(dialog, row, static_cast<uint8_t>(ParseHexShortAfterPrefix(text)));
}

void UpdateAnalog(HWND dialog) {
    for (std::size_t row = 0; row < camera::kAnalog.size(); ++row) {
        if (!CanBeRead(camera::kAnalog[row]))
            WriteAnalogByte(dialog, row, analogBytes[row]);
    }
}

// Writes the value again and again, for whoever watches the bus.
void TestCurrentRow(HWND dialog) {
    for (int repetition = 0; repetition < kTestRepetitions; ++repetition)
        SetCurrentRow(dialog);
}

template <void (*kUpdateAll)(HWND dialog)>
bool HandleCommand(HWND dialog, int id) {
    switch (id) {
        case IDC_CAMERA_UPDATE_ALL:
            kUpdateAll(dialog);
            return true;
        case IDC_CAMERA_TEST:
            TestCurrentRow(dialog);
            return true;
        default:
            return false;
    }
}

constexpr RegisterBrowser kDigitalBrowser{
    .dialog = IDD_CAMERA_REGISTERS,
    .list = IDC_BROWSER_DEVICE_LIST,
    .value = IDC_BROWSER_DEVICE_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<camera::kDigital>,
    .read = ReadDigital,
    .failureText = "Failure",
    .write = WriteDigital,
    .command = HandleCommand<UpdateDigital>,
};

constexpr RegisterBrowser kAnalogBrowser{
    .dialog = IDD_CAMERA_REGISTERS,
    .list = IDC_BROWSER_DEVICE_LIST,
    .value = IDC_BROWSER_DEVICE_VALUE,
    .name = IDC_BROWSER_NAME,
    .catalogue = kCatalogueOf<camera::kAnalog>,
    .read = ReadAnalog,
    .failureText = "",
    .write = WriteAnalog,
    .command = HandleCommand<UpdateAnalog>,
};

}  // namespace

INT_PTR OpenDigitalCameraRegisters(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kDigitalBrowser);
}

INT_PTR OpenAnalogCameraRegisters(HINSTANCE instance, HWND owner) {
    return RunBrowser(instance, owner, kAnalogBrowser);
}
