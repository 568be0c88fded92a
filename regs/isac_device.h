// "Select ISAC  Device" and "Initialize ISAC  ": two dialogs with one choice.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Each runs its dialog modally over `owner`; gives 1 when a choice was confirmed, else 0.
// User-interface thread.
INT_PTR OpenSelectIsacDevice(HINSTANCE instance, HWND owner);
INT_PTR OpenInitializeIsac(HINSTANCE instance, HWND owner);

// What was confirmed last: device 13 (monitor, also at first) or 14 (ISDN), and whether its chip is
// to be initialised along with it.
uint16_t SelectedIsacDevice();
bool InitializesIsacChip();
