// The level display of "Siemens AEC Ports": what the echo canceller measures, once a second. It is
// off until somebody asks for it, and from then on on for the rest of the run.
// User-interface thread.
#pragma once

#include "platform/win32.h"

// Starts the display's timer, and stops it.
void StartLevels(HWND dialog);
void StopLevels(HWND dialog);

// Messages of the dialog. At a tick, which the level timer alone may give, the levels are shown if
// the display is on; if they can't be measured, the timer stops and what is shown stays.
void ShowLevelsAtTick(HWND dialog, WPARAM timer, LPARAM);
// A double click with the right button switches the display on; so does the menu key.
void SwitchLevelsOn(HWND dialog, WPARAM, LPARAM);
void SwitchLevelsOnByKey(HWND dialog, WPARAM, LPARAM where);
