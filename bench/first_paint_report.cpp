#include "bench/first_paint_report.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace {

// What the process has in memory, from the kernel's own account; 0 where there is none.
long ResidentKibibytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        long size = 0;
        if (word == "VmRSS:" && status >> size)
            return size;
    }
    return 0;
}

}  // namespace

void ReportFirstPaint(const char* start) {
    const std::chrono::duration<double, std::milli> now =
        std::chrono::system_clock::now().time_since_epoch();
    std::printf("%.2f %ld\n", now.count() - std::strtod(start, nullptr) * 1000,
                ResidentKibibytes());
    std::fflush(stdout);
    std::_Exit(0);
}
