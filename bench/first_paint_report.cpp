#include "bench/first_paint_report.h"

#include <chrono>
#include <cstdio>
#include <cstdlib>

#include "bench/resident_memory.h"

void ReportFirstPaint(const char* start) {
    const std::chrono::duration<double, std::milli> now =
        std::chrono::system_clock::now().time_since_epoch();
    std::printf("%.2f %ld\n", now.count() - std::strtod(start, nullptr) * 1000,
                ResidentKibibytes());
    std::fflush(stdout);
    std::_Exit(0);
}
