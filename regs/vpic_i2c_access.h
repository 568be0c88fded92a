// "VPIC I2C Access": the VPIC's two I2C lines.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 1 after "&Close", 0 after cancel. User-interface
// thread.
INT_PTR OpenVpicI2cAccess(HINSTANCE instance, HWND owner);
