#include "board/sequencer.h"

#include <utility>

#include "board/state.h"

namespace board {
namespace {

constexpr uint16_t kLastDevice = 6;

// Lets `work` use the sequencer while it is up.
template <typename Work>
ResultCode OnSequencer(State& state, Work work) {
    const ResultCode result = NeedUp(state, Service::kSequencer);
    return result == VXD_SUCCESS ? work(state.services.sequencer) : result;
}

// Enters (`inside`) or leaves the critical section.
ResultCode CrossCriticalSection(State& state, bool inside) {
    return OnSequencer(state, [=](Sequencer& sequencer) {
        const bool was = std::exchange(sequencer.inCriticalSection, inside);
        return was == inside ? VXD_CRIT_ERROR : VXD_SUCCESS;
    });
}

}  // namespace

ResultCode TerminateSequencer(State& state) {
    const ResultCode result = TakeStep(state, Service::kSequencer, kTerminate);
    if (result == VXD_SUCCESS) {
        state.services.sequencer = {};
    }
    return result;
}

ResultCode RegisterSequencer(State& state, const SequencerRegisterBlock& block) {
    return OnSequencer(state, [&](Sequencer& sequencer) {
        return state.registrations.IsGiven(Client::kSequencer, 0, block.registration)
                   ? Register(sequencer.registered)
                   : VXD_INVALID_PARAMETER;
    });
}

ResultCode UnregisterSequencer(State& state, const SequencerUnregisterBlock&) {
    return OnSequencer(state,
                       [](Sequencer& sequencer) { return Unregister(sequencer.registered); });
}

ResultCode EnterCriticalSection(State& state) {
    return CrossCriticalSection(state, true);
}

ResultCode LeaveCriticalSection(State& state) {
    return CrossCriticalSection(state, false);
}

ResultCode EnterAtomicSection(State& state, const AtomBlock& block) {
    return OnSequencer(state, [&](Sequencer& sequencer) {
        if (block.device.value > kLastDevice) {
            return VXD_INVALID_PARAMETER;
        }
        const bool entered = sequencer.inAtomicSection.insert(block.device.value).second;
        return entered ? VXD_SUCCESS : VXD_ATOM_ERROR;
    });
}

ResultCode LeaveAtomicSection(State& state, const AtomBlock& block) {
    return OnSequencer(state, [&](Sequencer& sequencer) {
        if (block.device.value > kLastDevice) {
            return VXD_INVALID_PARAMETER;
        }
        const bool left = sequencer.inAtomicSection.erase(block.device.value) != 0;
        return left ? VXD_SUCCESS : VXD_ATOM_ERROR;
    });
}

ResultCode SimulateInterrupts(State& state, const InterruptBlock& block) {
    const bool known = block.mask >> Sequencer::kInterruptSources == 0;
    if (!known || NeedUp(state, Service::kSequencer) != VXD_SUCCESS) {
        return VXD_IRQ_ERROR;
    }
    for (size_t source = 0; source < Sequencer::kInterruptSources; ++source) {
        state.services.sequencer.interrupts[source] += block.mask >> source & 1;
    }
    return VXD_SUCCESS;
}

}  // namespace board
