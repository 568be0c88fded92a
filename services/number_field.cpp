#include "services/number_field.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "services/dialog_kit.h"

namespace {

constexpr std::size_t kPrefix = 2;
constexpr std::size_t kShortDigits = 5;
constexpr std::size_t kLongDigits = 9;
constexpr uint32_t kNoDigit = 16;

constexpr std::string_view kMark = "0x";
constexpr char kWhiteSpace[] = " \t\n\v\f\r";
constexpr char kBeforeDigits[] = " \t\n\v\f\r+-";

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

// As scanf reads it into 32 bits. A text of many digits stops at the ends of the 64 bits, which do
// not fit either.
uint32_t ParseInBase(const char* text, int base) {
    constexpr long long kGreatest = UINT32_MAX;
    const long long number = std::strtoll(text, nullptr, base);
    return number < -kGreatest || number > kGreatest ? UINT32_MAX : static_cast<uint32_t>(number);
}

// The base that a number's beginning tells. Left to itself, the C library may know further ones.
int BaseOf(const std::string& text) {
    const std::size_t digits = text.find_first_not_of(kBeforeDigits);
    if (digits == std::string::npos || text[digits] != '0')
        return 10;
    const char next = digits + 1 < text.size() ? text[digits + 1] : '\0';
    return next == 'x' || next == 'X' ? 16 : 8;
}

template <typename Number>
Number NearestDecimal(const std::string& text) {
    using Limits = std::numeric_limits<Number>;
    return static_cast<Number>(std::clamp<long long>(std::strtoll(text.c_str(), nullptr, 10),
                                                     Limits::min(), Limits::max()));
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

std::optional<uint32_t> ParseHexBehindMark(const std::string& text) {
    const std::size_t mark = text.find(kMark);
    if (mark == std::string::npos)
        return std::nullopt;
    return ParseInBase(text.c_str() + mark + kMark.size(), 16);
}

std::optional<uint32_t> ParseHexAtMark(const char* text) {
    text += std::strspn(text, kWhiteSpace);
    if (std::strncmp(text, kMark.data(), kMark.size()) != 0)
        return std::nullopt;
    text += kMark.size();
    char* end = nullptr;
    std::strtoll(text, &end, 16);
    return end == text ? std::nullopt : std::optional(ParseInBase(text, 16));
}

uint32_t ParseAnyBase(const std::string& text) {
    return ParseInBase(text.c_str(), BaseOf(text));
}

std::optional<uint32_t> FindNumber(const std::string& text) {
    const int base = BaseOf(text);
    char* end = nullptr;
    std::strtoll(text.c_str(), &end, base);
    // To the C library the 0 before an x without digits is a number of its own.
    const std::size_t behindMark = text.find_first_not_of(kBeforeDigits) + kMark.size();
    const bool isBareMark =
        base == 16 && (behindMark == text.size() || DigitOf(text[behindMark]) == kNoDigit);
    if (end == text.c_str() || isBareMark)
        return std::nullopt;
    return ParseInBase(text.c_str(), base);
}

int32_t ParseDecimal(const std::string& text) {
    return NearestDecimal<int32_t>(text);
}

uint32_t ParseUnsignedDecimal(const std::string& text) {
    return NearestDecimal<uint32_t>(text);
}

uint32_t ReadHexShort(HWND dialog, int id, std::size_t capacity) {
    return ParseHexShortAfterPrefix(FieldText(dialog, id, capacity));
}
