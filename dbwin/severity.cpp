#include "dbwin/severity.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace dbwin {
namespace {

constexpr auto kNames = std::to_array<std::string_view>(
    {"none", "error", "warn", "trace1", "trace2", "trace3", "trace4", "trace5"});
constexpr Step kLast = kNames.size() - 1;
constexpr std::uint32_t kTens = 10;

bool IsSame(char left, char right) {
    return std::tolower(static_cast<unsigned char>(left)) ==
           std::tolower(static_cast<unsigned char>(right));
}

}  // namespace

Step StepOf(std::uint32_t severity) {
    return std::min<Step>(severity < kTens ? severity : severity / kTens, kLast);
}

std::string_view NameOf(Step step) {
    return kNames[std::min(step, kLast)];
}

std::optional<Step> StepNamed(std::string_view name) {
    if (name.size() == 1 && name[0] >= '0' && name[0] <= static_cast<char>('0' + kLast)) {
        return static_cast<Step>(name[0] - '0');
    }
    const auto found = std::ranges::find_if(
        kNames, [name](std::string_view each) { return std::ranges::equal(each, name, IsSame); });
    return found == kNames.end() ? std::nullopt
                                 : std::optional(static_cast<Step>(found - kNames.begin()));
}

}  // namespace dbwin
