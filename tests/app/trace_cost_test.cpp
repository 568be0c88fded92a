// What the trace costs where nobody wants to see it.
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <ctime>
#include <new>

#include "services/diagnostics.h"
#include "tests/kit/speed.h"

namespace {

thread_local std::uint64_t allocations = 0;

}  // namespace

// Not inlined: the compiler would take free() for a mismatch of what it has just seen allocated.
[[gnu::noinline]] void* operator new(std::size_t size) {
    ++allocations;
    if (void* const memory = std::malloc(size == 0 ? 1 : size)) {
        return memory;
    }
    throw std::bad_alloc();
}

[[gnu::noinline]] void operator delete(void* memory) noexcept {
    std::free(memory);
}

[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept {
    std::free(memory);
}

namespace {

TEST(TraceCost, OfALineAboveTheLevelIsNextToNothing) {
    constexpr int kLines = 1'000'000;
    constexpr double kMostNanoseconds = 10;
    ForceDebugOutputLevel(4);
    const std::uint64_t before = allocations;
    double best = 1e9;
    for (int round = 0; round < 10; ++round) {
        const std::clock_t start = std::clock();
        for (int i = 0; i < kLines; ++i) {
            DbgMsg(5, "%d %s\n", i, "text");
        }
        const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
        best = std::min(best, seconds * 1e9 / kLines);
    }
    EXPECT_LT(best, kMostNanoseconds * kit::kSlowdown);
    EXPECT_EQ(allocations, before);
}

}  // namespace
