// "VPP Statistics". User-interface thread.
#pragma once

#include "platform/win32.h"

INT_PTR OpenVppStatistics(HINSTANCE instance, HWND owner);
