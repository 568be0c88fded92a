// A program of the test's own with a window that writes down what it is told.
#pragma once

#include "platform/win32.h"
#include "tests/kit/user_interface.h"

namespace kit {

inline constexpr UINT kFirstMessage = WM_APP + 10;
// Answered with twice its wParam.
inline constexpr UINT kDoubleMessage = kFirstMessage + 5;
inline constexpr COLORREF kPlainBackground = RGB(1, 2, 3);

// All belongs to the user-interface thread.

// A window of 200 by 100 at 10, 10, not shown.
HWND MakePlainWindow();
// The same, shown and painted.
HWND ShowPlainWindow();
// The messages from WM_APP on, WM_PAINT and WM_TIMER, in the order the window got them.
std::vector<UINT>& Told();
// Dispatches all messages there are; gives their order.
std::vector<UINT> Drain();

}  // namespace kit
