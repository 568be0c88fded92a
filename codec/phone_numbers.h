// Phone numbers as the codec processor keeps them: up to seven digits of four bits each in a word,
// the first in bits 27 to 24, the last in bits 3 to 0; bits 31 to 28 are 0. Behind the last digit
// all of them are 0xC. Any thread.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>

inline constexpr std::size_t kPhoneNumbers = 5;
inline constexpr std::size_t kPhoneDigits = 7;

// What stands for a number without digits.
inline constexpr char kNoPhone[] = "Prev";

using PhoneWords = std::array<uint32_t, kPhoneNumbers>;
using PhoneTexts = std::array<std::string, kPhoneNumbers>;

// The numbers' digits, "Prev" for one without. Four bits that are no digit give the character that
// follows '9' as far as they do.
PhoneTexts BondTranslatePhonesToStrings(const PhoneWords& words);

// The numbers of these digits, an empty text for one without; of more than seven digits the first
// ones count.
PhoneWords BondTranslateStringsToPhones(const PhoneTexts& texts);
