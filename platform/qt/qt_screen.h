// The screen for people: Qt's own widgets, so that input methods, the clipboard, high resolution
// and screen readers work as everywhere on the desktop.
//
// A QApplication exists before the screen and until it retires. All functions but Wake belong to
// the thread that made both.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <set>
#include <unordered_map>

#include "platform/qt/held_input.h"
#include "platform/qt/report.h"
#include "platform/screen.h"

class QAbstractEventDispatcher;
class QEvent;
class QFileDialog;
class QKeyEvent;
class QMenu;
class QObject;
class QTimer;
class QWidget;
class QWindow;

namespace vxd {
namespace qt {
class Control;
class TopLevel;
}  // namespace qt

class QtScreen final : public Screen {
  public:
    QtScreen();
    ~QtScreen() override;

    // Takes all windows off the desktop, for good. Afterwards the QApplication may go, and Wake
    // does nothing.
    void Retire();

    // The native widget behind a number, for pictures and tests; null if there is none.
    QWidget* NativeWidget(WidgetId id) const;
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
    class Watcher;

    // Both null for a number that stands for nothing, or for a control.
    qt::Control* Find(WidgetId id) const;
    qt::TopLevel* FindTopLevel(WidgetId id) const;
    // The control that a native widget is or belongs to.
    qt::Control* ControlOf(const QWidget* widget) const;

    // Look at native events before Qt does; true keeps the event from its receiver.
    bool InterceptAtWindow(QWindow& receiver, QEvent& event);
    bool Intercept(QWidget& receiver, QEvent& event);
    bool InterceptShortcut(QWidget& receiver, QKeyEvent& event);
    bool InterceptKey(QWidget& receiver, QKeyEvent& event);
    static bool TakesKeysFirst(const QWidget& receiver);
    static bool IsMenuBars(const QWidget& receiver, const QKeyEvent& event);
    bool OfferKey(QWidget& receiver, const QKeyEvent& event);
    void ReportRelease(const QKeyEvent& event);
    bool IsShutOut(const QWidget& receiver) const;
    // The same for something that a person does with the mouse, which leads to the window that
    // shuts the other out.
    bool KeepOut(const QWidget& receiver);
    // Whether it waits with what is held already.
    bool Hold(QObject& receiver, QEvent& event);
    void ReportFocus(const QWidget& receiver, const QEvent& event);
    void ReportActivation();
    void AskForActivation();
    // Whether what a person does now has to wait.
    bool Holds() const;
    void DeliverHeld();

    qt::Report report_;
    std::unordered_map<WidgetId, std::unique_ptr<qt::Control>> controls_;
    std::unordered_map<const QWidget*, qt::Control*> byWidget_;
    qt::HeldInput held_;
    // Something that a person did before this wait still has its turn to come in the core.
    bool coreIsBehind_ = false;
    // Alt went down and nothing else has happened since.
    bool altAlone_ = false;
    std::set<std::uint32_t> keysDown_;  // virtual keys that the core took and that are not up yet
    // The key that an open menu or list was asked about last. It may close at that already; the
    // press of the key follows.
    int popupKey_ = 0;
    // The window that the core takes for the active one, as far as it was asked for or reported.
    WidgetId active_ = 0;
    WidgetId toActivate_ = 0;  // what the desktop is still to be asked for
    WidgetId focus_ = 0;       // what the core has given the focus last
    // A disabled window that was reported as active.
    WidgetId disabledActive_ = 0;
    // Runs while the desktop may still answer a request for another active window.
    std::unique_ptr<QTimer> answerTime_;
    int requests_ = 0;  // in that time
    std::unique_ptr<QMenu> popup_;
    bool popupEnds_ = false;  // it is hidden, and its answer is still to come
    std::unique_ptr<QFileDialog> fileDialog_;
    std::mutex wakeMutex_;                  // Wake uses the dispatcher on other threads
    QAbstractEventDispatcher* dispatcher_;  // null once retired
    std::unique_ptr<QTimer> timeLimit_;
    std::atomic<bool> woken_ = false;
    std::unique_ptr<Watcher> watcher_;
};

}  // namespace vxd
