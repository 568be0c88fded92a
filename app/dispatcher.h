// From a menu command's identifier to what it does.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Runs a command of either board's menu to its end; one without an action does nothing. Gives 0.
// User-interface thread.
LRESULT DispatchCommand(HWND window, uint32_t command);

// Whether a command does anything. Any thread.
bool HasAction(uint32_t command);
