// Severities in a trace: the utility counts them from 1, the board's software in tens.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace dbwin {

// A line's severity as a step: 1 error, 2 warning, 3 to 7 trace 1 to 5; 0 for a line that bears
// none.
using Step = std::uint32_t;

// The step of a severity as it stands in a line, at most 7: 2 for 2 as for 20.
Step StepOf(std::uint32_t severity);

// "error" for 1; "none" for 0.
std::string_view NameOf(Step step);

// The step of a name or a number, whatever its case; nothing where there is none.
std::optional<Step> StepNamed(std::string_view name);

}  // namespace dbwin
