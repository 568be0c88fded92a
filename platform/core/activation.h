// Which window is shown, enabled, active, and has the focus.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include "platform/core/window.h"

namespace vxd {

HWND FocusedWindow();
// Takes the focus from a window and all in it. Its heir may refuse it.
void LeaveFocus(HWND window, HWND heir);

// Whether a top-level window is the active one is told by the screen or by ShowWindow.
void Activate(Window* window);
// Puts a top-level window before all others, as far as the core knows their order.
void MoveToFront(Window& window);
// Hides a top-level window without telling it, and gives up being active.
void TakeFromScreen(Window& window);

}  // namespace vxd
