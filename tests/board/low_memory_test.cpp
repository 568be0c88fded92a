#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>
#include <vector>

#include "driver/low_memory.h"
#include "driver/shared_words.h"

TEST(LowMemory, BlocksNeverOverlapAlsoWhenFreedOnesAreUsedAgain) {
    using Buffer = std::array<uint8_t, 24>;
    std::vector<Buffer*> buffers;
    for (uint8_t mark = 0; mark < 32; ++mark) {
        buffers.push_back(new (LowAllocate(sizeof(Buffer))) Buffer);
        buffers.back()->fill(mark);
    }
    for (uint8_t mark = 0; mark < 32; mark += 2) {
        LowFree(buffers[mark]);
        buffers[mark] = new (LowAllocate(mark % 4 ? sizeof(Buffer) : 3000)) Buffer;
        buffers[mark]->fill(mark);
    }
    for (uint8_t mark = 0; mark < 32; ++mark) {
        EXPECT_TRUE(std::ranges::all_of(*buffers[mark], [=](uint8_t held) { return held == mark; }))
            << "block " << int{mark};
    }
}

TEST(LowMemory, AFullArenaRefusesAndServesAgainAfterwards) {
    EXPECT_THROW(LowAllocate(0x10001), std::bad_alloc);
    void* most = LowAllocate(0xFF00);
    EXPECT_THROW(LowAllocate(0x200), std::bad_alloc);
    LowFree(most);
    LowFree(LowAllocate(0x200));
    LowFree(nullptr);
}

TEST(LowMemory, TheDriverReachesEachSharedWordThroughItsSlot) {
    SharedWords& words = GetSharedWords();
    words.EpromPendingFlag = 1;
    words.LibraryReservedWord = 0x12345678;
    words.VcpGetFlag = 3;
    words.VcpSetFlag = 4;
    const std::array<Slot, 4> slots = SharedWordSlots();
    EXPECT_EQ(*FromSlot<volatile uint16_t>(slots[0]), 1);
    EXPECT_EQ(*FromSlot<volatile uint32_t>(slots[1]), 0x12345678u);
    EXPECT_EQ(*FromSlot<volatile uint32_t>(slots[2]), 3u);
    EXPECT_EQ(*FromSlot<volatile uint32_t>(slots[3]), 4u);
}
