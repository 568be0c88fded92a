// The frames of the command library's operations: what they have in common beyond every operation's
// frame (board/operation.h).
//
// An export of PAPI stands in <module>_papi.cpp beside the module that does its work: it says what
// it was called with and what must be there for it, and hands on to the module.
#pragma once

#include <cstdint>
#include <utility>

#include "board/call.h"
#include "board/life_cycle.h"
#include "board/operation.h"
#include "board/state.h"
#include "driver/papi.h"
#include "driver/result_code.h"

namespace board {

// An operation that needs the library open and a board.
template <typename Work>
uint32_t OnBoard(Call call, Work work, void (*refused)(State&) = nullptr) {
    return Perform(std::move(call), kPapiOpen | kBoard, work, refused);
}

// The same for one that also needs a service to be up.
template <typename Work>
uint32_t OnService(Service service, Call call, Work work) {
    return OnBoard(std::move(call), [=](State& state) -> ResultCode {
        const ResultCode code = NeedUp(state, service);
        return code == VXD_SUCCESS ? work(state) : code;
    });
}

// Reads into a caller's output, which must be there and is written only on success.
template <typename Output, typename Read>
ResultCode ReadInto(const State& state, Output* output, Read read) {
    if (!output) {
        return VXD_INVALID_PARAMETER;
    }
    uint32_t value = 0;
    const ResultCode code = read(value);
    if (code == VXD_SUCCESS) {
        state.Give(*output, value);
    }
    return code;
}

}  // namespace board
