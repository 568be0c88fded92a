#include "board/operation.h"

#include <chrono>
#include <thread>

#include "board/simulation.h"
#include "board/trace.h"

namespace board {
namespace {

// Enough for any test; a program that runs for days must not fill the memory with calls.
constexpr size_t kCallsKept = 10000;

// The code that is wanted for an operation or a command of that name.
ResultCode TakeFault(Simulation& simulation, const std::string& name) {
    const auto found = simulation.faults.find(name);
    if (found == simulation.faults.end()) {
        return simulation.disturbances.Find(name).failure;
    }
    const Fault fault = found->second;
    if (fault.once) {
        simulation.faults.erase(found);
    }
    return fault.code;
}

// The bits that are wanted to read 1 in what an operation or a command of that name gives.
uint32_t FindStuckBits(Simulation& simulation, const std::string& name) {
    const auto found = simulation.stuckBits.find(name);
    return found == simulation.stuckBits.end() ? simulation.disturbances.Find(name).stuckBits
                                               : found->second;
}

// How long an operation or a command of that name is to wait before it begins.
std::chrono::milliseconds FindDelay(Simulation& simulation, const std::string& name) {
    const auto found = simulation.delays.find(name);
    return found == simulation.delays.end() ? simulation.disturbances.Find(name).delay
                                            : found->second;
}

// Lets the time pass that the call is to take. The board is not locked meanwhile: it goes on, and
// whoever has made the call slow can end that.
void Wait(Simulation& simulation, const Call& call, std::unique_lock<std::mutex>& lock) {
    const std::chrono::milliseconds delay =
        FindDelay(simulation, call.operation) + FindDelay(simulation, call.command);
    if (delay.count() > 0) {
        lock.unlock();
        std::this_thread::sleep_for(delay);
        lock.lock();
        simulation.disturbances.Refresh();
    }
}

ResultCode Judge(Simulation& simulation, const Call& call, unsigned needs) {
    for (const std::string* name : {&call.operation, &call.command}) {
        const ResultCode fault = name->empty() ? VXD_SUCCESS : TakeFault(simulation, *name);
        if (fault != VXD_SUCCESS) {
            return fault;
        }
    }
    const State& state = simulation.state;
    if ((needs & kPapiOpen && !state.papiOpen) || (needs & kKoraOpen && !state.koraOpen)) {
        return VXD_CONFIGURATION_NOT_SET;
    }
    return needs & kBoard && !state.present ? VXD_HARDWARE_FAILURE : VXD_SUCCESS;
}

}  // namespace

// Never destroyed: the libraries may be called while the process ends.
Simulation& TheSimulation() {
    static Simulation& simulation = *new Simulation;
    return simulation;
}

Operation::Operation(Call call, unsigned needs)
    : lock_(TheSimulation().lock), call_(std::move(call)) {
    Simulation& simulation = TheSimulation();
    simulation.disturbances.Refresh();
    Wait(simulation, call_, lock_);
    result = Judge(simulation, call_, needs);
    simulation.state.resultIsBit = false;
    simulation.state.stuckBits =
        FindStuckBits(simulation, call_.operation) | FindStuckBits(simulation, call_.command);
}

Operation::~Operation() {
    Simulation& simulation = TheSimulation();
    call_.result = result;
    const std::string& name = call_.command.empty() ? call_.operation : call_.command;
    CallCount& count = simulation.state.callCounts[name];
    ++count.calls;
    count.failures += result != VXD_SUCCESS && !simulation.state.resultIsBit;
    TraceCall(simulation.state, call_, simulation.state.resultIsBit);
    if (simulation.state.traceCalls) {
        simulation.state.outbox.lines.push_back(Describe(call_) + '\n');
    }
    if (simulation.calls.size() == kCallsKept) {
        simulation.calls.pop_front();
    }
    simulation.calls.push_back(std::move(call_));
    simulation.worker.Attend();
    const Outbox outbox = std::exchange(simulation.state.outbox, {});
    PostMessages(outbox);
    lock_.unlock();
    WriteLines(outbox);
}

State& Operation::TheState() const {
    return TheSimulation().state;
}

uint32_t Close(Call call, unsigned needs, void (*close)(State&)) {
    const uint32_t result = Perform(std::move(call), needs, [close](State& state) {
        close(state);
        return VXD_SUCCESS;
    });
    if (result == VXD_SUCCESS) {
        TheSimulation().worker.Stop();
    }
    return result;
}

}  // namespace board
