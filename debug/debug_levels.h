#pragma once

#include "platform/win32.h"

// "Set Debug Levels": how much the modules of the board's software tell, and which categories of
// USB trace the firmware writes. Runs until the dialog is closed; gives 0. User-interface thread.
INT_PTR OpenDebugLevels(HINSTANCE instance, HWND owner);
