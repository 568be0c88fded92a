// The test loops of the ARCOFI.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Closes the loop of one of the commands IDM_ARCOFI_LOOP_NONE to IDM_ARCOFI_LOOP_INTERFACE,
// whatever reading the chip's state answered. Failures are reported by name. User-interface thread.
void ChooseArcofiLoop(HWND window, uint32_t command);
