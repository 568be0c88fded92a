// Texts of which nobody knows in which encoding they are.
#pragma once

#include <cstddef>
#include <string_view>

namespace dbwin {

// How many bytes the UTF-8 character at the text's beginning has, 1 to 4; 0 where there is none:
// an overlong form, half of a surrogate pair and what is beyond the last character are none.
std::size_t Utf8Length(std::string_view text);

bool IsUtf8(std::string_view text);

}  // namespace dbwin
