// Handles that can be checked: an index with a generation, never an address.
#pragma once

#include <cstdint>
#include <memory>
#include <mutex>
#include <utility>
#include <vector>

namespace vxd {

// What a handle stands for. The kind is part of the number, so that a menu's handle is not taken
// for a window's.
enum class HandleKind : std::uint32_t {
    kWindow = 1,
    kMenu = 2,
    kIcon = 3,
    kBrush = 4,
    kDc = 5,
    kBitmap = 6,
    kDriver = 7,
};

// Owns objects and names them by 32-bit handles: 4 bits kind, 12 bits generation, 16 bits index.
// A handle whose object is gone is refused until 4095 later objects have used its place.
//
// Threads: all members may be called from any thread; a pointer that Find gave stays good only as
// long as nobody closes the handle.
template <typename T, HandleKind kKind>
class HandleTable {
  public:
    // Takes the object; 0 when all 65535 places are taken.
    std::uint32_t Add(std::unique_ptr<T> object) {
        std::lock_guard lock(mutex_);
        std::size_t index = 0;
        if (!free_.empty()) {
            index = free_.back();
            free_.pop_back();
        } else if (places_.size() < kMaxPlaces) {
            index = places_.size();
            places_.emplace_back();
        } else {
            return 0;
        }
        places_[index].object = std::move(object);
        return HandleOf(index, places_[index].generation);
    }

    // Null for a handle that is stale, of another kind or never given out.
    T* Find(std::uint32_t handle) const {
        std::lock_guard lock(mutex_);
        const Place* place = PlaceOf(handle);
        return place != nullptr ? place->object.get() : nullptr;
    }

    // Ends the handle and gives the object back; null for a handle that is not valid.
    std::unique_ptr<T> Remove(std::uint32_t handle) {
        std::lock_guard lock(mutex_);
        Place* place = const_cast<Place*>(PlaceOf(handle));
        if (place == nullptr)
            return nullptr;
        place->generation = place->generation % kMaxGeneration + 1;
        free_.push_back(static_cast<std::size_t>(handle & 0xFFFF) - 1);
        return std::move(place->object);
    }

  private:
    struct Place {
        std::unique_ptr<T> object;
        std::uint32_t generation = 1;
    };

    static constexpr std::size_t kMaxPlaces = 0xFFFF;
    static constexpr std::uint32_t kMaxGeneration = 0xFFF;

    static std::uint32_t HandleOf(std::size_t index, std::uint32_t generation) {
        return static_cast<std::uint32_t>(kKind) << 28 | generation << 16 |
               static_cast<std::uint32_t>(index + 1);
    }

    const Place* PlaceOf(std::uint32_t handle) const {
        const std::size_t index = static_cast<std::size_t>(handle & 0xFFFF) - 1;
        if (index >= places_.size() || places_[index].object == nullptr ||
            HandleOf(index, places_[index].generation) != handle)
            return nullptr;
        return &places_[index];
    }

    mutable std::mutex mutex_;
    std::vector<Place> places_;
    std::vector<std::size_t> free_;
};

// Between a Win32 handle, which has a pointer's type, and the number in it.
template <typename Handle>
std::uint32_t HandleNumber(Handle handle) {
    const auto number = reinterpret_cast<std::uintptr_t>(handle);
    return number <= 0xFFFFFFFFu ? static_cast<std::uint32_t>(number) : 0;
}

template <typename Handle>
Handle ToHandle(std::uint32_t number) {
    return reinterpret_cast<Handle>(static_cast<std::uintptr_t>(number));
}

}  // namespace vxd
