// What there is once in the process. User-interface thread.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// The module instance, passed to every dialog. Set before the main window is made.
inline HINSTANCE AppInstance = nullptr;
// Null until the main window has been made.
inline HWND MainWindow = nullptr;
// The board's revision, read once while the main window is made; 0 without a board. Its low byte
// tells whether the board can carry more than one ISAC chip.
inline uint16_t BoardRevision = 0;
