#include "dbwin/options.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>

namespace dbwin {
namespace {

// Cuts the text in front of the next comma off.
std::string_view TakeItem(std::string_view& list) {
    const std::size_t comma = list.find(',');
    const std::string_view item = list.substr(0, comma);
    list.remove_prefix(comma == std::string_view::npos ? list.size() : comma + 1);
    return item;
}

bool AddSeverities(std::string_view list, std::set<Step>& severities) {
    do {
        const std::string_view item = TakeItem(list);
        const std::size_t dash = item.find('-');
        const auto first = StepNamed(item.substr(0, dash));
        const auto last = dash == std::string_view::npos ? first : StepNamed(item.substr(dash + 1));
        if (!first || !last || *first > *last) {
            return false;
        }
        for (Step step = *first; step <= *last; ++step) {
            severities.insert(step);
        }
    } while (!list.empty());
    return true;
}

bool AddProcesses(std::string_view list, std::set<std::uint32_t>& processes) {
    do {
        const std::string_view item = TakeItem(list);
        std::uint32_t number = 0;
        const auto [end, error] = std::from_chars(item.data(), item.data() + item.size(), number);
        if (error != std::errc() || end != item.data() + item.size()) {
            return false;
        }
        processes.insert(number);
    } while (!list.empty());
    return true;
}

bool SetColours(std::string_view when, Colours& colours) {
    if (when != "auto" && when != "always" && when != "never") {
        return false;
    }
    colours = when == "auto"     ? Colours::kOnTerminal
              : when == "always" ? Colours::kAlways
                                 : Colours::kNever;
    return true;
}

// An option: what it does with its value, or without one. False where the value makes no sense.
struct Option {
    std::string_view name;
    std::string_view shortName;
    bool takesValue;
    bool (*apply)(Options& options, std::string_view value);
};

template <bool Options::*kMember>
bool TurnOn(Options& options, std::string_view) {
    options.*kMember = true;
    return true;
}

template <std::vector<std::string> Selection::*kMember>
bool AddExpression(Options& options, std::string_view value) {
    (options.selection.*kMember).emplace_back(value);
    return true;
}

constexpr auto kOptions = std::to_array<Option>({
    {"--severity", "-s", true,
     [](Options& o, std::string_view v) { return AddSeverities(v, o.selection.severities); }},
    {"--no-severity", "-S", true,
     [](Options& o, std::string_view v) { return AddSeverities(v, o.selection.noSeverities); }},
    {"--process", "-p", true,
     [](Options& o, std::string_view v) { return AddProcesses(v, o.selection.processes); }},
    {"--no-process", "-P", true,
     [](Options& o, std::string_view v) { return AddProcesses(v, o.selection.noProcesses); }},
    {"--match", "-m", true, AddExpression<&Selection::matches>},
    {"--no-match", "-M", true, AddExpression<&Selection::noMatches>},
    {"--ignore-case", "-i", false, TurnOn<&Options::ignoresCase>},
    {"--json", "-j", false, TurnOn<&Options::json>},
    {"--colour", "-c", true,
     [](Options& o, std::string_view v) { return SetColours(v, o.colours); }},
    {"--output", "-o", true,
     [](Options& o, std::string_view v) {
         o.file = v;
         return !v.empty();
     }},
    {"--quiet", "-q", false, TurnOn<&Options::isQuiet>},
    {"--paused", "", false, TurnOn<&Options::isPaused>},
    {"--help", "-h", false, TurnOn<&Options::help>},
});

const Option* FindOption(std::string_view name) {
    const auto found = std::ranges::find_if(kOptions, [name](const Option& option) {
        return name == option.name || (!name.empty() && name == option.shortName);
    });
    return found == kOptions.end() ? nullptr : &*found;
}

}  // namespace

Options ReadOptions(std::span<const char* const> arguments, std::string& error) {
    Options options;
    error.clear();
    for (std::size_t i = 0; i < arguments.size() && error.empty(); ++i) {
        const std::string_view argument = arguments[i];
        if (argument == "--") {
            options.command.assign(arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1,
                                   arguments.end());
            if (options.command.empty()) {
                error = "no command behind \"--\"";
            }
            return options;
        }
        const std::size_t equals = argument.starts_with("--") ? argument.find('=') : argument.npos;
        const std::string name(argument.substr(0, equals));
        const Option* const option = FindOption(name);
        if (option == nullptr) {
            error = name.starts_with('-') ? "unknown option " + name
                                          : "\"" + name + "\": a command stands behind \"--\"";
        } else if (!option->takesValue) {
            if (equals != argument.npos) {
                error = name + " takes no value";
            } else {
                option->apply(options, {});
            }
        } else if (equals == argument.npos && i + 1 == arguments.size()) {
            error = name + " lacks its value";
        } else {
            const std::string_view value =
                equals != argument.npos ? argument.substr(equals + 1) : arguments[++i];
            if (!option->apply(options, value)) {
                error = "\"" + std::string(value) + "\" is no value of " + name;
            }
        }
    }
    return options;
}

const char* HelpText() {
    return R"(Usage: dbwin [OPTION]... [-- COMMAND [ARGUMENT]...]

Shows the debug output of programs, each line as it comes, until it is ended. With a COMMAND it
starts that program, which finds the viewer already in place, and ends with it.

Which lines
  -s, --severity LIST     only these severities: error, warn, trace1 to trace5, none (a line
                          without one), or 1 to 7; with commas and ranges: "error,trace1-trace3"
  -S, --no-severity LIST  not these
  -p, --process LIST      only of these processes, by number, with commas
  -P, --no-process LIST   not of these
  -m, --match EXPRESSION  only lines in which the regular expression (ECMAScript's) is found, in
                          the line as it was written; given again: or this one
  -M, --no-match EXPRESSION   not those in which it is found
  -i, --ignore-case       in regular expressions

How
  -j, --json              one JSON object a line
  -c, --colour WHEN       auto (on a terminal, the default; not where NO_COLOR is set), always, never
  -o, --output FILE       also to the end of FILE, without colours
  -q, --quiet             to the file alone
      --paused            begin paused
  -h, --help              show this

Keys, on a terminal: p or the space bar pauses and goes on, c shows the counts, q ends. While it is
paused, programs that begin to trace are told that nobody looks; lines that still come are kept as
far as there is room. On a terminal a COMMAND gets no input.

At the end it tells how many lines were shown, left out and lost.

Exit codes: 0, or the COMMAND's (127: not found or not to be started); 1 the lines could not be
written; 2 a mistake on the command line; 3 another viewer listens; 4 the place for it is not
this user's alone, or the system refuses.
)";
}

}  // namespace dbwin
