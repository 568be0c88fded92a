// The commands that set how much the utility itself writes to the trace. User-interface thread.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Sets the level of a command of the "KORA debug" menu and remembers it; the viewer is not looked
// for.
void ChooseDebugLevel(HWND window, uint32_t command);
