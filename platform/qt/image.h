// Pixels as Qt images.
#pragma once

#include <QImage>

#include "platform/screen.h"

namespace vxd::qt {

// A copy with its transparency.
QImage ToImage(const Pixels& pixels);

}  // namespace vxd::qt
