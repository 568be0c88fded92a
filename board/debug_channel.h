// The debug channel of the older board: which commands there are and what block each one takes.
#pragma once

#include <cstddef>
#include <cstdint>

namespace board {

struct DebugCommand {
    uint32_t number;
    const char* name;
    size_t blockSize;  // 0: no block
};

// Null for a number that no command has.
const DebugCommand* FindDebugCommand(uint32_t number);

}  // namespace board
