// Pixels as Qt images.
#pragma once

#include <QImage>

#include "platform/screen.h"

namespace vxd::qt {

// A copy with its transparency.
QImage ToImage(const Pixels& pixels);

// Brings an image of a format of 32 bits up to pixels that have changed inside `changed`; gives
// what has changed of the image: all of it when the pixels have another size.
QRect Update(QImage& image, const Pixels& pixels, const Rect& changed, QImage::Format format);

}  // namespace vxd::qt
