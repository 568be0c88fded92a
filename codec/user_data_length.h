// "Send User Data": how many bytes a user-data channel is to send. User-interface thread.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 1 when a length was confirmed, else 0.
INT_PTR OpenUserDataLength(HINSTANCE instance, HWND owner);

// The length that was confirmed last, 0 to 64 bytes; 2 at first.
uint16_t SelectedUserDataLength();
