// Memory or I/O ports: bytes, in units of 1, 2 or 4 of them, the lowest byte first.
#pragma once

#include <cstdint>
#include <map>

#include "driver/result_code.h"

namespace board {

class AddressSpace {
  public:
    // Addresses from 0 to `last`, units of at most `widest` bytes. What was never written holds 0.
    AddressSpace(uint32_t last, uint32_t widest) : last_(last), widest_(widest) {}

    // A unit of another size, or one that reaches beyond the last address, answers
    // VXD_INVALID_PARAMETER and leaves everything as it is.
    ResultCode Read(uint32_t address, uint32_t unitSize, uint32_t& value) const;
    ResultCode Write(uint32_t address, uint32_t unitSize, uint32_t value);

    uint32_t WidestUnit() const { return widest_; }

  private:
    bool Has(uint32_t address, uint32_t unitSize) const;

    uint32_t last_;
    uint32_t widest_;
    std::map<uint32_t, uint8_t> bytes_;
};

}  // namespace board
