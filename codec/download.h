// "VCP Download": loads the video codec processor's software from files.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 2, the only way out of it. User-interface thread.
INT_PTR OpenDownload(HINSTANCE instance, HWND owner);
