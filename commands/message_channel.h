// Commands of the MBE message channel that are more than one call without arguments. Failures are
// reported by name. User-interface thread.
#pragma once

#include "platform/win32.h"

// Starts the service, for the longest messages that it takes.
void InitializeMessages(HWND window);

// Shows the oldest message received, cut to 99 characters, in a box, also when the driver failed or
// had none, where it is empty.
void ReceiveMessage(HWND window);
