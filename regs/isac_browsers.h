// "ISAC Registers" and "ISAC Bits": the ISDN transceivers' registers and single bits.
#pragma once

#include "platform/win32.h"

// Run modally over `owner`; 1 after "&Close", 0 after cancel. User-interface thread.
INT_PTR OpenIsacRegisters(HINSTANCE instance, HWND owner);
INT_PTR OpenIsacBits(HINSTANCE instance, HWND owner);
