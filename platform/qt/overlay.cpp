#include "platform/qt/overlay.h"

#include <QPaintEvent>
#include <QPainter>

#include "platform/qt/image.h"

namespace vxd::qt {

Overlay::Overlay(QWidget& control) : QWidget(&control) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    setFocusPolicy(Qt::NoFocus);
    show();
}

void Overlay::Draw(const Pixels& pixels, const Rect& changed) {
    const QRect area = Update(image_, pixels, changed, QImage::Format_ARGB32);
    resize(image_.size());
    raise();
    update(area);
}

void Overlay::paintEvent(QPaintEvent* event) {
    QPainter(this).drawImage(event->rect(), image_, event->rect());
}

}  // namespace vxd::qt
