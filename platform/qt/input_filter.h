// What a person does, looked at before Qt's widgets get it.
#pragma once

#include <QObject>
#include <cstdint>
#include <set>

class QEvent;
class QKeyEvent;
class QWidget;
class QWindow;

namespace vxd::qt {

class Controls;
class HeldInput;
class Report;

// Holds what has to wait, keeps all input from windows that take none, offers keys to the core and
// leads Alt to the menu bar. Belongs to Qt's thread, and to the QApplication that there is when it
// is made.
class InputFilter : public QObject {
  public:
    // All of them outlive it.
    InputFilter(const Controls& controls, HeldInput& held, Report& report);

    bool eventFilter(QObject* receiver, QEvent* event) override;

  private:
    // True keeps the event from its receiver.
    bool InterceptAtWindow(QWindow& receiver, QEvent& event);
    bool Intercept(QWidget& receiver, QEvent& event);
    bool InterceptShortcut(QWidget& receiver, QKeyEvent& event);
    bool InterceptKey(QWidget& receiver, QKeyEvent& event);
    bool OfferKey(QWidget& receiver, const QKeyEvent& event);
    void ReportRelease(const QKeyEvent& event);
    void ReportFocus(const QWidget& receiver, const QEvent& event);
    // Whether a press of the mouse is kept from a window that takes no input; it leads to the
    // window that shuts the other out.
    bool KeepOut(const QWidget& receiver);

    const Controls& controls_;
    HeldInput& held_;
    Report& report_;
    // Alt went down and nothing else has happened since.
    bool altAlone_ = false;
    std::set<std::uint32_t> keysDown_;  // virtual keys that the core took and that are not up yet
    // The key that an open menu or list was asked about last. It may close at that already; the
    // press of the key follows.
    int popupKey_ = 0;
};

}  // namespace vxd::qt
