// "I2C Access": the devices on the board's I2C bus.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenI2cAccess(HINSTANCE instance, HWND owner);
