// The timers of the user-interface thread, to which everything here belongs.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <vector>

#include "platform/win32.h"

namespace vxd {

struct Timer {
    HWND window = nullptr;
    UINT_PTR id = 0;
    std::chrono::milliseconds period{0};
    std::chrono::steady_clock::time_point due;  // set when it starts
    TIMERPROC callback = nullptr;
};

class Timers {
  public:
    // In place of the one of the same window and number. Gives the timer's number: the given one
    // but for a new timer without a window.
    UINT_PTR Start(Timer timer);
    // False for a timer that does not run.
    bool Stop(HWND window, UINT_PTR id);
    // Stops all of a window that is going.
    void Forget(HWND window);
    // The due timer that has waited longest, among those of the windows that `takes` says yes to;
    // `remove` starts its period anew.
    std::optional<Timer> Due(const std::function<bool(HWND)>& takes, bool remove);
    // Until a timer is due; -1 without one.
    int MillisecondsToNext() const;

  private:
    std::vector<Timer> timers_;
    UINT_PTR nextOwnId_ = 0x7000;
};

// The user-interface thread's own.
Timers& TheTimers();

}  // namespace vxd
