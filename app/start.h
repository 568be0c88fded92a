// The steps of the utility's start. User-interface thread.
#pragma once

#include "platform/win32.h"

// Registers the main window's class; whether that worked.
bool InitApplication(HINSTANCE instance);

// Makes and shows the main window, and with it brings up the board command library; whether that
// worked.
bool InitInstance(HINSTANCE instance, int showCommand);

// Asks for a message queue, by a function that says whether a size is granted: first for 32
// messages, then one fewer each time, down to 9. Whether any size was granted.
bool RequestMessageQueue(BOOL(WINAPI* request)(int messages));
