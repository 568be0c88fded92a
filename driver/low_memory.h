// Objects below 4 GiB, so that their addresses fit the driver's 32-bit slots on every target.
//
// All of them live in one small arena per module that uses it, set up at the first use and kept for
// the whole run. The functions may be called from any thread; what is in an object is its user's
// affair. Without room, or without free address space below 4 GiB, they throw std::bad_alloc.
#pragma once

#include <cstddef>
#include <new>
#include <type_traits>

#include "driver/slot.h"

// A block of at least `size` bytes, aligned for any fundamental type. The arena holds 64 KiB in
// all.
void* LowAllocate(size_t size);

// Gives a block back; null is allowed.
void LowFree(void* block);

// A zero-initialised object for the whole run.
template <typename Value>
Value& LowForRun() {
    return *new (LowAllocate(sizeof(Value))) Value{};
}

// A value that lives as long as this object, for one call's outputs and inputs. A text or a buffer
// is a LowObject<std::array<...>>.
template <typename Value>
class LowObject {
    static_assert(std::is_trivially_destructible_v<Value>);

  public:
    explicit LowObject(const Value& value = Value{})
        : value_(new (LowAllocate(sizeof(Value))) Value(value)) {}
    ~LowObject() { LowFree(value_); }
    LowObject(const LowObject&) = delete;
    LowObject& operator=(const LowObject&) = delete;

    Value& operator*() const { return *value_; }
    Value* operator->() const { return value_; }
    Slot Address() const { return ToSlot(value_); }

  private:
    Value* value_;
};
