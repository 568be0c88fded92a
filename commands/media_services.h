// Commands of the services beside a call's data: still images, post-processing of the video, media
// streams and bandwidth. Where nothing else is said, what the driver answers is not looked at.
// User-interface thread.
#pragma once

#include <cstdint>

#include "platform/win32.h"

void InitializeAnnexD(HWND window);
void TerminateAnnexD(HWND window);

// Asks first, for the video driver beside this program brings the post-processing up and down
// itself; then failures are reported by name.
void InitializeVpp(HWND window);
void TerminateVpp(HWND window);

// Closes a stream of type MediaStream (driver/papi.h).
void CloseStream(HWND window, uint32_t type);

// Shows the bandwidth of the connection; 0 where the driver gives none.
void ShowBandwidth(HWND window);
