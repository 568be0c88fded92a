// Menus: the bar of a window, its popups and context menus.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include "platform/screen.h"
#include "platform/win32.h"

namespace vxd {

// Shows the changes that programs made in menus since the last call.
void RefreshMenuBars();
// The popup that TrackPopupMenu shows was left with a choice, or with none (0).
void PopupEnded(std::uint32_t command);
// A window goes; a popup of its goes too, without a choice.
void EndPopupOf(HWND window);
// The popup at a position of a window's bar; null where there is none.
HMENU PopupAt(HWND window, int position);

}  // namespace vxd
