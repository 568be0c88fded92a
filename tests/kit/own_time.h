// How long a thread takes for what it does itself, on a machine that has other things to do too.
#pragma once

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <cstdlib>

namespace kit {

// The time on the clock since the construction, without the time for which this thread was ready to
// run and others had the processor. So load does not count, and what the thread works and waits for
// does: a lock, a full socket. Where the kernel does not tell the waiting for a processor, it
// counts too. For the thread that made it.
class OwnTime {
  public:
    OwnTime() { Restart(); }
    ~OwnTime() { close(statistics_); }
    OwnTime(const OwnTime&) = delete;
    OwnTime& operator=(const OwnTime&) = delete;

    void Restart() {
        waitedBefore_ = Waited();
        start_ = std::chrono::steady_clock::now();
    }

    std::chrono::nanoseconds Passed() const {
        const auto onTheClock = std::chrono::steady_clock::now() - start_;
        return onTheClock - (Waited() - waitedBefore_);
    }

  private:
    // The second number: nanoseconds in the queue of those that are ready.
    std::chrono::nanoseconds Waited() const {
        std::array<char, 96> text{};
        if (pread(statistics_, text.data(), text.size() - 1, 0) <= 0) {
            return {};
        }
        char* rest = nullptr;
        std::strtoull(text.data(), &rest, 10);
        return std::chrono::nanoseconds(std::strtoull(rest, nullptr, 10));
    }

    const int statistics_ = open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC);
    std::chrono::nanoseconds waitedBefore_{};
    std::chrono::steady_clock::time_point start_;
};

}  // namespace kit
