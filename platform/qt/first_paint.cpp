#include "platform/qt/first_paint.h"

#include <QApplication>
#include <QMetaObject>
#include <utility>

namespace vxd::qt {
namespace {

std::function<void()> theAction;

}  // namespace

void OnFirstPaint(std::function<void()> action) {
    theAction = std::move(action);
}

void ClientAreaPainted() {
    if (!theAction)
        return;
    // Queued: the pixels reach the desktop when the paint event is over.
    QMetaObject::invokeMethod(qApp, std::exchange(theAction, nullptr), Qt::QueuedConnection);
}

}  // namespace vxd::qt
