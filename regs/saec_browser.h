// "Siemens AEC Ports": the echo canceller's registers.
#pragma once

#include "platform/win32.h"

// Runs modally over `owner`; 1 after "&Close", 0 after cancel. User-interface thread.
INT_PTR OpenSaecPorts(HINSTANCE instance, HWND owner);
