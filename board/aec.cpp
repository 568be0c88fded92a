#include "board/aec.h"

#include "board/state.h"

namespace board {

ResultCode Aec::SetMode(uint32_t code) {
    if (code > 0xFF) {
        return VXD_INVALID_PARAMETER;
    }
    latch_ = static_cast<uint8_t>(code);
    return VXD_SUCCESS;
}

ResultCode InitializeAec(State& state) {
    const ResultCode code = TakeStep(state, Service::kAec, kInitialize);
    if (code == VXD_SUCCESS) {
        state.hardware.aec = {};
    }
    return code;
}

}  // namespace board
