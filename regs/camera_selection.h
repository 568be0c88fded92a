// "Camera Selection": the newer board's video input.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenCameraSelection(HINSTANCE instance, HWND owner);
