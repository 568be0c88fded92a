// "USS Reg": the registers behind the newer board's firmware.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenUssRegisters(HINSTANCE instance, HWND owner);
