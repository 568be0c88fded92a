// "Select UserData Bandwidth": the rate at which a user-data channel is to be opened.
// User-interface thread.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Runs the dialog modally over `owner` on the rates of a type: those of a channel by its number
// (driver/kora_dll32.h), or 3 for further rates, which no channel has. Gives 1 when a rate was
// confirmed, else 2; a type beyond 3 shows nothing.
INT_PTR OpenUserDataRate(HINSTANCE instance, HWND owner, uint32_t type);

// The rate code of the row that was confirmed last, or shown selected since then, in the list that
// was shown last; 0 where a remembered row was beyond its list.
uint16_t SelectedUserDataRate();
