// The SAEC echo canceller.
//
// An id's bits 16 to 23 are its class: 1 one of four bytes of hardware configuration, whose index
// is in bits 8 to 15; 2 a register of 16 bits, whose address is in bits 0 to 7; 3 the status. Two
// registers reach the chip's internal memory of 16-bit words: an address is written to 0x2008B, and
// 0x2008C then stands for the word at it. Some words are levels that the chip measures, and follow
// those who speak.
#pragma once

#include <cstdint>

#include "board/registers.h"
#include "driver/result_code.h"

namespace board {

class Saec {
  public:
    // `milliseconds` is the time at which a level is read; levels move as it goes on. An id that
    // nothing has answers VXD_INVALID_PARAMETER, writing the status, the revision or a level
    // VXD_ILLEGAL_OPERATION.
    ResultCode Read(uint32_t id, uint32_t milliseconds, uint32_t& value) const;
    ResultCode Write(uint32_t id, uint32_t value);

  private:
    static Registers RegistersAtPowerOn();

    uint32_t InternalAddress() const;

    Registers registers_ = RegistersAtPowerOn();
    Registers internal_{.mask = 0xFFFF};
};

}  // namespace board
