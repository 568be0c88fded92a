// "BrookTree basic operations". User-interface thread.
#pragma once

#include "platform/win32.h"

INT_PTR OpenEncoderBasics(HINSTANCE instance, HWND owner);
