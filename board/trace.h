// The trace of the board's own software, on the system's debug output. A line has the form of the
// utility's, with the firmware module's name for its source:
//     "412*3F: [30]JADE:\t vdapi_JADE_Reset = 0\n"
//
// What a module tells follows its debug level: from ERROR on the operations and commands that
// failed, from TRACE1 on all, from TRACE2 on with arguments and blocks. Each operation belongs to
// one module (board/trace.cpp). What the USB link tells of a firmware command follows the flags in
// the software variable for it (driver/debug_levels.h), unless the module USB is at NONE.
#pragma once

#include "board/call.h"
#include "board/firmware.h"

namespace board {

struct State;

// Adds what there is to tell of a call that has its result. `resultIsBit`: it can't have failed.
void TraceCall(State& state, const Call& call, bool resultIsBit);

// Adds what went over the link for a firmware command.
void TraceUsb(State& state, const FirmwareCommand& command, const FirmwareParameters& parameters,
              const FirmwareResponses& responses);

}  // namespace board
