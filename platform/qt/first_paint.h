// Tells when the program's window is first seen; for measuring how long a start takes.
#pragma once

#include <functional>

namespace vxd::qt {

// `action` runs once, on the user-interface thread, when the first window's client area has been
// painted and handed to the desktop. To be called before any window is made.
void OnFirstPaint(std::function<void()> action);

// The painter of client areas tells each of its paintings.
void ClientAreaPainted();

}  // namespace vxd::qt
