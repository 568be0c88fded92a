// "Dialog": the control latch of the echo-cancelling DSP.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenAecLatch(HINSTANCE instance, HWND owner);
