// The frame around every operation of the two driver libraries.
//
// Each exported function is one Perform: it says what it was called with, what must be there for
// it, and what it then does to the board. The frame does the rest, in this order:
//   1. lets the time pass by which a test or the settings file delays it, and takes the board's
//      lock, which it keeps until the operation is done;
//   2. answers the code that a test or the settings file wants for the operation or its command;
//   3. answers VXD_CONFIGURATION_NOT_SET where the operation's library is not open, then
//      VXD_HARDWARE_FAILURE where it needs a board and none is there;
//   4. lets the operation do its work, unless one of these answered; the bits that are wanted to be
//      stuck read 1 in what it gives;
//   5. remembers the call, with its result, for the control interface;
//   6. wakes the board's own thread where there is something for it to do;
//   7. tells of the call as far as the debug levels want it (board/trace.h), and as a line if that
//      is wanted; posts the messages in the outbox, gives the lock back, and writes the lines.
//
// Operations may be called from any thread. While one works it must not wait for a window: whoever
// serves the window may be waiting for the board.
#pragma once

#include <mutex>
#include <utility>

#include "board/call.h"
#include "board/state.h"
#include "driver/result_code.h"

namespace board {

// What an operation needs, added up.
enum Need : unsigned {
    kNothing = 0,
    kPapiOpen = 1,
    kKoraOpen = 2,
    kBoard = 4,
};

class Operation {
  public:
    Operation(Call call, unsigned needs);
    ~Operation();
    Operation(const Operation&) = delete;
    Operation& operator=(const Operation&) = delete;

    State& TheState() const;
    ResultCode result;  // what the frame answers; the operation does its work only on success

  private:
    std::unique_lock<std::mutex> lock_;
    Call call_;
};

// Runs an operation in its frame. `work` does it and gives its result; `refused` says what it
// leaves behind when the frame answers in its place.
template <typename Work>
uint32_t Perform(Call call, unsigned needs, Work work, void (*refused)(State&) = nullptr) {
    Operation operation(std::move(call), needs);
    if (operation.result == VXD_SUCCESS) {
        operation.result = work(operation.TheState());
    } else if (refused) {
        refused(operation.TheState());
    }
    return operation.result;
}

// The work of opening a library: marks it open, which cannot be done twice.
inline ResultCode Open(bool& library) {
    return std::exchange(library, true) ? VXD_OPERATION_ALREADY_DONE : VXD_SUCCESS;
}

// Runs an operation that closes a library: `close` marks it so. If it does, what the board was
// going to do by itself is dropped, and when the operation returns the board's own thread has
// ended.
uint32_t Close(Call call, unsigned needs, void (*close)(State&));

// The work of every operation that the simulated board does not know yet.
inline ResultCode NotYetSimulated(State&) {
    return VXD_OPERATION_NOT_SUPPORTED;
}

}  // namespace board
