// A file of registers that keeps what was written.
#pragma once

#include <cstdint>
#include <map>
#include <set>

#include "driver/result_code.h"

namespace board {

// Described by its members; a register that was never written holds 0.
struct Registers {
    uint32_t last = 0xFFFFFFFF;             // the highest number
    uint32_t mask = 0xFFFFFFFF;             // the bits that a register holds
    std::map<uint32_t, uint32_t> values{};  // what is not 0, by number
    std::set<uint32_t> readOnly{};
    std::set<uint32_t> writeOnly{};
    bool onlyListed = false;  // no other registers exist than those in `values`

    // A number without a register answers VXD_INVALID_PARAMETER; writing a read-only register
    // changes nothing and answers VXD_ILLEGAL_OPERATION, as does reading a write-only one.
    ResultCode Read(uint32_t number, uint32_t& value) const;
    ResultCode Write(uint32_t number, uint32_t value);

    // Replaces the bits of `changed` in a register by those of `bits`.
    ResultCode Change(uint32_t number, uint32_t changed, uint32_t bits);

  private:
    bool Has(uint32_t number) const;
};

}  // namespace board
