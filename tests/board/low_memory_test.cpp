#include <new>

#include "driver/low_memory.h"
#include "tests/kit/test.h"

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
        EXPECT_EQ(std::ranges::count(*buffers[mark], mark), 24) << int{mark};
    }
}

TEST(LowMemory, AFullArenaRefusesAndServesAgainAfterwards) {
    EXPECT_THROW(LowAllocate(0x10001), std::bad_alloc);
    void* most = LowAllocate(0xFF00);
    EXPECT_THROW(LowAllocate(0x200), std::bad_alloc);
    LowFree(most);
    LowFree(LowAllocate(0x200));
}
