// The blinking of the board's LED. User-interface thread.
#pragma once

#include "platform/win32.h"

// The main window's timer for it.
constexpr UINT_PTR kLedTimer = 1;

// Starts the blinking, or stops it.
void ToggleLed(HWND window);
// One step: the LED goes on, or off. A failure is reported and stops the timer.
void BlinkLed(HWND window);
// Shows whether the blinking is on in the menu bar.
void MarkLed(HWND window);
