// Icons and cursors.
#pragma once

#include "platform/screen.h"
#include "platform/win32.h"

namespace vxd {

// What an icon shows; null for a handle that is not an icon's, and for cursors.
const Pixels* IconPixels(HICON icon);

}  // namespace vxd
