// Device contexts: what is drawn on, and how much of it. One draws on a window's pixels or, in
// memory, on a bitmap.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include <optional>

#include "platform/core/window.h"

namespace vxd {

struct Canvas {
    Pixels* pixels = nullptr;
    Rect clip;                 // what may be drawn on, inside the pixels
    Window* window = nullptr;  // whose pixels they are; null for a bitmap's
};

// What is drawn on through `dc`. A window's pixels are made when it is first drawn on.
std::optional<Canvas> CanvasOf(HDC dc);
// What can be seen through `dc`; null where nothing has been drawn yet.
const Pixels* PixelsSeenBy(HDC dc);
// What SetStretchBltMode has set; 0 for a handle that is no context's.
int StretchModeOf(HDC dc);
// To be called when what lies in `area` of a canvas has changed: shows it on the screen at once,
// for nobody need release a context for that.
void ShowChange(const Canvas& canvas, const Rect& area);

// Fits a window's pixels to its client area, and keeps what is in both.
void FitPixels(Window& window);

// A context for a part of a window's client area: the one that the window keeps, or a new one.
HDC BeginContext(const Window& window, const Rect& clip);
// Ends the use of a window's context; the one that the window keeps stays for the next.
bool EndContext(const Window& window, HDC dc);
// The context that a window of a CS_OWNDC class keeps for its life.
void MakeOwnContext(Window& window);
void EndOwnContext(Window& window);

}  // namespace vxd
