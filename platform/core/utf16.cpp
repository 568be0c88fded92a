#include "platform/core/utf16.h"

#include <algorithm>
#include <array>
#include <bit>

namespace vxd {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

bool IsHighSurrogate(char32_t unit) {
    return unit >= 0xD800 && unit < 0xDC00;
}

bool IsLowSurrogate(char32_t unit) {
    return unit >= 0xDC00 && unit < 0xE000;
}

void AppendUtf8(std::string& text, char32_t code) {
    const auto append = [&text](char32_t byte) { text.push_back(static_cast<char>(byte)); };
    if (code < 0x80) {
        append(code);
        return;
    }
    const int following = code < 0x800 ? 1 : code < 0x10000 ? 2 : 3;
    constexpr std::array<char32_t, 4> kLead = {0, 0xC0, 0xE0, 0xF0};
    append(kLead[static_cast<std::size_t>(following)] | code >> (6 * following));
    for (int i = following - 1; i >= 0; --i)
        append(0x80 | (code >> (6 * i) & 0x3F));
}

// Takes one character from the front of the text.
char32_t TakeUtf8(std::string_view& text) {
    const auto byte = [&text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    const unsigned char lead = byte(0);
    const auto length = static_cast<std::size_t>(std::countl_one(lead));
    if (length == 0) {
        text.remove_prefix(1);
        return lead;
    }
    constexpr std::array<char32_t, 5> kSmallest = {0, 0, 0x80, 0x800, 0x10000};
    char32_t code = lead & (0x7Fu >> length);
    bool valid = length >= 2 && length <= 4 && length <= text.size();
    for (std::size_t i = 1; valid && i < length; ++i) {
        valid = (byte(i) & 0xC0) == 0x80;
        code = code << 6 | (byte(i) & 0x3F);
    }
    valid = valid && code >= kSmallest[length] && code < 0x110000;
    text.remove_prefix(valid ? length : 1);
    return valid ? code : kReplacement;
}

}  // namespace

std::string Utf8FromUtf16(std::u16string_view text) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size(); ++i) {
        char32_t code = text[i];
        if (IsHighSurrogate(code) && i + 1 < text.size() && IsLowSurrogate(text[i + 1]))
            code = 0x10000 + ((code - 0xD800) << 10) + (text[++i] - 0xDC00u);
        AppendUtf8(result, code);
    }
    return result;
}

std::string Utf8FromWide(std::wstring_view text) {
    std::string result;
    for (const wchar_t character : text) {
        AppendUtf8(result, static_cast<char32_t>(character));
    }
    return result;
}

std::u16string Utf16FromUtf8(std::string_view text) {
    std::u16string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const char32_t code = TakeUtf8(text);
        if (code < 0x10000) {
            result.push_back(static_cast<char16_t>(code));
        } else {
            result.push_back(static_cast<char16_t>(0xD800 + ((code - 0x10000) >> 10)));
            result.push_back(static_cast<char16_t>(0xDC00 + ((code - 0x10000) & 0x3FF)));
        }
    }
    return result;
}

}  // namespace vxd
