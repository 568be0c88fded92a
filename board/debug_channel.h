// The debug channel of the older board: which commands there are and what block each one takes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>

#include "driver/result_code.h"

namespace board {

struct State;

struct DebugCommand {
    uint32_t number;
    const char* name;
    size_t blockSize;  // 0: no block
    // Does the command's work on a block of that size; null where nothing is simulated yet.
    ResultCode (*handle)(State& state, const void* block) = nullptr;
};

// What stands in a command's `handle`: the function that does its work, which takes the state and,
// where the command has a block, a copy of the block as what it is.
//     ResultCode RegisterSequencer(State& state, const SequencerRegisterBlock& block);
//     {TALVERO_DBG_SEQ_TR_RGSTR, "...", sizeof(SequencerRegisterBlock), Handle<RegisterSequencer>}
template <typename Block>
ResultCode HandleCopy(ResultCode (*work)(State&, const Block&), State& state, const void* block) {
    Block copy;
    std::memcpy(static_cast<void*>(&copy), block, sizeof copy);
    return work(state, copy);
}

inline ResultCode HandleCopy(ResultCode (*work)(State&), State& state, const void*) {
    return work(state);
}

template <auto kWork>
ResultCode Handle(State& state, const void* block) {
    return HandleCopy(kWork, state, block);
}

// Null for a number that no command has.
const DebugCommand* FindDebugCommand(uint32_t number);

}  // namespace board
