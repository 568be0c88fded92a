// "VCPXi Variable Access": any variable of the codec processor's software by its name, read and
// written as bytes, words or double words, and accessed again and again as a test.
#pragma once

#include "platform/win32.h"

// Runs the dialog modally over `owner`; gives 0. User-interface thread.
INT_PTR OpenVariableAccess(HINSTANCE instance, HWND owner);
