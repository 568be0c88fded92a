// The video window driver VXDVIDEO: an installable driver that shows a video channel in a window of
// the program's. Valid in C and in C++.
//
// It is opened by OpenDriver and sent messages on the user-interface thread. A picture has CIF's
// size; the driver sizes the window to it, fills all of the client area whatever size the window is
// given later, and goes on until the channel is stopped or its window is gone.
#pragma once

#include "platform/win32.h"

#ifdef __cplusplus
extern "C" {
#endif

#define VXDVIDEO_LIBRARY L"VXDVIDEO.DLL"

// Video channels.
#define VIDEO_CHANNEL_LOCAL 3
#define VIDEO_CHANNEL_REMOTE 4

// Shows a channel (second parameter) in a window (the first), and no longer in another one. Not 0
// for success, 0 where there is no such channel, window or board.
#define VIDEO_SHOW_CHANNEL (DRV_USER + 0x1E)
// Shows a channel (first parameter) no longer. The window stays as it is.
#define VIDEO_STOP_CHANNEL (DRV_USER + 0x28)

// The driver's only export.
LRESULT WINAPI DriverProc(DWORD_PTR id, HDRVR driver, UINT message, LPARAM first, LPARAM second);

#ifdef __cplusplus
}
#endif
