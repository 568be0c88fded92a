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
    if (size() != image_.size()) {
        resize(image_.size());
        raise();
    }
    update(area);
}

void Overlay::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    Paint(painter, image_);
}

}  // namespace vxd::qt
