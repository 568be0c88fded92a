// What a person did while the core had yet to deal with what came before.
#pragma once

#include <QPointer>
#include <deque>
#include <memory>

class QEvent;
class QMimeData;
class QWidget;

namespace vxd::qt {

// Native events of keys, input methods, mouse, drops and close boxes in the order in which they
// came. Each is handed on when its turn has come, as the desktop would hand it over: a key and what
// an input method makes to the window that has the keyboard then, any other event to what it was
// meant for, if that is still there.
class HeldInput {
  public:
    HeldInput();
    ~HeldInput();
    HeldInput(const HeldInput&) = delete;
    HeldInput& operator=(const HeldInput&) = delete;

    // Whether an event is one of those that a person's doings bring, to a native window and, past
    // it, to a widget.
    static bool ConcernsWindow(const QEvent& event);
    static bool ConcernsWidget(const QEvent& event);

    bool IsEmpty() const { return events_.empty(); }
    // Whether an event that was held is being handed on just now.
    bool IsDelivering() const { return delivering_; }
    // Keeps a copy; the event itself tells its sender that nothing has come of it yet.
    void Add(QObject& receiver, QEvent& event);
    // `active` is the window that the core has given the keyboard, even if the desktop does not
    // show it yet; null for none.
    void DeliverFirst(QWidget* active);
    void Clear();

  private:
    struct Held {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
        std::unique_ptr<QMimeData> dropped;  // what a drop brings; null for any other event
    };

    static void DeliverKey(const Held& held, QObject& receiver);

    std::deque<Held> events_;
    bool delivering_ = false;
};

}  // namespace vxd::qt
