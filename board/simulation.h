// What the board's library keeps for the whole run: the board, the faults that a test wants, the
// calls that it remembers, its own thread. Shared by the operation frame, that thread and the
// control interface.
#pragma once

#include <chrono>
#include <deque>
#include <map>
#include <mutex>
#include <string>

#include "board/call.h"
#include "board/settings.h"
#include "board/state.h"
#include "board/worker.h"
#include "driver/result_code.h"

namespace board {

struct Fault {
    ResultCode code;
    bool once;
};

// The lock guards every member but the worker, which knows itself what it needs.
struct Simulation {
    std::mutex lock;
    State state;
    Disturbances disturbances;                                // that the settings file asks for
    std::map<std::string, Fault> faults;                      // by name of operation or command
    std::map<std::string, uint32_t> stuckBits;                // in what is read, by that name too
    std::map<std::string, std::chrono::milliseconds> delays;  // and before it begins
    std::deque<Call> calls;                                   // the most recent ones, oldest first
    Worker worker;
};

Simulation& TheSimulation();

}  // namespace board
