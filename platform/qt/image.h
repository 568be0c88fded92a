// Pixels as Qt images.
#pragma once

#include <QImage>
#include <QPainter>

#include "platform/screen.h"

namespace vxd::qt {

// A copy with its transparency.
QImage ToImage(const Pixels& pixels);

// Brings an image of a format of 32 bits up to pixels that have changed inside `changed`; gives
// what has changed of the image: all of it when the pixels have another size.
QRect Update(QImage& image, const Pixels& pixels, const Rect& changed, QImage::Format format);

// Paints an image into the upper left corner. Always all of it, and what needs it is cut out: on a
// desktop whose scale is no whole number, each pixel then covers the same place every time, and
// parts that are painted one after the other fit together.
void Paint(QPainter& painter, const QImage& image);

}  // namespace vxd::qt
