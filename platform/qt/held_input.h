// What a person did while the core had yet to deal with what came before.
#pragma once

#include <QPointer>
#include <deque>
#include <functional>
#include <memory>

class QEvent;
class QMimeData;
class QWidget;

namespace vxd::qt {

class Report;

// Native events of keys, input methods, mouse, drops and close boxes in the order in which they
// came. Each is handed on when its turn has come, as the desktop would hand it over: a key and what
// an input method makes to the window that has the keyboard then, any other event to what it was
// meant for, if that is still there.
//
// All functions belong to Qt's thread.
class HeldInput {
  public:
    // The report outlives it.
    explicit HeldInput(const Report& report);
    ~HeldInput();
    HeldInput(const HeldInput&) = delete;
    HeldInput& operator=(const HeldInput&) = delete;

    // Whether an event is one of those that a person's doings bring, to a native window and, past
    // it, to a widget.
    static bool ConcernsWindow(const QEvent& event);
    static bool ConcernsWidget(const QEvent& event);

    // Whether what a person does now has to wait: the core has something to deal with, and may move
    // the focus, open a dialog or change what the next key or click means.
    bool Holds() const;
    // Keeps a copy of an event that has to wait, and gives whether it has to; the event itself
    // tells its sender that nothing has come of it yet.
    bool Hold(QObject& receiver, QEvent& event);
    bool IsEmpty() const { return events_.empty(); }

    // Something that a person did before this wait still has its turn to come in the core.
    void SetCoreIsBehind(bool isBehind) { coreIsBehind_ = isBehind; }
    // A popup menu is hidden, and its answer is still to come.
    void SetPopupEnds(bool ends) { popupEnds_ = ends; }

    // Hands on what was held until some of it gives the core something to do. `active` gives the
    // window that the core has given the keyboard, even if the desktop does not show it yet; null
    // for none.
    void Deliver(const std::function<QWidget*()>& active);
    void Clear();

  private:
    struct Held {
        QPointer<QObject> receiver;
        std::unique_ptr<QEvent> event;
        std::unique_ptr<QMimeData> dropped;  // what a drop brings; null for any other event
    };

    bool HasToWaitForCore() const;
    void Add(QObject& receiver, QEvent& event);
    void DeliverFirst(QWidget* active);
    static void DeliverKey(const Held& held, QObject& receiver);

    const Report& report_;
    std::deque<Held> events_;
    bool delivering_ = false;  // one of them is being handed on just now
    bool coreIsBehind_ = false;
    bool popupEnds_ = false;
};

}  // namespace vxd::qt
