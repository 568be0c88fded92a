// The four status words that the utility and the driver library KORA_DLL32 share. The library keeps
// their addresses for the whole run and clears them from a context of its own.
#pragma once

#include <array>
#include <cstdint>

#include "driver/slot.h"

// The utility sets a word to 1 just before it starts the matching operation; the library clears it
// when the operation is complete.
struct SharedWords {
    volatile uint16_t EpromPendingFlag;
    volatile uint32_t LibraryReservedWord;  // the library's own
    volatile uint32_t VcpGetFlag;
    volatile uint32_t VcpSetFlag;
};

// The utility's words: one object below 4 GiB that never moves and is never freed. For the program
// alone; the driver library knows the words by the addresses in its table.
SharedWords& GetSharedWords();

// Their addresses in the order in which the library's table takes them: EpromPendingFlag,
// LibraryReservedWord, VcpGetFlag, VcpSetFlag.
std::array<Slot, 4> SharedWordSlots();
