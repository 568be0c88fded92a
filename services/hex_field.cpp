#include "services/hex_field.h"

#include "services/dialog_kit.h"

namespace {

constexpr std::size_t kPrefix = 2;
constexpr std::size_t kShortDigits = 5;
constexpr std::size_t kLongDigits = 9;
constexpr uint32_t kNoDigit = 16;

uint32_t DigitOf(char character) {
    if (character >= '0' && character <= '9')
        return static_cast<uint32_t>(character - '0');
    if (character >= 'A' && character <= 'F')
        return static_cast<uint32_t>(character - 'A' + 10);
    if (character >= 'a' && character <= 'f')
        return static_cast<uint32_t>(character - 'a' + 10);
    return kNoDigit;
}

uint32_t ParseHex(std::string_view text, std::size_t mostDigits) {
    uint32_t value = 0;
    for (const char character : text.substr(0, mostDigits)) {
        const uint32_t digit = DigitOf(character);
        if (digit == kNoDigit)
            break;
        value = value * 16 + digit;
    }
    return value;
}

std::string_view AfterPrefix(std::string_view text) {
    return text.size() > kPrefix ? text.substr(kPrefix) : std::string_view();
}

}  // namespace

uint32_t ParseHexShort(std::string_view text) {
    return ParseHex(text, kShortDigits);
}

uint32_t ParseHexLong(std::string_view text) {
    return ParseHex(text, kLongDigits);
}

uint32_t ParseHexShortAfterPrefix(std::string_view text) {
    return ParseHexShort(AfterPrefix(text));
}

uint32_t ParseHexLongAfterPrefix(std::string_view text) {
    return ParseHexLong(AfterPrefix(text));
}

uint32_t ReadHexShort(HWND dialog, int id, std::size_t capacity) {
    return ParseHexShortAfterPrefix(FieldText(dialog, id, capacity));
}
