// "Select IRQ": the interrupt sources to simulate.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 1 when a choice was confirmed, else 0. User-interface
// thread.
INT_PTR OpenSelectIrq(HINSTANCE instance, HWND owner);

// The sources that were confirmed last, one bit each; none at first.
uint32_t SelectedInterrupts();
