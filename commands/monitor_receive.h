// The bytes that arrive on the IOM-2 monitor channel. The driver fills the buffer after the command
// that asked for them has returned, and then posts a message to the main window.
#pragma once

#include <array>
#include <cstdint>

#include "platform/win32.h"

// The message, posted by the driver.
constexpr UINT kMonitorBytesReceived = WM_USER + 1;

// The bytes as they stand now, while the driver may be writing; 0xFF each before the first have
// arrived.
std::array<uint8_t, 3> MonitorRxBytes();

// Asks the driver for the next bytes and does not wait for them; a failure is reported by name.
// User-interface thread.
void ReceiveMonitorBytes(HWND window);

// Writes the bytes to the trace. User-interface thread.
void TraceMonitorBytes();
