// Win32's own formatting: a small set of conversions and a result of at most 1023 characters.
#include <algorithm>
#include <charconv>
#include <cstdint>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "platform/core/text.h"
#include "platform/core/utf16.h"
#include "platform/win32.h"

namespace {

constexpr std::size_t kCapacity = 1024;

// Fills the caller's buffer and drops what doesn't fit.
class Output {
  public:
    explicit Output(char* buffer) : buffer_(buffer) {}

    void Put(char c) {
        if (length_ + 1 < kCapacity)
            buffer_[length_++] = c;
    }
    void Put(std::string_view text) {
        text = text.substr(0, kCapacity - 1 - length_);
        std::memcpy(buffer_ + length_, text.data(), text.size());
        length_ += text.size();
    }
    void Fill(char c, std::size_t count) {
        count = std::min(count, kCapacity - 1 - length_);
        std::memset(buffer_ + length_, c, count);
        length_ += count;
    }
    int End() {
        buffer_[length_] = '\0';
        return static_cast<int>(length_);
    }

  private:
    char* buffer_;
    std::size_t length_ = 0;
};

// Takes the caller's arguments one by one. A long is 32 bits, so all numbers have one size.
class Arguments {
  public:
    explicit Arguments(va_list* arguments) : arguments_(arguments) {}

    // The analyzer loses sight of a va_list behind a pointer.
    // NOLINTBEGIN(clang-analyzer-valist.Uninitialized)
    std::uint32_t Number() { return va_arg(*arguments_, std::uint32_t); }
    const void* Pointer() { return va_arg(*arguments_, const void*); }
    // NOLINTEND(clang-analyzer-valist.Uninitialized)

  private:
    va_list* arguments_;
};

// %[-][#][0][width][.precision][h|l]type
struct Conversion {
    bool left = false;
    bool prefix = false;
    bool zeros = false;
    std::size_t width = 0;
    std::optional<std::size_t> precision;
    char size = '\0';
    char type = '\0';

