#include "platform/qt/input_filter.h"

#include <QApplication>
#include <QKeyEvent>
#include <QListView>
#include <QMenuBar>
#include <QWindow>
#include <utility>

#include "platform/qt/control.h"
#include "platform/qt/controls.h"
#include "platform/qt/held_input.h"
#include "platform/qt/keys.h"
#include "platform/qt/report.h"
#include "platform/qt/top_level.h"

namespace vxd::qt {
namespace {

bool IsAltLetter(const input::KeyPress& key) {
    return key.alt && !key.control && key.character != 0;
}

// Whether a key comes to the widget from the desktop, and not on its way up from the focus.
bool TakesKeysFirst(const QWidget& receiver) {
    const QWidget* focus = receiver.window()->focusWidget();
    return focus != nullptr ? focus == &receiver : receiver.isWindow();
}

// An active menu bar has its keys for itself, but for a letter with Alt, which leaves it first.
bool IsMenuBars(const QWidget& receiver, const QKeyEvent& event) {
    return dynamic_cast<const QMenuBar*>(receiver.window()->focusWidget()) != nullptr &&
           !IsAltLetter(ToKeyPress(event));
}

}  // namespace

InputFilter::InputFilter(const Controls& controls, HeldInput& held, Report& report)
    : controls_(controls), held_(held), report_(report) {
    qApp->installEventFilter(this);
}

bool InputFilter::eventFilter(QObject* receiver, QEvent* event) {
    if (receiver->isWindowType()) {
        return InterceptAtWindow(*static_cast<QWindow*>(receiver), *event);
    }
    return receiver->isWidgetType() && Intercept(*static_cast<QWidget*>(receiver), *event);
}

bool InputFilter::InterceptAtWindow(QWindow& receiver, QEvent& event) {
    // A list that closed when it was asked about the key has dealt with it.
    if (event.type() == QEvent::KeyPress && static_cast<QKeyEvent&>(event).key() == popupKey_) {
        return false;
    }
    return HeldInput::ConcernsWindow(event) && held_.Hold(receiver, event);
}

bool InputFilter::Intercept(QWidget& receiver, QEvent& event) {
    if (HeldInput::ConcernsWidget(event) && held_.Hold(receiver, event)) {
        return true;
    }
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return InterceptKey(receiver, static_cast<QKeyEvent&>(event));
        case QEvent::ShortcutOverride:
            return InterceptShortcut(receiver, static_cast<QKeyEvent&>(event));
        case QEvent::FocusIn:
            ReportFocus(receiver, event);
            return false;
        case QEvent::WindowDeactivate:
            altAlone_ = false;
            return false;
        case QEvent::MouseButtonPress:
            altAlone_ = false;
            return KeepOut(receiver);
        case QEvent::MouseButtonDblClick:
            return KeepOut(receiver);
        case QEvent::MouseButtonRelease:
            // Whatever was pressed while the window took input comes up again. What that does is
            // the core's to drop.
            return false;
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::Enter:
        case QEvent::HoverEnter:
        case QEvent::HoverMove:
        case QEvent::ContextMenu:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
            return controls_.IsShutOut(receiver);
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
        case QEvent::Close:
            if (!controls_.IsShutOut(receiver)) {
                return false;
            }
            event.ignore();
            return true;
        default:
            return false;
    }
}

bool InputFilter::InterceptShortcut(QWidget& receiver, QKeyEvent& event) {
    // A key that waits is asked about again when its turn has come.
    if (held_.Holds()) {
        event.accept();
        return true;
    }
    if (QApplication::activePopupWidget() != nullptr) {
        popupKey_ = event.key();
        return false;
    }
    if (TakesKeysFirst(receiver)) {
        popupKey_ = 0;
    }
    // What a key does in the program's windows is told below or said by the core; Qt's own
    // mnemonics must not take it.
    if (controls_.Of(receiver.window()) == nullptr || IsMenuBars(receiver, event)) {
        return false;
    }
    event.accept();
    return true;
}

bool InputFilter::InterceptKey(QWidget& receiver, QKeyEvent& event) {
    if (event.type() == QEvent::KeyRelease && !event.isAutoRepeat()) {
        ReportRelease(event);
    }
    if (controls_.IsShutOut(receiver)) {
        return true;
    }
    const bool isPress = event.type() == QEvent::KeyPress;
    const bool altCameAlone = std::exchange(altAlone_, false);
    const bool beganInPopup = isPress && std::exchange(popupKey_, 0) == event.key();
    if (QApplication::activePopupWidget() != nullptr || IsMenuBars(receiver, event)) {
        return false;
    }
    if (beganInPopup) {
        return true;
    }
    if (!report_.IsOpen() || !TakesKeysFirst(receiver) || controls_.Of(&receiver) == nullptr) {
        return false;
    }
    const bool isAlt = event.key() == Qt::Key_Alt;
    if (isPress) {
        altAlone_ = isAlt;
        return OfferKey(receiver, event);
    }
    TopLevel* top = controls_.TopLevelOf(receiver);
    return isAlt && altCameAlone && top != nullptr && top->EnterMenuBar();
}

bool InputFilter::OfferKey(QWidget& receiver, const QKeyEvent& event) {
    const input::KeyPress key = ToKeyPress(event);
    TopLevel* top = controls_.TopLevelOf(receiver);
    const bool opensMenuBar = event.key() == Qt::Key_F10 && event.modifiers() == Qt::NoModifier;
    if (top != nullptr && opensMenuBar && top->EnterMenuBar()) {
        return true;
    }
    const bool isAltLetter = IsAltLetter(key);
    if (top != nullptr && isAltLetter && top->OpenMenu(key.character)) {
        return true;
    }
    if (report_(input::KeyPressed, controls_.Of(&receiver)->Id(), key)) {
        keysDown_.insert(key.virtualKey);
        return true;
    }
    // An edit would take the letter as text.
    return isAltLetter && controls_.Of(receiver.window())->Kind() == WidgetKind::kDialog;
}

// A key that the core has taken comes up for it too, whoever has the keyboard by then.
void InputFilter::ReportRelease(const QKeyEvent& event) {
    const input::KeyPress key = ToKeyPress(event);
    if (keysDown_.erase(key.virtualKey) != 0) {
        report_(input::KeyReleased, key);
    }
}

void InputFilter::ReportFocus(const QWidget& receiver, const QEvent& event) {
    // With a window or a menu the focus comes and goes without the person moving it.
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
        reason == Qt::MenuBarFocusReason) {
        return;
    }
    const Control* control = controls_.Of(&receiver);
    // A list tells of the mouse that brings it the focus by itself, if the press gets to it.
    const bool tellsItself = reason == Qt::MouseFocusReason && !controls_.IsShutOut(receiver) &&
                             dynamic_cast<const QListView*>(&receiver) != nullptr;
    if (control != nullptr && !tellsItself) {
        report_(input::Focused, control->Id());
    }
}

bool InputFilter::KeepOut(const QWidget& receiver) {
    if (!controls_.IsShutOut(receiver)) {
        return false;
    }
    report_(input::Activated, controls_.Of(receiver.window())->Id(), true);
    return true;
}

}  // namespace vxd::qt
