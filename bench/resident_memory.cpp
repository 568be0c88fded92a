#include "bench/resident_memory.h"

#include <fstream>
#include <string>

long ResidentKibibytes() {
    std::ifstream status("/proc/self/status");
    for (std::string word; status >> word;) {
        long size = 0;
        if (word == "VmRSS:" && status >> size)
            return size;
    }
    return 0;
}
