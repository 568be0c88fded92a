// What a person did while the core had yet to deal with what came before.
#pragma once

#include <QPointer>
#include <deque>
#include <memory>

class QEvent;
class QWidget;
class QWindow;

namespace vxd::qt {

// Native events of keys, mouse and close boxes in the order in which they came. Each is handed on
// when its turn has come, as the desktop would hand it over: a key to the window that has the
// keyboard then, any other event to the window that it was meant for, if that is still there.
class HeldInput {
  public:
    HeldInput();
    ~HeldInput();
    HeldInput(const HeldInput&) = delete;
    HeldInput& operator=(const HeldInput&) = delete;

    // Whether an event is one of those that a person's doings bring.
    static bool Concerns(const QEvent& event);

    bool IsEmpty() const { return events_.empty(); }
    // Whether an event that was held is being handed on just now.
    bool IsDelivering() const { return delivering_; }
    void Add(QWindow& window, const QEvent& event);
    // `active` is the window that the core has given the keyboard, even if the desktop does not
    // show it yet; null for none.
    void DeliverFirst(QWidget* active);
    void Clear();

  private:
    struct Held {
        QPointer<QWindow> window;
        std::unique_ptr<QEvent> event;
    };

    static void DeliverKey(const Held& held, QWidget* active);

    std::deque<Held> events_;
    bool delivering_ = false;
};

}  // namespace vxd::qt
