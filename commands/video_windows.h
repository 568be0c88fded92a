// The commands that open the video windows. A box says where that fails. User-interface thread.
#pragma once

#include "platform/win32.h"

void OpenLocalVideoWindow(HWND window);
void OpenRemoteVideoWindow(HWND window);
void OpenAllVideoWindows(HWND window);
