// Which board's menu the main window shows: the newer board's, or the older one's, chip by chip.
// User-interface thread.
#pragma once

#include "platform/win32.h"

// Shows the menu that was chosen last; the newer board's at a first start.
void ShowRememberedMenu(HWND window);
// Shows a board's menu from now on and remembers it.
void ChooseOlderMenu(HWND window);
void ChooseNewerMenu(HWND window);
// Offers both in a context menu at a point of the desktop, as WM_CONTEXTMENU carries it. Gives
// false, and does nothing, where the point is on the frame, which has a menu of the system's.
bool OfferBoardMenus(HWND window, LPARAM where);
