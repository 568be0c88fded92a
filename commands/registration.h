// Commands that register the utility with the driver: each hands it a value that the driver library
// gave for the purpose. Failures are reported by name. User-interface thread.
#pragma once

#include "platform/win32.h"

void RegisterSequencer(HWND window);
// These ask for the device first, and do nothing where that is cancelled.
void InitializeIsac(HWND window);
// From then on `window` is told of monitor bytes (commands/monitor_receive.h).
void InitializeMonitor(HWND window);
