#include "platform/qt/held_input.h"

#include <QApplication>
#include <QDropEvent>
#include <QKeyEvent>
#include <QMimeData>
#include <QScopedValueRollback>
#include <QWidget>
#include <QWindow>
#include <utility>

#include "platform/qt/report.h"

namespace vxd::qt {
namespace {

bool GoesWithKeyboard(const QEvent& event) {
    return event.type() == QEvent::KeyPress || event.type() == QEvent::KeyRelease ||
           event.type() == QEvent::InputMethod;
}

// What a key goes to: an open menu or list, else whatever has the focus in the active window.
QObject* KeyboardOwner(QWidget* active) {
    QWidget* window = QApplication::activePopupWidget();
    if (window == nullptr) {
        window = active;
    }
    if (window == nullptr) {
        return nullptr;
    }
    return window->focusWidget() != nullptr ? window->focusWidget() : window;
}

bool IsThere(const QObject& receiver) {
    return receiver.isWindowType() ? static_cast<const QWindow&>(receiver).isVisible()
                                   : static_cast<const QWidget&>(receiver).isVisible();
}

// The text of what is dropped; nothing else means anything to the program's controls. Its sender
// may take back the rest before its turn.
std::unique_ptr<QMimeData> TextOf(const QMimeData& dropped) {
    auto text = std::make_unique<QMimeData>();
    if (dropped.hasText()) {
        text->setText(dropped.text());
    }
    return text;
}

}  // namespace

HeldInput::HeldInput(const Report& report) : report_(report) {}

HeldInput::~HeldInput() = default;

bool HeldInput::ConcernsWindow(const QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::Drop:
        case QEvent::Close:
            return true;
        default:
            return false;
    }
}

bool HeldInput::ConcernsWidget(const QEvent& event) {
    return event.type() == QEvent::InputMethod;
}

bool HeldInput::HasToWaitForCore() const {
    return coreIsBehind_ || popupEnds_ || report_.Handed();
}

bool HeldInput::Holds() const {
    return report_.IsOpen() && !delivering_ && (HasToWaitForCore() || !events_.empty());
}

bool HeldInput::Hold(QObject& receiver, QEvent& event) {
    if (!Holds()) {
        return false;
    }
    Add(receiver, event);
    return true;
}

void HeldInput::Add(QObject& receiver, QEvent& event) {
    if (event.type() == QEvent::Drop) {
        auto& drop = static_cast<QDropEvent&>(event);
        auto text = TextOf(*drop.mimeData());
        auto kept = std::make_unique<QDropEvent>(drop.position(), Qt::CopyAction, text.get(),
                                                 drop.buttons(), drop.modifiers());
        events_.push_back({&receiver, std::move(kept), std::move(text)});
        // Its sender keeps what it dragged.
        drop.setDropAction(Qt::CopyAction);
        drop.accept();
        return;
    }
    // Of the ways of the mouse between two other events the last is enough.
    const bool moves = event.type() == QEvent::MouseMove;
    if (moves && !events_.empty() && events_.back().receiver == &receiver &&
        events_.back().event->type() == QEvent::MouseMove) {
        events_.pop_back();
    }
    events_.push_back({&receiver, std::unique_ptr<QEvent>(event.clone()), nullptr});
    // Nobody has agreed to close the window yet.
    if (event.type() == QEvent::Close) {
        event.ignore();
    }
}

void HeldInput::Deliver(const std::function<QWidget*()>& active) {
    while (!events_.empty() && !HasToWaitForCore()) {
        DeliverFirst(active());
    }
}

void HeldInput::DeliverFirst(QWidget* active) {
    const Held held = std::move(events_.front());
    events_.pop_front();
    const QScopedValueRollback delivering(delivering_, true);
    if (GoesWithKeyboard(*held.event)) {
        QObject* owner = KeyboardOwner(active);
        if (owner == nullptr) {
            owner = held.receiver;
        }
        if (owner != nullptr) {
            DeliverKey(held, *owner);
        }
    } else if (held.receiver != nullptr && IsThere(*held.receiver)) {
        // As the desktop sent it: of what a program sends Qt hands the wheel to no parent.
        QCoreApplication::instance()->notify(held.receiver, held.event.get());
    }
}

void HeldInput::DeliverKey(const Held& held, QObject& receiver) {
    const QPointer<QObject> still = &receiver;
    // The desktop asks first whether a widget wants the key for itself. An open list may close at
    // that already.
    if (held.event->type() == QEvent::KeyPress) {
        const auto& key = static_cast<const QKeyEvent&>(*held.event);
        QKeyEvent question(QEvent::ShortcutOverride, key.key(), key.modifiers(), key.text(),
                           key.isAutoRepeat());
        QCoreApplication::sendEvent(still, &question);
    }
    if (still != nullptr) {
        QCoreApplication::sendEvent(still, held.event.get());
    }
}

void HeldInput::Clear() {
    events_.clear();
}

}  // namespace vxd::qt
