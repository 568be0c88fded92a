#include "board/vpp.h"

#include <algorithm>
#include <chrono>
#include <limits>
#include <mutex>
#include <optional>

#include "board/life_cycle.h"
#include "board/simulation.h"
#include "board/state.h"
#include "board/test_picture.h"
#include "board/video_inlay.h"

namespace board {
namespace {

static_assert(kMotionColumns == kMacroblockColumns && kMotionRows == kMacroblockRows);

constexpr char kRelayClass[] = "VxDBoardVppRelay";
constexpr UINT kRecordIsReady = WM_APP;

bool IsMode(uint32_t mode) {
    switch (mode) {
        case VPP_MODE_NONE:
        case VPP_MODE_DUPLICATE:
        case VPP_MODE_LINEAR:
        case VPP_MODE_TOGGLE_FILTER:
        case VPP_MODE_TOGGLE_VECTORS:
            return true;
        default:
            return false;
    }
}

// Of the statistics, in milliseconds.
uint32_t Period(const Vpp& vpp) {
    const uint32_t rate = vpp.parameters.frameRate;
    return 1000 / (rate == 0 ? kFramesPerSecond : std::min(rate, kFramesPerSecond));
}

int8_t Component(int pixels) {
    using Limits = std::numeric_limits<int8_t>;
    return static_cast<int8_t>(
        std::clamp(pixels, static_cast<int>(Limits::min()), static_cast<int>(Limits::max())));
}

// Hands the newest record over, on the relay's thread: the record lies in this function as long as
// the receiver looks at it.
LRESULT CALLBACK RelayProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != kRecordIsReady) {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    HWND receiver = nullptr;
    VppStatistics record{};
    {
        const std::lock_guard lock(TheSimulation().lock);
        Vpp& vpp = TheSimulation().state.services.vpp;
        vpp.onItsWay = false;
        receiver = vpp.window;
        record = vpp.newest;
    }
    if (receiver) {
        SendMessageA(receiver, WM_VPP_STATIST_DATA, 0, reinterpret_cast<LPARAM>(&record));
    }
    return 0;
}

HWND MakeRelay() {
    WNDCLASSA relay{};
    relay.lpfnWndProc = RelayProcedure;
    relay.hInstance = GetModuleHandleA(nullptr);
    relay.lpszClassName = kRelayClass;
    RegisterClassA(&relay);
    return CreateWindowExA(0, kRelayClass, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr,
                           relay.hInstance, nullptr);
}

void End(State& state) {
    Vpp& vpp = state.services.vpp;
    state.outbox.messages.push_back({vpp.window, WM_VPP_STATIST_TERM});
    vpp.window = nullptr;
    ++vpp.turn;
}

// Announces a record, once for all that are not taken in time, and comes again: a period after it
// was due, if that is still to come, so that the records' periods neither leave out a frame nor
// tell of it twice.
void SendRecords(State& state, HWND relay, unsigned turn, Schedule::Clock::time_point due) {
    Vpp& vpp = state.services.vpp;
    if (vpp.turn != turn || !vpp.window) {
        return;
    }
    if (!state.services.lifeCycles[Service::kVpp].IsUp()) {
        End(state);
        return;
    }
    vpp.newest = MeasureMotion(state);
    if (!vpp.onItsWay) {
        vpp.onItsWay = true;
        state.outbox.messages.push_back({relay, kRecordIsReady});
    }
    const auto next =
        std::max(due + std::chrono::milliseconds(Period(vpp)), Schedule::Clock::now());
    state.schedule.At(next,
                      [relay, turn, next](State& later) { SendRecords(later, relay, turn, next); });
}

}  // namespace

ResultCode SetVppMode(State& state, uint32_t mode, const VppParameters* parameters) {
    if (!IsMode(mode) || !parameters) {
        return VXD_INVALID_PARAMETER;
    }
    state.services.vpp.mode = mode;
    state.services.vpp.parameters = *parameters;
    return VXD_SUCCESS;
}

HWND VppRelay() {
    static const HWND relay = MakeRelay();
    return relay;
}

ResultCode StartVppStatistics(State& state, HWND relay, HWND window) {
    if (!IsWindow(window)) {
        return VXD_INVALID_PARAMETER;
    }
    if (!relay) {
        return VXD_RESOURCE_FAILURE;
    }
    Vpp& vpp = state.services.vpp;
    if (vpp.window && vpp.window != window && IsWindow(vpp.window)) {
        return VXD_BUSY_WITH_PRIOR_REQUEST;
    }
    const ResultCode code = NeedUp(state, Service::kVpp);
    if (code != VXD_SUCCESS) {
        return code;
    }
    vpp.window = window;
    vpp.onItsWay = false;
    state.outbox.messages.push_back({window, WM_VPP_STATIST_INIT});
    const auto now = Schedule::Clock::now();
    state.schedule.At(now, [relay, turn = ++vpp.turn, now](State& later) {
        SendRecords(later, relay, turn, now);
    });
    return VXD_SUCCESS;
}

ResultCode StopVppStatistics(State& state) {
    if (!state.services.vpp.window) {
        return VXD_CONFIGURATION_NOT_SET;
    }
    End(state);
    return VXD_SUCCESS;
}

VppStatistics MeasureMotion(const State& state) {
    const uint32_t frame = CurrentFrame(state);
    const uint32_t period = std::min(Period(state.services.vpp), state.Time());
    const uint32_t before = (state.Time() - period) / kMillisecondsAFrame;
    VppStatistics record{};
    record.frame = static_cast<int8_t>(frame);
    uint16_t moving = 0;
    for (int row = 0; row < kMotionRows; ++row) {
        for (int column = 0; column < kMotionColumns; ++column) {
            const Motion motion = MotionOf(VideoChannel::kRemote, before, frame, column, row);
            moving += motion != Motion{};
            record.vectors[static_cast<size_t>(row * kMotionColumns + column)] = {
                Component(motion.x), Component(motion.y)};
        }
    }
    record.extrapolateTime = static_cast<uint16_t>(180 + 5 * moving);
    record.frameProcessTime = static_cast<uint16_t>(2400 + 11 * moving);
    record.macroblockProcessTime = static_cast<uint16_t>(6 + moving / 40);
    return record;
}

}  // namespace board
