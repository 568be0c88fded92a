#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <new>
#include <vector>

#include "driver/low_memory.h"
#include "driver/shared_words.h"

TEST(LowMemory, AnObjectIsReachedThroughIts32BitSlot) {
    const LowObject<uint32_t> object(7);
    EXPECT_EQ(*FromSlot<uint32_t>(object.Address()), 7u);
    *FromSlot<uint32_t>(object.Address()) = 9;
    EXPECT_EQ(*object, 9u);
}

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

TEST(LowMemory, TheDriverClearsEachSharedWordThroughItsSlot) {
    SharedWords& words = GetSharedWords();
    words.EpromPendingFlag = 1;
    words.LibraryReservedWord = 0x12345678;
    words.VcpGetFlag = 1;
    words.VcpSetFlag = 1;
    const std::array<Slot, 4> slots = SharedWordSlots();

    *FromSlot<volatile uint16_t>(slots[0]) = 0;
    EXPECT_EQ(words.EpromPendingFlag, 0);
    *FromSlot<volatile uint32_t>(slots[2]) = 0;
    EXPECT_EQ(words.VcpGetFlag, 0u);
    *FromSlot<volatile uint32_t>(slots[3]) = 0;
    EXPECT_EQ(words.VcpSetFlag, 0u);
    EXPECT_EQ(words.LibraryReservedWord, 0x12345678u);
    *FromSlot<volatile uint32_t>(slots[1]) = 0;
    EXPECT_EQ(words.LibraryReservedWord, 0u);
}
