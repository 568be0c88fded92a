// The screen without a display, for tests and sanitizers: shows nothing, measures as one fixed font
// would, and waits.
//
// A modal box that nobody will answer ends the process with the box's text instead of hanging: when
// a modal dialog waits longer than kPatience for anything but timers to happen.
#pragma once

#include <chrono>
#include <condition_variable>
#include <mutex>

#include "platform/screen.h"

namespace vxd {

class HeadlessScreen : public Screen {
  public:
    static constexpr std::chrono::seconds kPatience{10};

    FontMetrics DialogFont() override;
    Size TextSize(const std::string& text, int wrapWidth) override;
    Rect WorkArea() override;

    Widget& Create(const WidgetSetup& setup) override;
    void Destroy(WidgetId) override {}
    void SetFocus(WidgetId) override {}
    void Raise(WidgetId) override {}
    void ShowPopup(WidgetId, const std::vector<MenuView>&, Point) override {}
    void ClosePopup() override {}

    void Wait(int milliseconds) override;
    void Wake() override;

  private:
    std::mutex mutex_;
    std::condition_variable woken_;
    bool wake_ = false;
    std::chrono::nanoseconds waited_{0};  // since somebody woke it; user-interface thread
};

}  // namespace vxd
