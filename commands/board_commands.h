// Commands that reset the board. Failures are reported by name. User-interface thread.
#pragma once

#include "platform/win32.h"

// Starts the auxiliary device and resets the hardware through it, whatever the start answered.
void ResetHardware(HWND window);
// Resets the board's driver.
void ResetVxD(HWND window);
