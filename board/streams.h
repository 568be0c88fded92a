// The media streams of a call: video, audio to the board, audio from the board (MediaStream in
// driver/papi.h), whichever library or command reaches them. A number that no stream has answers
// VXD_INVALID_PARAMETER.
#pragma once

#include <cstdint>
#include <deque>

#include "driver/result_code.h"

namespace board {

struct State;

struct Stream {
    bool open = false;
    std::deque<uint32_t> words{};
    uint16_t resyncs = 0;
};

// Null for a number that no stream has.
Stream* FindStream(State& state, uint32_t number);

// A stream that is open already answers VXD_FAILED_STREAM_OPEN.
ResultCode OpenStream(State& state, uint32_t number);
// What waits in it is gone. A stream that is not open answers VXD_FAILED_STREAM_CLOSE.
ResultCode CloseStream(State& state, uint32_t number);

// What the open streams take together, in kbit/s: 320 video, 64 audio in each direction.
uint32_t BandwidthOfStreams(const State& state);

}  // namespace board
