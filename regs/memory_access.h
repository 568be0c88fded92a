// "Access Mem/IO Address": board memory and I/O ports.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenMemoryAccess(HINSTANCE instance, HWND owner);
