// The ISDN transceivers, ISAC: up to three chips, each with registers of 8 bits.
//
// A register's id is its address (bits 0 to 7) and its class (bits 8 to 11): 2 can be read, 4 can
// be written, 1 has a copy with the driver, which is read where the chip itself cannot be.
// Different registers share an address where one can only be read and the other only be written. A
// bit's id is that of its register and, in bits 16 to 23, the bit's mask.
#pragma once

#include <cstdint>

#include "board/registers.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"

namespace board {

struct State;

inline constexpr uint32_t kIsacChips = 3;

// The code of the chip that every board has.
inline constexpr uint16_t kFirstIsacChip = 1;

// How many ISAC chips a board of that revision can have.
uint32_t MostIsacChips(uint16_t boardRevision);

// The registers of one chip by id, as they are at power-on. Reading one of class 4, and writing one
// of class 2, answers VXD_ILLEGAL_OPERATION.
Registers IsacAtPowerOn();

// The debug channel's commands. A chip is named by its code, 1, 6 or 9; another answers
// VXD_INVALID_PARAMETER, a chip that the board does not have VXD_HARDWARE_FAILURE. A bit's state, 0
// or 1, takes the place of a result code.
ResultCode ReadIsacRegister(State& state, const IsacRegisterReadBlock& block);
ResultCode WriteIsacRegister(State& state, const IsacRegisterWriteBlock& block);
ResultCode SetIsacBit(State& state, const BitBlock& block);
ResultCode ClearIsacBit(State& state, const BitBlock& block);
ResultCode TestIsacBit(State& state, const BitBlock& block);

// Makes a chip's registers as at power-on.
ResultCode InitializeIsacChip(State& state, const IsacChipBlock& block);

}  // namespace board
