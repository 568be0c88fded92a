#include "regs/hex_entry.h"

#include <cstdlib>
#include <string>
#include <string_view>

#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/hex_field.h"

namespace {

// Characters of a field that count, with the terminator.
constexpr std::size_t kNumberField = 20;
constexpr std::string_view kPrefix = "0x";
constexpr uint32_t kNoNumber = 0xFFFFFFFF;

// As scanf's %lx reads it into 32 bits; one that does not fit gives the greatest number.
uint32_t ParseHex(const char* text) {
    constexpr long long kGreatest = UINT32_MAX;
    // A text of many digits stops at the ends of the 64 bits, which do not fit either.
    const long long number = std::strtoll(text, nullptr, 16);
    return number < -kGreatest || number > kGreatest ? UINT32_MAX : static_cast<uint32_t>(number);
}

}  // namespace

std::optional<uint32_t> ReadHexField(HWND dialog, int id) {
    const std::string text = FieldText(dialog, id, kNumberField);
    const std::size_t prefix = text.find(kPrefix);
    if (prefix == std::string::npos) {
        ShowBox(dialog, "Invalid Param #1.\nPlease enter number of the form: 0xXXXXXXXX.",
                "Mem/IO Access", MB_ICONEXCLAMATION);
        return std::nullopt;
    }
    const uint32_t number = ParseHex(text.c_str() + prefix + kPrefix.size());
    return number == kNoNumber ? std::nullopt : std::optional(number);
}

void RecallHexFields(HWND dialog, std::span<const RememberedHexField> fields) {
    for (const RememberedHexField& field : fields)
        ShowField(dialog, field.id, "0x%02hX", static_cast<uint16_t>(ReadSetting(field.setting)));
}

void RememberHexFields(HWND dialog, std::span<const RememberedHexField> fields) {
    for (const RememberedHexField& field : fields)
        WriteSetting(field.setting, static_cast<uint16_t>(ReadHexShort(dialog, field.id)));
}
