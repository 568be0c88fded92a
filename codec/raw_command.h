// "Send Raw Command": the console of the board firmware's command set.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenRawCommand(HINSTANCE instance, HWND owner);
