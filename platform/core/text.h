// Small text helpers of the layer. Letters are compared as Win32 compares names: ignoring case,
// A to Z only.
#pragma once

#include <string_view>

namespace vxd {

constexpr char Lower(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}
constexpr char Upper(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}

// How many of the first `most` bytes of a UTF-8 text can be kept without cutting a character.
constexpr std::size_t WholeCharacters(std::string_view text, std::size_t most) {
    if (text.size() <= most)
        return text.size();
    while (most > 0 && (static_cast<unsigned char>(text[most]) & 0xC0) == 0x80)
        --most;
    return most;
}

constexpr bool EqualIgnoringCase(std::string_view a, std::string_view b) {
    if (a.size() != b.size())
        return false;
    for (std::size_t i = 0; i < a.size(); ++i) {
        if (Lower(a[i]) != Lower(b[i]))
            return false;
    }
    return true;
}

constexpr bool BeginsIgnoringCase(std::string_view text, std::string_view beginning) {
    return text.size() >= beginning.size() &&
           EqualIgnoringCase(text.substr(0, beginning.size()), beginning);
}

// The letter that `&` marks in a caption, in lower case; 0 where there is none. `&&` is a plain &.
constexpr char MarkedKey(std::string_view caption) {
    for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
        if (caption[i] != '&')
            continue;
        if (caption[i + 1] != '&')
            return Lower(caption[i + 1]);
        ++i;
    }
    return 0;
}

}  // namespace vxd
