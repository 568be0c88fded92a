// How long a thread takes for what it does itself, on a machine that has other things to do too.
#pragma once

#include <fcntl.h>
#include <sys/resource.h>
#include <time.h>
#include <unistd.h>

#include "tests/kit/test.h"

namespace kit {

// Of a span that this thread has worked through without ever going to sleep, the time that it had a
// processor. Of one in which it waited for something, a lock, a full socket, also that: the time on
// the clock, less what it was ready to run and others had the processor. So the machine's load does
// not count, nor what the host of a virtual machine takes. For the thread that made it.
class OwnTime {
  public:
    OwnTime() = default;
    ~OwnTime() { close(statistics_); }
    OwnTime(const OwnTime&) = delete;
    OwnTime& operator=(const OwnTime&) = delete;

    std::chrono::nanoseconds Passed() const {
        const Moment now = Now();
        return now.sleeps == start_.sleeps ? now.worked - start_.worked
                                           : now.time - start_.time - (now.ready - start_.ready);
    }

  private:
    struct Moment {
        long sleeps;
        std::chrono::nanoseconds worked;
        std::chrono::nanoseconds ready;
        std::chrono::steady_clock::time_point time;
    };

    Moment Now() const {
        rusage usage = {};
        getrusage(RUSAGE_THREAD, &usage);
        timespec worked = {};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &worked);
        return {usage.ru_nvcsw,
                std::chrono::seconds(worked.tv_sec) + std::chrono::nanoseconds(worked.tv_nsec),
                Ready(), std::chrono::steady_clock::now()};
    }

    // The second number there: nanoseconds among those that are ready to run.
    std::chrono::nanoseconds Ready() const {
        std::array<char, 96> text{};
        if (pread(statistics_, text.data(), text.size() - 1, 0) <= 0) {
            return {};
        }
        char* rest = nullptr;
        std::strtoull(text.data(), &rest, 10);
        return std::chrono::nanoseconds(std::strtoull(rest, nullptr, 10));
    }

    const int statistics_ = open("/proc/thread-self/schedstat", O_RDONLY | O_CLOEXEC);
    const Moment start_ = Now();
};

}  // namespace kit
