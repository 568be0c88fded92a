#include "dbwin/filter.h"

#include <algorithm>
#include <string_view>

// The compiler takes what the library's own matcher keeps for uninitialised where it is checked for
// addresses too.
#if defined(__GNUC__) && !defined(__clang__)
#pragma GCC diagnostic ignored "-Wmaybe-uninitialized"
#endif
#include <regex>

#include "dbwin/severity.h"

namespace dbwin {
namespace {

using Compiled = std::vector<std::regex>;

Compiled Compile(const std::vector<std::string>& expressions, bool ignoresCase,
                 std::string& error) {
    auto flags = std::regex::ECMAScript | std::regex::optimize;
    if (ignoresCase) {
        flags |= std::regex::icase;
    }
    Compiled compiled;
    for (const std::string& expression : expressions) {
        try {
            compiled.emplace_back(expression, flags);
        } catch (const std::regex_error& reason) {
            error = "\"" + expression + "\" is no regular expression: " + reason.what();
        }
    }
    return compiled;
}

bool IsFoundIn(const std::regex& expression, std::string_view text) {
    try {
        return std::regex_search(text.begin(), text.end(), expression);
    } catch (const std::regex_error&) {
        return false;
    }
}

bool AnyIsFoundIn(const Compiled& expressions, std::string_view text) {
    return std::ranges::any_of(expressions,
                               [text](const auto& each) { return IsFoundIn(each, text); });
}

template <typename Value>
bool Takes(const std::set<Value>& in, const std::set<Value>& out, Value value) {
    return (in.empty() || in.contains(value)) && !out.contains(value);
}

}  // namespace

struct Filter::Expressions {
    Compiled in;
    Compiled out;
};

Filter::Filter(const Selection& selection, bool ignoresCase, std::string& error)
    : selection_(selection),
      expressions_(std::make_unique<Expressions>(
          Expressions{Compile(selection.matches, ignoresCase, error),
                      Compile(selection.noMatches, ignoresCase, error)})) {}

Filter::~Filter() = default;

bool Filter::Takes(const DebugLine& line, const std::optional<TracePrefix>& prefix) const {
    const Step step = prefix ? StepOf(prefix->severity) : 0;
    std::string_view text = line.text;
    while (text.ends_with('\n') || text.ends_with('\r')) {
        text.remove_suffix(1);
    }
    return dbwin::Takes(selection_.severities, selection_.noSeverities, step) &&
           dbwin::Takes(selection_.processes, selection_.noProcesses, line.processId) &&
           (expressions_->in.empty() || AnyIsFoundIn(expressions_->in, text)) &&
           !AnyIsFoundIn(expressions_->out, text);
}

}  // namespace dbwin
