// Hexadecimal numbers in fields. Fields show them behind "0x"; what a person types in these two
// characters' place is skipped unread. User-interface thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "platform/win32.h"

// The number that a text begins with: its digits up to the first other character, at most five or
// nine of them; 0 where there is none. Of nine digits the low 32 bits count.
uint32_t ParseHexShort(std::string_view text);
uint32_t ParseHexLong(std::string_view text);

// The same from the third character on; 0 where the text is shorter.
uint32_t ParseHexShortAfterPrefix(std::string_view text);
uint32_t ParseHexLongAfterPrefix(std::string_view text);

// ParseHexShortAfterPrefix of a field's text, cut to `capacity` - 1 characters.
uint32_t ReadHexShort(HWND dialog, int id, std::size_t capacity = 16);
