// "MBE SEND DEMO": texts over the MBE data channel.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenMbeSend(HINSTANCE instance, HWND owner);
