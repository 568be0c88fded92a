// "Select Device": the device of the sequencer's atomic sections.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 1 when a choice was confirmed, else 0. User-interface
// thread.
INT_PTR OpenSelectDevice(HINSTANCE instance, HWND owner);

// The device that was confirmed last, 0 to 6; 0 at first.
uint16_t SelectedDevice();
