// Where the board's time slots go: to the IOM-2 bus or to the MVIP bus. User-interface thread.
#pragma once

#include "platform/win32.h"

// Each ends one routing and starts the other, whatever the board answers; failures are reported by
// name.
void RouteToIom2(HWND window);
void RouteToMvip(HWND window);
// Shows in the menu bar which routing was chosen last; MVIP at first.
void MarkTdmRouting(HWND window);
