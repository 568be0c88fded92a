// The main window's procedure.
#pragma once

#include "platform/win32.h"

// User-interface thread.
LRESULT CALLBACK MainWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
