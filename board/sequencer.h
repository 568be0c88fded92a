// The sequencer: the driver's part that keeps its clients' accesses to the board apart.
//
// - A client registers once (VXD_OPERATION_ALREADY_DONE) with a value that the library has given
//   (VXD_INVALID_PARAMETER), and unregisters after that (VXD_CONFIGURATION_NOT_SET).
// - The critical section is entered once and then left, else VXD_CRIT_ERROR; so is each device's
//   atomic section, else VXD_ATOM_ERROR. Devices are 0 to 6, else VXD_INVALID_PARAMETER.
// - An interrupt can be simulated for the ten sources of its mask, while the sequencer is up, else
//   VXD_IRQ_ERROR.
// Terminating and resetting it forget the client and the sections.
// Everything but an interrupt answers VXD_CONFIGURATION_NOT_SET while the sequencer is down.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <set>

#include "driver/parameter_block.h"
#include "driver/result_code.h"

namespace board {

struct State;

struct Sequencer {
    static constexpr size_t kInterruptSources = 10;

    bool registered = false;
    bool inCriticalSection = false;
    std::set<uint16_t> inAtomicSection{};                  // devices
    std::array<uint32_t, kInterruptSources> interrupts{};  // simulated, by bit of the mask
};

ResultCode TerminateSequencer(State& state);
ResultCode RegisterSequencer(State& state, const SequencerRegisterBlock& block);
ResultCode UnregisterSequencer(State& state, const SequencerUnregisterBlock& block);
ResultCode EnterCriticalSection(State& state);
ResultCode LeaveCriticalSection(State& state);
ResultCode EnterAtomicSection(State& state, const AtomBlock& block);
ResultCode LeaveAtomicSection(State& state, const AtomBlock& block);
ResultCode SimulateInterrupts(State& state, const InterruptBlock& block);

}  // namespace board
