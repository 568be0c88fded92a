// What the register catalogues have in common. A catalogue is an array of rows, each a name and the
// id under which the driver knows the thing, in the order in which a browser lists them.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

// A name as it is shown, at most 39 characters; a longer one does not compile.
class RowName {
  public:
    constexpr RowName(const char* text) {
        const std::string_view characters = text;
        for (std::size_t place = 0; place < characters.size(); ++place)
            text_.at(place) = characters[place];
        text_.at(characters.size()) = '\0';
    }

    // Behind it blanks, up to `width` characters in all.
    constexpr void Pad(std::size_t width) {
        for (std::size_t place = std::string_view(Text()).size(); place < width; ++place)
            text_[place] = ' ';
    }

    constexpr const char* Text() const { return text_.data(); }

  private:
    std::array<char, 40> text_{};
};

struct RegisterRow {
    RowName name;
    uint32_t id;
};

template <std::size_t kWidth, typename Row, std::size_t kRows>
constexpr std::array<Row, kRows> PadNames(std::array<Row, kRows> rows) {
    for (Row& row : rows)
        row.name.Pad(kWidth);
    return rows;
}

// Any catalogue as a browser lists it.
struct RegisterCatalogue {
    std::size_t rows;
    const char* (*nameOf)(std::size_t row);
};

template <const auto& kRows>
constexpr const char* NameInCatalogue(std::size_t row) {
    return kRows[row].name.Text();
}

template <const auto& kRows>
inline constexpr RegisterCatalogue kCatalogueOf{kRows.size(), NameInCatalogue<kRows>};
