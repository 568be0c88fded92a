#include "platform/qt/image.h"

namespace vxd::qt {

QImage ToImage(const Pixels& pixels) {
    const auto* data = reinterpret_cast<const uchar*>(pixels.data.data());
    return QImage(data, pixels.width, pixels.height, QImage::Format_ARGB32).copy();
}

}  // namespace vxd::qt
