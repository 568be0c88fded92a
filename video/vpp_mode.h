// "Set VPP Mode". User-interface thread.
#pragma once

#include "platform/win32.h"

INT_PTR OpenVppMode(HINSTANCE instance, HWND owner);
