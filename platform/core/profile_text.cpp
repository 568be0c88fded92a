#include "platform/core/profile_text.h"

#include <algorithm>

#include "platform/core/text.h"
#include "platform/core/utf16.h"

namespace vxd {
namespace {

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16Mark = "\xFF\xFE";
constexpr std::string_view kLineEnd = "\r\n";
constexpr std::string_view kLineBreaks = "\r\n";
constexpr std::string_view kBlanks = " \t";

bool IsBlank(char c) {
    return c == ' ' || c == '\t';
}

std::string_view Trimmed(std::string_view text) {
    while (!text.empty() && IsBlank(text.front()))
        text.remove_prefix(1);
    while (!text.empty() && IsBlank(text.back()))
        text.remove_suffix(1);
    return text;
}

std::string_view Unquoted(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

// Offsets of a line in the text.
struct Line {
    std::size_t begin = 0;
    std::size_t end = 0;     // of what it says
    std::size_t next = 0;    // after its line end: LF, CR or CR LF
    std::size_t equals = 0;  // its first `=`, or `end`
};

// Goes through the lines of a text.
class LineReader {
  public:
    explicit LineReader(std::string_view text)
        : text_(text),
          at_(text.starts_with(kUtf8Mark) ? kUtf8Mark.size() : 0),
          newline_(NextNewline()) {}

    bool Next(Line& line) {
        if (at_ >= text_.size())
            return false;
        if (newline_ < at_)
            newline_ = NextNewline();
        line.begin = at_;
        line.end = FindBefore(newline_, '\r');
        line.equals = FindBefore(line.end, '=');
        at_ = line.end;
        if (at_ < text_.size())
            at_ += text_.substr(at_).starts_with(kLineEnd) ? 2 : 1;
        line.next = at_;
        return true;
    }

  private:
    std::size_t NextNewline() const { return std::min(text_.find('\n', at_), text_.size()); }

    // Where the next of these characters stands, `end` where it is not before that.
    std::size_t FindBefore(std::size_t end, char character) const {
        const std::size_t found = text_.substr(at_, end - at_).find(character);
        return found == std::string_view::npos ? end : at_ + found;
    }

    std::string_view text_;
    std::size_t at_;
    std::size_t newline_;  // the next LF, or the text's end; to be looked for anew when passed
};

std::string_view Content(std::string_view text, const Line& line) {
    return Trimmed(text.substr(line.begin, line.end - line.begin));
}

// The name in a section's header; nothing when the line is none.
std::optional<std::string_view> SectionName(std::string_view content) {
    if (!content.starts_with('['))
        return std::nullopt;
    const std::size_t close = content.find(']');
    if (close == std::string_view::npos)
        return std::nullopt;
    return Trimmed(content.substr(1, close - 1));
}

// Where a section and a key stand in a text.
struct Place {
    bool hasSection = false;
    std::size_t begin = 0;   // of the section
    std::size_t end = 0;     // of the section; not set when the key was found
    std::size_t newKey = 0;  // where a new key belongs
    std::optional<Line> key;
};

Place Find(std::string_view text, std::string_view section, std::optional<std::string_view> key) {
    section = Trimmed(section);
    if (key)
        key = Trimmed(*key);
    Place place;
    LineReader lines(text);
    for (Line line; lines.Next(line);) {
        const std::string_view content = Content(text, line);
        if (const auto header = SectionName(content)) {
            if (place.hasSection) {
                place.end = line.begin;
                return place;
            }
            if (EqualIgnoringCase(*header, section)) {
                place.hasSection = true;
                place.begin = line.begin;
                place.newKey = line.next;
            }
        } else if (place.hasSection && line.equals != line.end && !content.starts_with(';')) {
            place.newKey = line.next;
            const std::string_view name =
                Trimmed(text.substr(line.begin, line.equals - line.begin));
            if (key && EqualIgnoringCase(name, *key)) {
                place.key = line;
                return place;
            }
        }
    }
    place.end = text.size();
    return place;
}

// The text with the bytes from begin to end replaced.
std::string Replaced(std::string_view text, std::size_t begin, std::size_t end,
                     std::string_view replacement) {
    std::string result;
    result.reserve(text.size() - (end - begin) + replacement.size());
    result.append(text.substr(0, begin)).append(replacement).append(text.substr(end));
    return result;
}

}  // namespace

std::optional<std::string_view> FindProfileValue(std::string_view text, std::string_view section,
                                                 std::string_view key) {
    const Place place = Find(text, section, key);
    if (!place.key)
        return std::nullopt;
    const std::size_t value = place.key->equals + 1;
    return Unquoted(Trimmed(text.substr(value, place.key->end - value)));
}

std::optional<std::string> SetProfileValue(std::string_view text, std::string_view section,
                                           std::string_view key, std::string_view value) {
    value = value.substr(0, value.find_first_of(kLineBreaks));
    const Place place = Find(text, section, key);
    if (place.key) {
        const std::size_t begin =
            std::min(text.find_first_not_of(kBlanks, place.key->equals + 1), place.key->end);
        if (text.substr(begin, place.key->end - begin) == value)
            return std::nullopt;
        return Replaced(text, begin, place.key->end, value);
    }

    const std::size_t at = place.hasSection ? place.newKey : text.size();
    std::string added;
    if (at > 0 && kLineBreaks.find(text[at - 1]) == std::string_view::npos)
        added.append(kLineEnd);
    if (!place.hasSection)
        added.append("[").append(section).append("]").append(kLineEnd);
    added.append(key).append("=").append(value).append(kLineEnd);
    return Replaced(text, at, at, added);
}

std::optional<std::string> DeleteProfileKey(std::string_view text, std::string_view section,
                                            std::string_view key) {
    const Place place = Find(text, section, key);
    if (!place.key)
        return std::nullopt;
    return Replaced(text, place.key->begin, place.key->next, {});
}

std::optional<std::string> DeleteProfileSection(std::string_view text, std::string_view section) {
    const Place place = Find(text, section, std::nullopt);
    if (!place.hasSection)
        return std::nullopt;
    return Replaced(text, place.begin, place.end, {});
}

bool IsUtf16Profile(std::string_view bytes) {
    return bytes.starts_with(kUtf16Mark);
}

std::string TextOfUtf16Profile(std::string_view bytes) {
    const auto byte = [bytes](std::size_t i) { return static_cast<unsigned char>(bytes[i]); };
    std::u16string units;
    units.reserve(bytes.size() / 2);
    for (std::size_t i = kUtf16Mark.size(); i + 1 < bytes.size(); i += 2)
        units.push_back(static_cast<char16_t>(byte(i) | byte(i + 1) << 8));
    return Utf8FromUtf16(units);
}

std::string Utf16ProfileOf(std::string_view text) {
    std::string bytes(kUtf16Mark);
    for (const char16_t unit : Utf16FromUtf8(text)) {
        bytes.push_back(static_cast<char>(unit & 0xFF));
        bytes.push_back(static_cast<char>(unit >> 8));
    }
    return bytes;
}

}  // namespace vxd
