// The numbers that fields hold, in the forms that the dialogs read. Every form takes what a text
// begins with, as far as it goes, and gives 0, or nothing where it can, where that is no number.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/win32.h"

// Hexadecimal digits, at most five or nine of them. Of nine digits the low 32 bits count.
uint32_t ParseHexShort(std::string_view text);
uint32_t ParseHexLong(std::string_view text);

// The same from the third character on: fields show numbers behind "0x", and what a person types in
// these two characters' place is skipped unread. 0 where the text is shorter.
uint32_t ParseHexShortAfterPrefix(std::string_view text);
uint32_t ParseHexLongAfterPrefix(std::string_view text);

// What stands behind the first "0x", wherever that is; nothing without one. Blanks, a sign and any
// number of digits are taken. One that does not fit 32 bits gives the greatest number.
std::optional<uint32_t> ParseHexBehindMark(const std::string& text);

// The same of a text that begins with "0x", behind white space at most; nothing where no number
// stands behind it.
std::optional<uint32_t> ParseHexAtMark(const char* text);

// A number in the base that it begins with: 0x hexadecimal, 0 octal, else decimal; blanks and a
// sign may stand before it. One that does not fit 32 bits gives the greatest number.
uint32_t ParseAnyBase(const std::string& text);

// The same; nothing where there is no digit, or none behind the 0x.
std::optional<uint32_t> FindNumber(const std::string& text);

// A decimal number behind blanks and a sign. One that does not fit gives the nearest that does; the
// unsigned form therefore takes a negative one for 0.
int32_t ParseDecimal(const std::string& text);
uint32_t ParseUnsignedDecimal(const std::string& text);

// ParseHexShortAfterPrefix of a field's text, cut to `capacity` - 1 characters. User-interface
// thread.
uint32_t ReadHexShort(HWND dialog, int id, std::size_t capacity = 16);
