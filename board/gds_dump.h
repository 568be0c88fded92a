// The GDS dump: what the driver's modules hold, in lines of debug output.
#pragma once

#include "board/module.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"

namespace board {

struct State;

// Puts the dump of a module, or of all, into the outbox. Every line begins with "GDS " and the
// module's name: first the states of its services and what they were told, then each operation and
// command of the module that was called, with how often and how often it failed. A module that has
// neither gives the line "GDS <name>: unused". A number that no module has answers
// VXD_INVALID_PARAMETER.
ResultCode DumpGds(State& state, const GdsDumpBlock& block);

}  // namespace board
