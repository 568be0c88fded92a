// Pictures of what the screen shows. User-interface thread only.
#pragma once

#include <string>

#include "platform/screen.h"

namespace vxd::qt {

// All visible windows and open menus, back to front, each where it lies on the desktop, cut to
// what they cover. Windows have a caption where the desktop itself draws none. False if nothing is
// visible or the file cannot be written.
bool SaveDesktopPicture(const std::string& path);

// One window with its caption, or one control.
bool SaveWindowPicture(WidgetId id, const std::string& path);

}  // namespace vxd::qt
