// Painting: update regions, device contexts and brushes. Windows of the program's own classes and
// dialog boxes have pixels; the built-in controls are drawn by the screen.
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
// Fills what `dc` may draw on with the class's background; whether the class has one.
bool EraseBackground(Window& window, HDC dc);

}  // namespace vxd
