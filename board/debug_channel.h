// The debug channel of the older board: which commands there are and what block each one takes.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>

#include "driver/result_code.h"

namespace board {

struct State;

struct DebugCommand {
    uint32_t number;
    const char* name;
    size_t blockSize;  // 0: no block
    // Does the command's work on a block of that size; null where nothing is simulated yet.
    ResultCode (*handle)(State& state, void* block) = nullptr;
};

// What stands in a command's `handle`: the function that does its work, which takes the state and,
// where the command has a block, a copy of the block as what it is. A function that takes the copy
// to change it changes the block.
//     ResultCode RegisterSequencer(State& state, const SequencerRegisterBlock& block);
//     {TALVERO_DBG_SEQ_TR_RGSTR, "...", sizeof(SequencerRegisterBlock), Handle<RegisterSequencer>}
template <typename Block>
ResultCode HandleCopy(ResultCode (*work)(State&, Block&), State& state, void* block) {
    std::remove_const_t<Block> copy;
    std::memcpy(static_cast<void*>(&copy), block, sizeof copy);
    const ResultCode result = work(state, copy);
    if constexpr (!std::is_const_v<Block>) {
        std::memcpy(block, &copy, sizeof copy);
    }
    return result;
}

inline ResultCode HandleCopy(ResultCode (*work)(State&), State& state, void*) {
    return work(state);
}

template <auto kWork>
ResultCode Handle(State& state, void* block) {
    return HandleCopy(kWork, state, block);
}

// Null for a number that no command has.
const DebugCommand* FindDebugCommand(uint32_t number);

}  // namespace board
