// The About box.
#pragma once

#include "platform/win32.h"

// Runs the box modally over `owner`; gives IDOK or IDCANCEL. User-interface thread.
INT_PTR OpenAbout(HINSTANCE instance, HWND owner);
