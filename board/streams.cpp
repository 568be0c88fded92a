#include "board/streams.h"

#include "board/state.h"
#include "driver/papi.h"

namespace board {
namespace {

constexpr uint32_t kVideoBandwidth = 320;
constexpr uint32_t kAudioBandwidth = 64;

}  // namespace

Stream* FindStream(State& state, uint32_t number) {
    const auto found = state.firmware.streams.find(number);
    return found == state.firmware.streams.end() ? nullptr : &found->second;
}

ResultCode OpenStream(State& state, uint32_t number) {
    Stream* stream = FindStream(state, number);
    if (!stream) {
        return VXD_INVALID_PARAMETER;
    }
    if (stream->open) {
        return VXD_FAILED_STREAM_OPEN;
    }
    *stream = {.open = true};
    return VXD_SUCCESS;
}

ResultCode CloseStream(State& state, uint32_t number) {
    Stream* stream = FindStream(state, number);
    if (!stream) {
        return VXD_INVALID_PARAMETER;
    }
    if (!stream->open) {
        return VXD_FAILED_STREAM_CLOSE;
    }
    *stream = {};
    return VXD_SUCCESS;
}

uint32_t BandwidthOfStreams(const State& state) {
    uint32_t bandwidth = 0;
    for (const auto& [number, stream] : state.firmware.streams) {
        if (stream.open) {
            bandwidth += number == STREAM_VIDEO ? kVideoBandwidth : kAudioBandwidth;
        }
    }
    return bandwidth;
}

}  // namespace board
