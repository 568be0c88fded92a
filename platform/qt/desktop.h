// What differs between a desktop and the platform without one.
#pragma once

class QWidget;

namespace vxd::qt {

// Qt's offscreen platform: nothing lies around the windows, and there is no order among them.
bool IsOffscreen();

// The height of the caption that pictures of a window show above it because no desktop drew one; 0
// for a window that has none and on a real desktop.
int PicturedCaptionHeight(const QWidget& window);

}  // namespace vxd::qt
