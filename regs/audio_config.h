// "Audio - Config I/O": which microphone and speaker the newer board's firmware uses, and muting.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenAudioConfig(HINSTANCE instance, HWND owner);
