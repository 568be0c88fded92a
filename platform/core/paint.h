// Painting: what of a window waits to be painted. Every window that is drawn on has pixels. Those
// of a dialog or of a built-in control lie over the look that the screen gives it, and are
// transparent where nothing was drawn.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include <functional>

#include "platform/core/window.h"

namespace vxd {

// A shown window that waits for WM_PAINT and that the caller wants, parents and front windows
// first; null when none does.
const Window* NextWindowToPaint(const std::function<bool(const Window&)>& wanted);
// Fits the pixels to a client area that has changed its size and has what is new of it painted.
void ClientResized(Window& window);
// A built-in control shows its own look again: what was drawn on it is gone.
void DrawnAnew(Window& control);

}  // namespace vxd
