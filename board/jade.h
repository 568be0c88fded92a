// The JADE chip: 256 registers of 8 bits, of which 0xF0, the chip's revision, and 0xF1, its status,
// can only be read.
#pragma once

#include <cstdint>

#include "board/registers.h"
#include "driver/result_code.h"

namespace board {

struct State;

Registers JadeAtPowerOn();

// A register as the driver and the firmware read it, with the chip's revision in its own register.
ResultCode ReadJade(const State& state, uint32_t number, uint32_t& value);

}  // namespace board
