// "Pixel Mask Dialog". User-interface thread.
#pragma once

#include "platform/win32.h"

// Gives 1 after "OK", which has written the mask, else 2.
INT_PTR OpenPixelMask(HINSTANCE instance, HWND owner);
