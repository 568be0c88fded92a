// How the dialogs that reach the board by plain addresses take numbers from their fields.
// User-interface thread.
#pragma once

#include <cstdint>
#include <optional>

#include "platform/win32.h"

// The number behind the first "0x" in a field: 0 without a digit there, nothing for 0xFFFFFFFF,
// which stands for "no number" and is also what one of more than 32 bits counts as. A field without
// "0x" gives nothing either, after a message box that says so.
std::optional<uint32_t> ReadHexField(HWND dialog, int id);
