// "Select Monitor Device" and "Initialize IOM2 Monitor": two dialogs with one choice.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Each runs its dialog modally over `owner`; gives 1 when a choice was confirmed, else 0.
// User-interface thread.
INT_PTR OpenSelectMonitorDevice(HINSTANCE instance, HWND owner);
INT_PTR OpenInitializeMonitor(HINSTANCE instance, HWND owner);

// What was confirmed last: device 3 (ARCOFI, also at first) or 12 (SBCX), and whether the ISAC chip
// is to be initialised along with it.
uint16_t SelectedMonitorDevice();
bool InitializesMonitorChip();
