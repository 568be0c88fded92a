// A file descriptor that closes itself.
#pragma once

#include <unistd.h>

#include <utility>

namespace vxd {

class Descriptor {
  public:
    Descriptor() = default;
    // Owns what a system call gave; a negative number means none.
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(Descriptor&& other) noexcept : number_(std::exchange(other.number_, -1)) {}
    Descriptor& operator=(Descriptor&& other) noexcept {
        std::swap(number_, other.number_);
        return *this;
    }
    ~Descriptor() {
        if (number_ >= 0)
            close(number_);
    }

    explicit operator bool() const { return number_ >= 0; }
    int Get() const { return number_; }

  private:
    int number_ = -1;
};

}  // namespace vxd
