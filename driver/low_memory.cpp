#include "driver/low_memory.h"

#include <cstdint>
#include <map>
#include <mutex>

#include "platform/win32.h"

namespace {

constexpr uintptr_t kArenaSize = 0x10000;
constexpr uintptr_t kFirstCandidate = 0x10000000;
constexpr uintptr_t kLastCandidate = 0xF0000000;
// The granularity of VirtualAlloc: other addresses are rounded down to it.
constexpr uintptr_t kCandidateStep = 0x10000;

uintptr_t ReserveBelow4GiB() {
    for (uintptr_t address = kFirstCandidate; address <= kLastCandidate;
         address += kCandidateStep) {
        if (VirtualAlloc(reinterpret_cast<void*>(address), kArenaSize, MEM_RESERVE | MEM_COMMIT,
                         PAGE_READWRITE)) {
            return address;
        }
    }
    throw std::bad_alloc();
}

class Arena {
  public:
    void* Allocate(size_t size) {
        constexpr size_t kAlignment = alignof(std::max_align_t);
        if (size > kArenaSize) {
            throw std::bad_alloc();
        }
        const size_t needed = (size + kAlignment - 1) / kAlignment * kAlignment;
        std::lock_guard lock(mutex_);
        uintptr_t gap = base_;
        for (const auto& [start, length] : taken_) {
            if (start - gap >= needed) {
                break;
            }
            gap = start + length;
        }
        if (base_ + kArenaSize - gap < needed) {
            throw std::bad_alloc();
        }
        taken_.emplace(gap, needed);
        return reinterpret_cast<void*>(gap);
    }

    void Free(void* block) {
        std::lock_guard lock(mutex_);
        taken_.erase(reinterpret_cast<uintptr_t>(block));
    }

  private:
    const uintptr_t base_ = ReserveBelow4GiB();
    std::mutex mutex_;
    std::map<uintptr_t, size_t> taken_;  // start and length of each block in use
};

// Never destroyed: the driver may still write into it while the process ends.
Arena& TheArena() {
    static Arena& arena = *new Arena;
    return arena;
}

}  // namespace

void* LowAllocate(size_t size) {
    return TheArena().Allocate(size == 0 ? 1 : size);
}

void LowFree(void* block) {
    if (block) {
        TheArena().Free(block);
    }
}
