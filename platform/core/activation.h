// Which window is shown, enabled, active, and has the focus.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include "platform/core/window.h"

namespace vxd {

// Takes the focus from a window and all in it. Its heir may refuse it.
void LeaveFocus(HWND window, HWND heir);

// Makes a top-level window the active one, as the program asks, and asks the desktop to follow.
// Null for no window.
void Activate(Window* window);
// The desktop has made a top-level window the active one, or none. It is not asked in return, or
// two windows could take turns for ever: but for a disabled window, whose keyboard belongs to the
// one that lies over it.
void ActivatedByDesktop(Window* window);
// Hides a top-level window without telling it, and gives up being active.
void TakeFromScreen(Window& window);

}  // namespace vxd
