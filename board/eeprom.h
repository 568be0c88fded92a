// The board's EEPROM: 512 bytes that stay between runs, in the file "board.eeprom" beside the
// settings files. What was never written, or is missing in the file, is erased: 0xFF.
#pragma once

#include <array>
#include <cstdint>

#include "board/schedule.h"
#include "driver/result_code.h"

namespace board {

struct State;

using EepromContents = std::array<uint8_t, 512>;

EepromContents LoadEeprom();
void StoreEeprom(const EepromContents& contents);

// How the EEPROM behaves.
struct EepromBehaviour {
    uint32_t millisecondsPerByte = 2;
    bool hangs = false;  // transfers are started and never end
};

struct Eeprom {
    EepromBehaviour behaviour;
    Schedule::Clock::time_point busyUntil{};
};

// Start a transfer of 1 to 8 bytes. The board's own thread makes it when its time has passed and
// then clears the utility's EpromPendingFlag. Bytes to be written are taken over at once; the
// buffer of those to be read is filled just before the flag is cleared. Another number of bytes,
// bytes beyond the last one or a missing buffer answer VXD_INVALID_PARAMETER, a transfer while the
// one before is still under way VXD_BUSY_WITH_PRIOR_REQUEST.
ResultCode StartEepromRead(State& state, uint32_t address, uint8_t* buffer, uint32_t length);
ResultCode StartEepromWrite(State& state, uint32_t address, const uint8_t* buffer, uint32_t length);

}  // namespace board
