// Commands that concern only the main window. User-interface thread.
#pragma once

#include "platform/win32.h"

void ExitUtility(HWND window);
// Repaints the whole window, which gives it a new colour.
void ChangeColor(HWND window);
// Turns Always on Top on or off and remembers it.
void ToggleAlwaysOnTop(HWND window);
// Reads what was remembered and applies it.
void RestoreAlwaysOnTop(HWND window);
// Shows whether Always on Top is on in the menu bar.
void MarkAlwaysOnTop(HWND window);
