// The video post-processing: the mode that it was given, and its statistics about the motion in the
// remote picture.
#pragma once

#include <cstdint>

#include "driver/result_code.h"
#include "driver/vpp.h"

namespace board {

struct State;

struct Vpp {
    uint32_t mode = VPP_MODE_NONE;
    VppParameters parameters{20, 20, 20, {}};

    // The statistics.
    HWND window = nullptr;  // that they go to; null while there are none
    unsigned turn = 0;      // a job of another turn has nothing to do any more
    VppStatistics newest{};
    bool onItsWay = false;  // the newest record has been announced and not been taken yet
};

// Takes a mode word and its parameters while the post-processing is up, else
// VXD_CONFIGURATION_NOT_SET. A word that is none, or no parameters: VXD_INVALID_PARAMETER.
ResultCode SetVppMode(State& state, uint32_t mode, const VppParameters* parameters);

// The window in which records wait until the thread that made it takes them; null where none can be
// made. Made by the first thread that asks, which is then the one that gets the statistics; without
// the board's lock.
HWND VppRelay();

// Sends statistics to a window, at the frame rate that the post-processing was given, at most that
// of the picture and with 0 at that of the picture. A record that is not taken in time is replaced
// by the next one. VXD_INVALID_PARAMETER for no window, VXD_BUSY_WITH_PRIOR_REQUEST while they go
// to another, VXD_CONFIGURATION_NOT_SET while the post-processing is down, VXD_RESOURCE_FAILURE
// without a relay.
ResultCode StartVppStatistics(State& state, HWND relay, HWND window);
// VXD_CONFIGURATION_NOT_SET where there are none. No record is sent behind it.
ResultCode StopVppStatistics(State& state);

// The record at a time: the motion since the frame that was taken one period of the statistics
// before, so that records that follow one another by the period tell all of the picture's motion.
// Up to 127 pixels to either side. The times grow with what moves.
VppStatistics MeasureMotion(const State& state);

}  // namespace board
