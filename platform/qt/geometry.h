// Rectangles as Qt's.
#pragma once

#include <QRect>

#include "platform/screen.h"

namespace vxd::qt {

inline QRect ToQt(const Rect& rect) {
    return {rect.x, rect.y, rect.width, rect.height};
}

inline Rect FromQt(const QRect& rect) {
    return {rect.x(), rect.y(), rect.width(), rect.height()};
}

}  // namespace vxd::qt
