// "GDS Dump Dialog": has the driver dump what a module holds.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 1 after OK, else 0. User-interface thread.
INT_PTR OpenGdsDump(HINSTANCE instance, HWND owner);
