// The steps of the utility's start. User-interface thread.
#pragma once

#include "platform/win32.h"

// Registers the main window's class; whether that worked.
bool InitApplication(HINSTANCE instance);

// Says whether a message queue of that size is granted.
using QueueRequest = BOOL(WINAPI*)(int messages);

// Asks for a message queue: first for 32 messages, then one fewer each time, down to 9. Whether any
// size was granted.
bool RequestMessageQueue(QueueRequest request);

// Makes and shows the main window, and with it brings up the board command library; whether that
// worked. Without a message queue there is only a box that says so.
bool InitInstance(HINSTANCE instance, int showCommand, QueueRequest request = SetMessageQueue);
