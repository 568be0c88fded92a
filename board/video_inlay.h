// The video inlay: how the pictures of the test cameras (board/test_picture.h) come to the screen.
#pragma once

#include <cstdint>
#include <optional>

#include "board/test_picture.h"
#include "driver/result_code.h"

namespace board {

struct State;

struct VideoInlay {
    uint32_t displayMode = 0;               // 0 continuous, 1 frame by frame
    std::optional<uint32_t> frozenFrame{};  // the one that stands still on the screen
};

// Takes a display mode, or 0xF0, which freezes the pictures on the screen, or 0x0F, which lets them
// run again; both leave the display mode. Others answer VXD_INVALID_PARAMETER.
ResultCode SetFrameDisplayMode(State& state, uint32_t mode);

inline constexpr uint32_t kMillisecondsAFrame = 1000 / kFramesPerSecond;

// The number of the frame that the cameras take now, 25 a second by the board's clock. They go on
// while the screen's pictures are frozen.
uint32_t CurrentFrame(const State& state);

// The number of the frame that is on the screen.
uint32_t ShownFrame(const State& state);

}  // namespace board
