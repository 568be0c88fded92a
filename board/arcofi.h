// The ARCOFI audio codec: its registers, the fields within them, and the lists of coefficients that
// its commands take.
//
// An id is one of
//   0x210 to 0x21E   a register of 8 bits
//   a field          bits 0 to 15 its register's id, bits 16 to 23 its mask within the register.
//                    Bits 24 to 31 give the mask's position once more; the mask alone counts.
//   a command        bits 0 to 7 its code, 0x20 to 0x2F, bits 8 to 15 the number of its bytes
//                    plus 1, which are 4 or 8
//   0x91F            the test-loop list, of which three bytes are moved
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <map>

#include "board/registers.h"
#include "driver/result_code.h"

namespace board {

class Arcofi {
  public:
    // How many bytes are moved under an id; 0 where nothing has it.
    static size_t ByteCount(uint32_t id);

    // The buffer holds ByteCount(id) bytes. An unknown id answers VXD_INVALID_PARAMETER, writing
    // the chip's identification VXD_ILLEGAL_OPERATION.
    ResultCode Read(uint32_t id, uint8_t* buffer) const;
    ResultCode Write(uint32_t id, const uint8_t* buffer);

  private:
    static constexpr size_t kMostBytes = 8;

    Registers registers_ = RegistersAtPowerOn();
    std::map<uint32_t, std::array<uint8_t, kMostBytes>> lists_;  // what was written, by code

    static Registers RegistersAtPowerOn();
};

}  // namespace board
