// VirtualAlloc for whole blocks of memory that are reserved and committed at once.
#include <sys/mman.h>

#include <cstdint>
#include <map>
#include <mutex>

#include "platform/win32.h"

namespace {

// Every block begins on such a boundary.
constexpr std::size_t kGranularity = 0x10000;

// Blocks by address, with their sizes. Guarded by the mutex.
std::mutex blocksMutex;
std::map<void*, std::size_t> blocks;

// Null when the address is taken.
void* MapAt(void* address, std::size_t size) {
    void* block = mmap(address, size, PROT_READ | PROT_WRITE,
                       MAP_PRIVATE | MAP_ANONYMOUS | MAP_FIXED_NOREPLACE, -1, 0);
    if (block == MAP_FAILED)
        return nullptr;
    if (block != address) {  // a kernel that takes the address for a hint
        munmap(block, size);
        return nullptr;
    }
    return block;
}

// Maps more than asked for and gives back what lies outside the boundaries.
void* MapAnywhere(std::size_t size) {
    const std::size_t mapped = size + kGranularity;
    void* block = mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    if (block == MAP_FAILED)
        return nullptr;
    auto* const bytes = static_cast<unsigned char*>(block);
    const std::size_t before =
        (kGranularity - reinterpret_cast<std::uintptr_t>(block) % kGranularity) % kGranularity;
    if (before > 0)
        munmap(bytes, before);
    munmap(bytes + before + size, mapped - before - size);
    return bytes + before;
}

}  // namespace

LPVOID WINAPI VirtualAlloc(LPVOID address, SIZE_T size, DWORD type, DWORD protection) {
    if (type != (MEM_RESERVE | MEM_COMMIT) || protection != PAGE_READWRITE || size == 0 ||
        size > SIZE_MAX - 2 * kGranularity ||
        reinterpret_cast<std::uintptr_t>(address) % kGranularity != 0)
        return nullptr;
    constexpr std::size_t kPage = 0x1000;
    size = (size + kPage - 1) / kPage * kPage;
    std::lock_guard lock(blocksMutex);
    void* block = address != nullptr ? MapAt(address, size) : MapAnywhere(size);
    if (block != nullptr)
        blocks[block] = size;
    return block;
}

BOOL WINAPI VirtualFree(LPVOID address, SIZE_T size, DWORD type) {
    if (type != MEM_RELEASE || size != 0)
        return FALSE;
    std::lock_guard lock(blocksMutex);
    const auto block = blocks.find(address);
    if (block == blocks.end() || munmap(block->first, block->second) != 0)
        return FALSE;
    blocks.erase(block);
    return TRUE;
}
