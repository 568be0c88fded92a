#include "codec/phone_numbers.h"

#include <algorithm>

namespace {

constexpr uint32_t kBitsOfDigit = 4;
constexpr uint32_t kDigitMask = 0xF;
constexpr uint32_t kEnd = 0xC;

std::string TextOf(uint32_t word) {
    std::string text;
    for (std::size_t place = kPhoneDigits; place-- > 0;) {
        const uint32_t digit = word >> (place * kBitsOfDigit) & kDigitMask;
        if (digit == kEnd) {
            break;
        }
        text.push_back(static_cast<char>('0' + digit));
    }
    return text.empty() ? kNoPhone : text;
}

uint32_t WordOf(const std::string& text) {
    uint32_t word = 0;
    for (std::size_t place = 0; place < kPhoneDigits; ++place) {
        const uint32_t digit =
            place < text.size() ? static_cast<uint32_t>(text[place] - '0') & kDigitMask : kEnd;
        word = word << kBitsOfDigit | digit;
    }
    return word;
}

}  // namespace

PhoneTexts BondTranslatePhonesToStrings(const PhoneWords& words) {
    PhoneTexts texts;
    std::ranges::transform(words, texts.begin(), TextOf);
    return texts;
}

PhoneWords BondTranslateStringsToPhones(const PhoneTexts& texts) {
    PhoneWords words;
    std::ranges::transform(texts, words.begin(), WordOf);
    return words;
}
