#include "platform/qt/image.h"

#include <cstring>

#include "platform/qt/geometry.h"

namespace vxd::qt {

QImage ToImage(const Pixels& pixels) {
    const auto* data = reinterpret_cast<const uchar*>(pixels.data.data());
    return QImage(data, pixels.width, pixels.height, QImage::Format_ARGB32).copy();
}

QRect Update(QImage& image, const Pixels& pixels, const Rect& changed, QImage::Format format) {
    QRect area = ToQt(changed);
    if (image.width() != pixels.width || image.height() != pixels.height) {
        image = QImage(pixels.width, pixels.height, format);
        area = image.rect();
    }
    area &= image.rect();
    const auto rowBytes = static_cast<std::size_t>(area.width()) * sizeof(std::uint32_t);
    for (int y = area.top(); y <= area.bottom(); ++y) {
        const auto offset = static_cast<std::size_t>(y) * static_cast<std::size_t>(pixels.width) +
                            static_cast<std::size_t>(area.x());
        std::memcpy(image.scanLine(y) + static_cast<std::size_t>(area.x()) * sizeof(std::uint32_t),
                    pixels.data.data() + offset, rowBytes);
    }
    return area;
}

void Paint(QPainter& painter, const QImage& image) {
    painter.drawImage(QPoint(), image);
}

}  // namespace vxd::qt
