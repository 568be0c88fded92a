// What the viewer is asked for on its command line.
#pragma once

#include <cstdint>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "dbwin/severity.h"

namespace dbwin {

// What lines are taken in and left out. An empty list takes everything in, or leaves nothing out.
struct Selection {
    std::set<Step> severities, noSeverities;
    std::set<std::uint32_t> processes, noProcesses;
    std::vector<std::string> matches, noMatches;  // regular expressions
};

enum class Colours { kOnTerminal, kAlways, kNever };

struct Options {
    Selection selection;
    bool ignoresCase = false;  // in regular expressions
    bool json = false;
    Colours colours = Colours::kOnTerminal;
    std::optional<std::string> file;  // also written there
    bool isQuiet = false;             // shows no lines, writes the file alone
    bool isPaused = false;            // at first
    bool help = false;
    std::vector<std::string> command;  // the program to start, with its arguments
};

// Reads the arguments behind the program's name. On a mistake `error` says what is wrong, and what
// is given back is of no use.
Options ReadOptions(std::span<const char* const> arguments, std::string& error);

// What --help shows.
const char* HelpText();

}  // namespace dbwin
