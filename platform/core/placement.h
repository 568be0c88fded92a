// Where windows lie, and what the program is told of it.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include "platform/core/window.h"

namespace vxd {

// Where a new window lies that was asked to lie there.
Rect InitialRect(int x, int y, int width, int height, bool child);

struct SizeLimits {
    Size least;
    Size most;

    void Bound(Rect& rect) const;
};
// Overlapped windows and those with a sizable frame have limits, which the program may change.
bool HasSizeLimits(const Window& window);
// Asks the program for them.
SizeLimits LimitsOf(Window& window);

// Gives a window a new place and tells the program by WM_SIZE and WM_MOVE.
void Place(Window& window, const Rect& rect);
// The same after the screen has put the window elsewhere by itself.
void PlacedByScreen(Window& window, const Rect& before);
// The menu bar may have changed its height, and with it the client area.
void MenuBarChanged(Window& window);
// Tells a window its size, its place, or both.
void SendPlacement(Window& window, bool moved, bool sized);

}  // namespace vxd
