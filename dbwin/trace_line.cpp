#include "dbwin/trace_line.h"

#include <algorithm>
#include <charconv>

namespace dbwin {
namespace {

// Reads on from the beginning of a text.
class Reader {
  public:
    explicit Reader(std::string_view text) : rest_(text) {}

    bool Skip(std::string_view expected) {
        const bool isThere = rest_.starts_with(expected);
        rest_.remove_prefix(isThere ? expected.size() : 0);
        return isThere;
    }

    // A number that is right-aligned with blanks in at least so many characters.
    bool ReadNumber(std::size_t width, int base, std::uint32_t& number) {
        const std::size_t blanks = std::min(rest_.find_first_not_of(' '), rest_.size());
        const char* const begin = rest_.data() + blanks;
        const auto [end, error] = std::from_chars(begin, rest_.data() + rest_.size(), number, base);
        const auto length = static_cast<std::size_t>(end - rest_.data());
        if (error != std::errc() || length < width || (blanks > 0 && length > width)) {
            return false;
        }
        rest_.remove_prefix(length);
        return true;
    }

    bool ReadUntil(std::string_view end, std::string_view& text) {
        const std::size_t length = rest_.find(end);
        if (length == std::string_view::npos) {
            return false;
        }
        text = rest_.substr(0, length);
        rest_.remove_prefix(length + end.size());
        return true;
    }

    std::string_view Rest() const { return rest_; }

  private:
    std::string_view rest_;
};

}  // namespace

std::optional<TracePrefix> ReadPrefix(std::string_view line) {
    constexpr std::uint32_t kLastMillisecond = 999;
    constexpr std::uint32_t kLastByte = 0xFF;
    TracePrefix prefix{};
    Reader reader(line);
    if (!reader.ReadNumber(3, 10, prefix.milliseconds) || !reader.Skip("*") ||
        !reader.ReadNumber(2, 16, prefix.process) || !reader.Skip(": [") ||
        !reader.ReadNumber(1, 10, prefix.severity) || !reader.Skip("]") ||
        !reader.ReadUntil(":\t ", prefix.source) || prefix.milliseconds > kLastMillisecond ||
        prefix.process > kLastByte) {
        return std::nullopt;
    }
    prefix.text = reader.Rest();
    return prefix;
}

}  // namespace dbwin
