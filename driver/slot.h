// An address as the driver libraries keep it: 32 bits on every target. Only addresses below 4 GiB
// fit; driver/low_memory.h gives objects that live there.
#pragma once

#include <cstdint>
#include <cstdlib>

using Slot = uint32_t;

// 0 means "no address" and gives null.
template <typename Value>
Value* FromSlot(Slot slot) {
    return reinterpret_cast<Value*>(static_cast<uintptr_t>(slot));
}

// The address as a slot. An address that does not fit ends the program: a cut one would be
// followed.
inline Slot ToSlot(const volatile void* address) {
    const auto slot = static_cast<Slot>(reinterpret_cast<uintptr_t>(address));
    if (FromSlot<const volatile void>(slot) != address) {
        std::abort();
    }
    return slot;
}
