#include "board/mbe.h"

#include <algorithm>
#include <cstring>

#include "board/state.h"

namespace board {
namespace {

constexpr uint32_t kOnlyChannel = 0;
constexpr uint32_t kTextChannel = 1;
constexpr size_t kMostWaiting = 16;
constexpr size_t kBufferBytes = 100;

}  // namespace

ResultCode InitializeMbe(State& state, uint32_t channel, uint32_t capacity) {
    if (channel != kOnlyChannel || capacity == 0 || capacity > Mbe::kMostBytes) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode code = TakeStep(state, Service::kMbe, kInitialize);
    if (code == VXD_SUCCESS) {
        state.services.mbe.capacity = capacity;
    }
    return code;
}

ResultCode TerminateMbe(State& state) {
    state.services.mbe = {};
    return TakeStep(state, Service::kMbe, kTerminate);
}

ResultCode WriteMbe(State& state, const char* text, uint32_t channel, uint32_t length,
                    uint8_t end) {
    Mbe& mbe = state.services.mbe;
    if (!text || channel != kTextChannel) {
        return VXD_INVALID_PARAMETER;
    }
    if (!state.services.lifeCycles[Service::kMbe].IsActive()) {
        return VXD_ILLEGAL_OPERATION;
    }
    if (length > mbe.capacity) {
        return VXD_PACKET_TOO_BIG;
    }
    if (mbe.waiting.size() == kMostWaiting) {
        return VXD_STREAM_OVERFLOW;
    }
    mbe.waiting.emplace_back(text, length).push_back(static_cast<char>(end));
    return VXD_SUCCESS;
}

ResultCode ReadMbe(State& state, void* buffer, uint16_t* length, uint32_t* reserved) {
    if (!buffer || !length || !reserved) {
        return VXD_INVALID_PARAMETER;
    }
    std::deque<std::string>& waiting = state.services.mbe.waiting;
    *length = 0;
    *reserved = 0;
    if (!waiting.empty()) {
        const std::string& message = waiting.front();
        std::memcpy(buffer, message.data(), std::min(message.size(), kBufferBytes));
        *length = static_cast<uint16_t>(message.size() - 1);
        waiting.pop_front();
    }
    return VXD_SUCCESS;
}

}  // namespace board
