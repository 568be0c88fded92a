// The BAS service, which sends commands in the bit-rate allocation signal of a call. Nobody is at
// the other end: the commands are kept as they were sent.
//
// It has a life cycle (Service::kBas); while it is down, sending answers VXD_CONFIGURATION_NOT_SET.
#pragma once

#include <cstdint>
#include <deque>
#include <vector>

#include "driver/result_code.h"

namespace board {

struct State;

struct BasCommand {
    uint32_t commands;
    uint32_t repeats;
    std::vector<uint8_t> bytes;
};

struct Bas {
    uint32_t sendings = 0;
    std::deque<BasCommand> last{};  // the last 16 of them, oldest first
};

// Sends `length` of the six bytes at `data`, 1 to 6. Both counts are 1 or more. Anything else
// answers VXD_INVALID_PARAMETER.
ResultCode SendBas(State& state, int32_t commandCount, int32_t repeatCount, const uint8_t* data,
                   int32_t length);

// Ends the service, and forgets what was sent.
ResultCode TerminateBas(State& state);

}  // namespace board
