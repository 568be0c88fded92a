#include "board/video_inlay.h"

#include "board/state.h"

namespace board {

ResultCode SetFrameDisplayMode(State& state, uint32_t mode) {
    constexpr uint32_t kContinuous = 0;
    constexpr uint32_t kFrameByFrame = 1;
    constexpr uint32_t kFreeze = 0xF0;
    constexpr uint32_t kRun = 0x0F;
    VideoInlay& inlay = state.services.videoInlay;
    switch (mode) {
        case kContinuous:
        case kFrameByFrame:
            inlay.displayMode = mode;
            return VXD_SUCCESS;
        case kFreeze:
            inlay.frozenFrame = ShownFrame(state);
            return VXD_SUCCESS;
        case kRun:
            inlay.frozenFrame.reset();
            return VXD_SUCCESS;
        default:
            return VXD_INVALID_PARAMETER;
    }
}

uint32_t CurrentFrame(const State& state) {
    return state.Time() / kMillisecondsAFrame;
}

uint32_t ShownFrame(const State& state) {
    return state.services.videoInlay.frozenFrame.value_or(CurrentFrame(state));
}

}  // namespace board
