#include "platform/core/timers.h"

#include <algorithm>

#include "platform/core/window.h"

namespace vxd {
namespace {

using Clock = std::chrono::steady_clock;

constexpr UINT kShortestPeriod = 10;  // milliseconds

}  // namespace

Timers& TheTimers() {
    static Timers& timers = *new Timers;
    return timers;
}

UINT_PTR Timers::Start(Timer timer) {
    // Without a window only a number that was given here can be set again.
    if (!Stop(timer.window, timer.id) && timer.window == nullptr)
        timer.id = nextOwnId_++;
    timer.due = Clock::now() + timer.period;
    timers_.push_back(timer);
    return timer.id;
}

bool Timers::Stop(HWND window, UINT_PTR id) {
    return std::erase_if(timers_, [&](const Timer& timer) {
               return timer.window == window && timer.id == id;
           }) != 0;
}

void Timers::Forget(HWND window) {
    std::erase_if(timers_, [window](const Timer& timer) { return timer.window == window; });
}

std::optional<Timer> Timers::Due(const std::function<bool(HWND)>& takes, bool remove) {
    const auto now = Clock::now();
    Timer* next = nullptr;
    for (Timer& timer : timers_) {
        if (timer.due <= now && takes(timer.window) && (next == nullptr || timer.due < next->due))
            next = &timer;
    }
    if (next == nullptr)
        return std::nullopt;
    if (remove)
        next->due = now + next->period;
    return *next;
}

int Timers::MillisecondsToNext() const {
    if (timers_.empty())
        return -1;
    const auto due =
        std::min_element(timers_.begin(), timers_.end(), [](const Timer& a, const Timer& b) {
            return a.due < b.due;
        })->due;
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(due - Clock::now());
    return std::max(0, static_cast<int>(left.count()));
}

}  // namespace vxd

UINT_PTR WINAPI SetTimer(HWND window, UINT_PTR id, UINT milliseconds, TIMERPROC callback) {
    if (window != nullptr && !vxd::IsLiveWindow(window))
        return 0;
    vxd::Timer timer;
    timer.window = window;
    timer.id = id;
    timer.period = std::chrono::milliseconds(std::max(milliseconds, vxd::kShortestPeriod));
    timer.callback = callback;
    return vxd::TheTimers().Start(timer);
}

BOOL WINAPI KillTimer(HWND window, UINT_PTR id) {
    return vxd::TheTimers().Stop(window, id);
}
