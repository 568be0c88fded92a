// "Overlay Dialog". User-interface thread.
#pragma once

#include "platform/win32.h"

// Gives 1 after "&Close", 0 after cancel.
INT_PTR OpenOverlay(HINSTANCE instance, HWND owner);
