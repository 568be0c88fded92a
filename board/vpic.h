// The VPIC, bus interface and interrupt controller: its ports, the fields and bits within them, and
// the two I2C lines that can be driven one by one.
//
// An id says where in the chip something is:
//   bits 0 to 7     the port's number
//   bits 8 to 12    of a field: its lowest bit within the port
//   bits 13 to 15   the group that the port's number counts in
//   bits 16 to 20   of a field: its width in bits; 0 for the whole port
//   bits 21 to 25   of a single bit: its number, 1 for the port's lowest; 0 where no bit is meant
//   bit 26          a mark for the driver's own use
// So 0x44C20 is the field of 4 bits from bit 12 on in port 0x4020, and 0x02004020 bit 15 of it.
#pragma once

#include <array>
#include <cstdint>

#include "board/registers.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"

namespace board {

struct State;

class Vpic {
  public:
    // All of a port, a field or a bit, at the lowest bits of the value. A write leaves the port's
    // other bits as they are. An id that nothing has answers VXD_INVALID_PARAMETER, writing one of
    // the status ports VXD_ILLEGAL_OPERATION.
    ResultCode Read(uint32_t id, uint32_t& value) const;
    ResultCode Write(uint32_t id, uint32_t value);

    // The lines by their numbers in the line blocks; 1 (nobody pulls it low) at power-on.
    ResultCode GetLine(uint32_t line, bool& high) const;
    ResultCode SetLine(uint32_t line, bool high);

    Registers ports = PortsAtPowerOn();

  private:
    static Registers PortsAtPowerOn();

    std::array<bool, 2> lineIsHigh_{true, true};
};

// A port as the driver reads it: as Vpic::Read, with the board's revision in its own port.
ResultCode ReadVpicPort(const State& state, uint32_t id, uint32_t& value);

// The debug channel's commands. A bit's state, 0 or 1, takes the place of a result code.
ResultCode SetVpicBit(State& state, const BitBlock& block);
ResultCode ClearVpicBit(State& state, const BitBlock& block);
ResultCode TestVpicBit(State& state, const BitBlock& block);
ResultCode SetVpicLine(State& state, const I2cLineSetBlock& block);
ResultCode GetVpicLine(State& state, const I2cLineGetBlock& block);

}  // namespace board
