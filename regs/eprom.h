// "EPROM DLG": the board's EEPROM.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenEprom(HINSTANCE instance, HWND owner);
