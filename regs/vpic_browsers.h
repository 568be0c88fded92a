// "VPIC Port" and "VPIC Bits": the bus interface's ports and single bits.
#pragma once

#include "platform/win32.h"

// Run modally over `owner`; 1 after "&Close", 0 after cancel. User-interface thread.
INT_PTR OpenVpicPorts(HINSTANCE instance, HWND owner);
INT_PTR OpenVpicBits(HINSTANCE instance, HWND owner);
