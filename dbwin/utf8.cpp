#include "dbwin/utf8.h"

#include <algorithm>
#include <array>

namespace dbwin {
namespace {

// Characters by their first byte, and what the second may be; those behind it are 0x80 to 0xBF.
struct Shape {
    unsigned char first, last;
    std::size_t length;
    unsigned char secondFirst, secondLast;
};

constexpr auto kShapes = std::to_array<Shape>({
    {0x00, 0x7F, 1, 0x00, 0x00},
    {0xC2, 0xDF, 2, 0x80, 0xBF},
    {0xE0, 0xE0, 3, 0xA0, 0xBF},
    {0xE1, 0xEC, 3, 0x80, 0xBF},
    {0xED, 0xED, 3, 0x80, 0x9F},
    {0xEE, 0xEF, 3, 0x80, 0xBF},
    {0xF0, 0xF0, 4, 0x90, 0xBF},
    {0xF1, 0xF3, 4, 0x80, 0xBF},
    {0xF4, 0xF4, 4, 0x80, 0x8F},
});

bool IsWithin(char byte, unsigned char first, unsigned char last) {
    const auto value = static_cast<unsigned char>(byte);
    return value >= first && value <= last;
}

}  // namespace

std::size_t Utf8Length(std::string_view text) {
    for (const Shape& shape : kShapes) {
        if (text.empty() || !IsWithin(text[0], shape.first, shape.last)) {
            continue;
        }
        if (text.size() < shape.length ||
            (shape.length > 1 && !IsWithin(text[1], shape.secondFirst, shape.secondLast))) {
            return 0;
        }
        const std::string_view others =
            text.substr(std::min<std::size_t>(2, shape.length),
                        shape.length - std::min<std::size_t>(2, shape.length));
        return std::ranges::all_of(others, [](char byte) { return IsWithin(byte, 0x80, 0xBF); })
                   ? shape.length
                   : 0;
    }
    return 0;
}

bool IsUtf8(std::string_view text) {
    while (!text.empty()) {
        const std::size_t length = Utf8Length(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

}  // namespace dbwin
