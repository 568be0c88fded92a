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
    int MenuBarHeight(WidgetId window, int width) override;

    void Create(const WidgetSetup&) override {}
    void Destroy(WidgetId) override {}
    void SetText(WidgetId, const std::string&) override {}
    void SetRect(WidgetId, const Rect&) override {}
    void SetVisible(WidgetId, bool) override {}
    void SetEnabled(WidgetId, bool) override {}
    void SetFocus(WidgetId) override {}
    void SetIcon(WidgetId, const Pixels&) override {}
    void Raise(WidgetId) override {}
    void SetTopmost(WidgetId, bool) override {}
    void SetSizeLimits(WidgetId, Size, Size) override {}
    void SetMenuBar(WidgetId, const std::vector<MenuView>&) override {}
    void ShowPopup(WidgetId, const std::vector<MenuView>&, Point) override {}
    void ClosePopup() override {}
    void Draw(WidgetId, const Pixels&, const Rect&) override {}
    void SetCheck(WidgetId, int) override {}
    void SetDefaultLook(WidgetId, bool) override {}
    void SetReadOnly(WidgetId, bool) override {}
    void SetTextSelection(WidgetId, int, int) override {}
    void InsertRow(WidgetId, int, const std::string&) override {}
    void RemoveRow(WidgetId, int) override {}
    void ClearRows(WidgetId) override {}
    void SelectRow(WidgetId, int) override {}
    void SetDropped(WidgetId, bool) override {}
    void SetScroll(WidgetId, int, int, int) override {}

    void Wait(int milliseconds) override;
    void Wake() override;

  private:
    std::mutex mutex_;
    std::condition_variable woken_;
    bool wake_ = false;
    std::chrono::nanoseconds waited_{0};  // since somebody woke it; user-interface thread
};

}  // namespace vxd
