// "Jade access dialog": the JADE chip's registers.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenJadeAccess(HINSTANCE instance, HWND owner);
