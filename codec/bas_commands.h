// "SEND BAS COMMANDS:": commands of the bit-rate allocation signal, typed byte by byte.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. What its fields hold is remembered however it is
// left. User-interface thread.
INT_PTR OpenBasCommands(HINSTANCE instance, HWND owner);
