// The Annex-D loader.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenAnnexdLoader(HINSTANCE instance, HWND owner);