    // Texts and characters are wide for %S and %C, and with l; narrow with h.
    bool Wide() const { return size == 'l' || (size != 'h' && (type == 'S' || type == 'C')); }
};

bool Take(const char*& text, char wanted) {
    const bool found = *text == wanted;
    text += found ? 1 : 0;
    return found;
}

std::size_t TakeNumber(const char*& text) {
    std::size_t number = 0;
    for (; *text >= '0' && *text <= '9'; ++text)
        number = std::min(number * 10 + static_cast<std::size_t>(*text - '0'), kCapacity);
    return number;
}

// Reads what follows a `%`. The type is 0 at the end of the format.
Conversion TakeConversion(const char*& format) {
    Conversion conversion;
    conversion.left = Take(format, '-');
    conversion.prefix = Take(format, '#');
    conversion.zeros = Take(format, '0');
    conversion.width = TakeNumber(format);
    if (Take(format, '.'))
        conversion.precision = TakeNumber(format);
    if (*format == 'h' || *format == 'l')
        conversion.size = *format++;
    if (*format != '\0')
        conversion.type = *format++;
    return conversion;
}

void PutPadded(Output& output, const Conversion& conversion, std::string_view text) {
    const std::size_t padding = conversion.width - std::min(conversion.width, text.size());
    if (!conversion.left)
        output.Fill(' ', padding);
    output.Put(text);
    if (conversion.left)
        output.Fill(' ', padding);
}

// Digits after a sign or a prefix; precision and the 0 flag make more of them.
void PutNumber(Output& output, const Conversion& conversion, std::string_view lead,
               std::string digits) {
    std::size_t count = conversion.precision.value_or(0);
    if (conversion.zeros && !conversion.left)
        count = std::max(count, conversion.width - std::min(conversion.width, lead.size()));
    if (digits.size() < count)
        digits.insert(0, count - digits.size(), '0');
    PutPadded(output, conversion, std::string(lead) + digits);
}

std::string Digits(std::uint64_t number, int base, bool upper) {
    char digits[24];
    char* const end = std::to_chars(std::begin(digits), std::end(digits), number, base).ptr;
    if (upper)
        std::transform(digits, end, digits, vxd::Upper);
    return {digits, end};
}

void PutSigned(Output& output, const Conversion& conversion, std::int32_t number) {
    const auto magnitude =
        static_cast<std::uint64_t>(number < 0 ? -std::int64_t{number} : std::int64_t{number});
    PutNumber(output, conversion, number < 0 ? "-" : "", Digits(magnitude, 10, false));
}

void PutHex(Output& output, const Conversion& conversion, std::uint32_t number) {
    const bool upper = conversion.type == 'X';
    const char* const lead = !conversion.prefix ? "" : upper ? "0X" : "0x";
    PutNumber(output, conversion, lead, Digits(number, 16, upper));
}

// All digits of an address.
void PutPointer(Output& output, Conversion conversion, const void* pointer) {
    conversion.precision = 2 * sizeof pointer;
    PutNumber(output, conversion, "", Digits(reinterpret_cast<std::uintptr_t>(pointer), 16, true));
}

// A character of value 0 is left out, as it would end the text.
void PutCharacter(Output& output, const Conversion& conversion, std::uint32_t value) {
    const auto unit = static_cast<char16_t>(value);
    const auto character = static_cast<char>(value);
    if (conversion.Wide() ? unit == 0 : character == 0)
        return;
    PutPadded(output, conversion,
              conversion.Wide() ? vxd::Utf8FromUtf16({&unit, 1}) : std::string(1, character));
}

// At most `precision` characters are looked at, so a text need not end when one is given.
template <typename Character>
std::basic_string_view<Character> TextOf(const Conversion& conversion, const void* text) {
    const auto* const characters = static_cast<const Character*>(text);
    const std::size_t limit = conversion.precision.value_or(SIZE_MAX);
    std::size_t length = 0;
    while (length < limit && characters[length] != 0)
        ++length;
    return {characters, length};
}

void PutText(Output& output, const Conversion& conversion, const void* text) {
    if (text == nullptr) {
        PutPadded(output, conversion, TextOf<char>(conversion, "(null)"));
    } else if (conversion.Wide()) {
        PutPadded(output, conversion, vxd::Utf8FromUtf16(TextOf<char16_t>(conversion, text)));
    } else {
        PutPadded(output, conversion, TextOf<char>(conversion, text));
    }
}

// A type that doesn't exist stands for itself and takes no argument.
void Convert(Output& output, const Conversion& conversion, Arguments& arguments) {
    switch (conversion.type) {
        case 'c':
        case 'C':
            return PutCharacter(output, conversion, arguments.Number());
        case 'd':
        case 'i':
            return PutSigned(output, conversion, static_cast<std::int32_t>(arguments.Number()));
        case 'u':
            return PutNumber(output, conversion, "", Digits(arguments.Number(), 10, false));
        case 'x':
        case 'X':
            return PutHex(output, conversion, arguments.Number());
        case 'p':
            return PutPointer(output, conversion, arguments.Pointer());
        case 's':
        case 'S':
            return PutText(output, conversion, arguments.Pointer());
        case '\0':
            return;
        default:
            PutPadded(output, conversion, {&conversion.type, 1});
    }
}

}  // namespace

int WINAPI wvsprintfA(LPSTR text, LPCSTR format, va_list arguments) {
    Output output(text);
    va_list own;  // a va_list that is a parameter may be a mere pointer
    va_copy(own, arguments);
    Arguments values(&own);
    while (*format != '\0') {
        if (Take(format, '%')) {
            Convert(output, TakeConversion(format), values);
        } else {
            output.Put(*format++);
        }
    }
    va_end(own);
    return output.End();
}

int wsprintfA(LPSTR text, LPCSTR format, ...) {
    va_list arguments;
    va_start(arguments, format);
    const int length = wvsprintfA(text, format, arguments);
    va_end(arguments);
    return length;
}
