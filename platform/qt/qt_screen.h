// The screen for people: Qt's own widgets, so that input methods, the clipboard, high resolution
// and screen readers work as everywhere on the desktop.
//
// A QApplication exists before the screen and until it retires. All functions but Wake belong to
// the thread that made both.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <vector>

#include "platform/qt/activation.h"
#include "platform/qt/controls.h"
#include "platform/qt/held_input.h"
#include "platform/qt/report.h"
#include "platform/screen.h"

class QAbstractEventDispatcher;
class QFileDialog;
class QMenu;
class QTimer;
class QWidget;

namespace vxd {

namespace qt {
class InputFilter;
}  // namespace qt

class QtScreen final : public Screen {
  public:
    QtScreen();
    ~QtScreen() override;

    // Takes all windows off the desktop, for good. Afterwards the QApplication may go, and Wake
    // does nothing.
    void Retire();

    // The native widget behind a number, for pictures and tests; null if there is none.
    QWidget* NativeWidget(WidgetId id) const { return controls_.NativeWidget(id); }
    // Whether something that a person did has not been handed to the core yet; for tests.
    bool HoldsInput() const { return !held_.IsEmpty(); }

    FontMetrics DialogFont() override;
    Size TextSize(const std::string& text, int wrapWidth) override;
    Rect WorkArea() override;

    Widget& Create(const WidgetSetup& setup) override;
    void Destroy(WidgetId id) override;
    void SetFocus(WidgetId id) override;
    void Raise(WidgetId id) override;

    void ShowPopup(WidgetId id, const std::vector<MenuView>& menu, Point where) override;
    void ClosePopup() override;
    void AskForFile(const FileQuestion& question) override;
    void CloseFileDialog() override;

    void Wait(int milliseconds) override;
    void Wake() override;

  private:
    // The window that the core has given the keyboard; null for none.
    QWidget* KeyboardWindow() const;

    qt::Report report_;
    qt::Controls controls_;
    qt::HeldInput held_;
    qt::Activation activation_;
    std::unique_ptr<qt::InputFilter> filter_;  // null once retired
    WidgetId focus_ = 0;                       // what the core has given the focus last
    std::unique_ptr<QMenu> popup_;
    std::unique_ptr<QFileDialog> fileDialog_;
    std::mutex wakeMutex_;                  // Wake uses the dispatcher on other threads
    QAbstractEventDispatcher* dispatcher_;  // null once retired
    std::unique_ptr<QTimer> timeLimit_;
    std::atomic<bool> woken_ = false;
};

}  // namespace vxd
