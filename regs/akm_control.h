// "AKM Control": the audio codec's mixer, its levels and its registers.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 1. User-interface thread.
INT_PTR OpenAkmControl(HINSTANCE instance, HWND owner);
