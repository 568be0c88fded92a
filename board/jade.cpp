#include "board/jade.h"

#include "board/state.h"

namespace board {
namespace {

constexpr uint32_t kRevision = 0xF0;
constexpr uint32_t kStatus = 0xF1;
constexpr uint32_t kReady = 0x01;

}  // namespace

Registers JadeAtPowerOn() {
    return {.last = 0xFF,
            .mask = 0xFF,
            .values = {{kStatus, kReady}},
            .readOnly = {kRevision, kStatus}};
}

ResultCode ReadJade(const State& state, uint32_t number, uint32_t& value) {
    if (number == kRevision) {
        value = state.revisions.jade;
        return VXD_SUCCESS;
    }
    return state.hardware.jade.Read(number, value);
}

}  // namespace board
