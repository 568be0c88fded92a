#include "platform/qt/held_input.h"

#include <QApplication>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QWidget>
#include <QWindow>
#include <utility>

namespace vxd::qt {
namespace {

bool IsKey(const QEvent& event) {
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease;
}

// What a key goes to, in a window that has the keyboard.
QWidget* FocusIn(QWidget& window) {
    return window.focusWidget() != nullptr ? window.focusWidget() : &window;
}

}  // namespace

HeldInput::HeldInput() = default;
HeldInput::~HeldInput() = default;

bool HeldInput::Concerns(const QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

void HeldInput::Add(QWindow& window, const QEvent& event) {
    // Of the ways of the mouse between two other events the last is enough.
    const bool moves = event.type() == QEvent::MouseMove;
    if (moves && !events_.empty() && events_.back().window == &window &&
        events_.back().event->type() == QEvent::MouseMove)
        events_.pop_back();
    events_.push_back({&window, std::unique_ptr<QEvent>(event.clone())});
}

void HeldInput::DeliverFirst(QWidget* active) {
    const Held held = std::move(events_.front());
    events_.pop_front();
    const QScopedValueRollback delivering(delivering_, true);
    if (IsKey(*held.event))
        DeliverKey(held, active);
    else if (held.window != nullptr && held.window->isVisible())
        QCoreApplication::sendEvent(held.window, held.event.get());
}

void HeldInput::DeliverKey(const Held& held, QWidget* active) {
    QWidget* window = QApplication::activePopupWidget();
    if (window == nullptr)
        window = active;
    const QPointer<QObject> receiver =
        window != nullptr ? static_cast<QObject*>(FocusIn(*window)) : held.window.data();
    const auto& key = static_cast<const QKeyEvent&>(*held.event);
    // The desktop asks first whether a widget wants the key for itself. An open list may close at
    // that already.
    if (receiver != nullptr && key.type() == QEvent::KeyPress) {
        QKeyEvent question(QEvent::ShortcutOverride, key.key(), key.modifiers(), key.text(),
                           key.isAutoRepeat());
        QCoreApplication::sendEvent(receiver, &question);
    }
    if (receiver != nullptr)
        QCoreApplication::sendEvent(receiver, held.event.get());
}

void HeldInput::Clear() {
    events_.clear();
}

}  // namespace vxd::qt
