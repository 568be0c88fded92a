// The board's EEPROM: 512 bytes that stay between runs, in the file "board.eeprom" beside the
// settings files and of their kind: in its section [EEPROM] each byte that was ever written is a
// key, its address, with its value ("0x01F = 0x55"). So programs that share the file lose none of
// each other's bytes. What is missing in it is erased: 0xFF.
#pragma once

#include <array>
#include <cstdint>
#include <span>

#include "board/schedule.h"
#include "driver/result_code.h"

namespace board {

struct State;

using EepromContents = std::array<uint8_t, 512>;

EepromContents LoadEeprom();

// Puts bytes into the file, together (on Windows one by one); false when it can't be written. They
// must end within the EEPROM.
bool StoreEeprom(uint32_t address, std::span<const uint8_t> bytes);

// How the EEPROM behaves.
struct EepromBehaviour {
    uint32_t millisecondsPerByte = 2;
    bool hangs = false;  // transfers are started and never end
};

struct Eeprom {
    EepromBehaviour behaviour;
    Schedule::Clock::time_point busyUntil{};
};

// Start a transfer of 1 to 8 bytes. Bytes to be written are in the file when the call returns;
// where they could not be put there it answers VXD_FILE_OPEN_FAILURE. When the transfer's time has
// passed the board's own thread fills the buffer of bytes to be read, and clears the utility's
// EpromPendingFlag. Another number of bytes, bytes beyond the last one or a missing buffer answer
// VXD_INVALID_PARAMETER, a transfer while the one before is still under way
// VXD_BUSY_WITH_PRIOR_REQUEST.
ResultCode StartEepromRead(State& state, uint32_t address, uint8_t* buffer, uint32_t length);
ResultCode StartEepromWrite(State& state, uint32_t address, const uint8_t* buffer, uint32_t length);

}  // namespace board
