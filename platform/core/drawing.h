// Drawing on device contexts, and brushes. User-interface thread.
#pragma once

#include "platform/core/window.h"

namespace vxd {

// Fills what `dc` may draw on with the class's background; whether the class has one. A dialog
// shows its own look there.
bool EraseBackground(const Window& window, HDC dc);

}  // namespace vxd
