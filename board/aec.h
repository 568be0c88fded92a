// The echo-cancelling DSP, which takes what it is to do from a control latch of 8 bits. Driver and
// firmware reach the same latch.
#pragma once

#include <cstdint>

#include "driver/result_code.h"

namespace board {

struct State;

class Aec {
  public:
    // The code that stands in the latch.
    uint8_t Mode() const { return latch_; }
    // VXD_INVALID_PARAMETER for a code that the latch is too narrow for.
    ResultCode SetMode(uint32_t code);

  private:
    uint8_t latch_ = 0;
};

// Brings the DSP up, with nothing in its latch.
ResultCode InitializeAec(State& state);

}  // namespace board
