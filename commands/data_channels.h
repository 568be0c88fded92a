// Commands of the user-data channels of a call. What the driver answers is not looked at.
// User-interface thread.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// One of the channels of driver/kora_dll32.h each.
void InitializeChannel(HWND window, uint32_t channel);
void TerminateChannel(HWND window, uint32_t channel);
void CloseChannel(HWND window, uint32_t channel);
void ReadChannel(HWND window, uint32_t channel);
// These ask for the rate or the length first, and do nothing where that is cancelled.
void OpenChannel(HWND window, uint32_t channel);
void SendOnChannel(HWND window, uint32_t channel);

// Turns packetized mode of the LSD channel on or off, as its mark in the menu bar says, which
// follows when the driver has done it. Without the item in the bar it is turned off, and the mark
// stays. A failure is reported by name.
void TogglePacketized(HWND window);
// Shows the mark in the menu bar.
void MarkPacketized(HWND window);
