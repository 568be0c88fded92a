// "Open/Close Stream": opens and closes the media streams of a call, each with the codec chosen for
// it.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 1. User-interface thread.
INT_PTR OpenStreams(HINSTANCE instance, HWND owner);
