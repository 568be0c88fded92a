#include "driver/shared_words.h"

#include "driver/low_memory.h"

SharedWords& GetSharedWords() {
    static SharedWords& words = LowForRun<SharedWords>();
    return words;
}

std::array<Slot, 4> SharedWordSlots() {
    SharedWords& words = GetSharedWords();
    return {ToSlot(&words.EpromPendingFlag), ToSlot(&words.LibraryReservedWord),
            ToSlot(&words.VcpGetFlag), ToSlot(&words.VcpSetFlag)};
}
