// A line of debug output taken apart.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace dbwin {

// The prefix of a trace line: "412*3F: [30]JADE:\t ".
struct TracePrefix {
    std::uint32_t milliseconds;  // of the system's tick count, 0 to 999
    std::uint32_t process;       // the low 8 bits of its number
    std::uint32_t severity;
    std::string_view source;
    std::string_view text;  // what stands behind the prefix
};

// Nothing where the line has no such prefix. What is given points into the line.
std::optional<TracePrefix> ReadPrefix(std::string_view line);

}  // namespace dbwin
