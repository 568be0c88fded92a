// The status words that the utility shares with the driver library (driver/shared_words.h), by
// their places in the library's table.
#pragma once

#include <atomic>
#include <cstddef>

#include "board/state.h"
#include "driver/slot.h"

namespace board {

enum class StatusWord : size_t { kEpromPending, kReserved, kVcpGet, kVcpSet };

// Clears a word of the type that it has in the utility, which watches it from its own thread,
// without the board's lock. Nothing where the table has no address of it.
template <typename Word>
void ClearStatusWord(const State& state, StatusWord which) {
    if (auto* word = FromSlot<Word>(state.sharedTable[static_cast<size_t>(which)])) {
        std::atomic_ref(*word).store(0);
    }
}

}  // namespace board
