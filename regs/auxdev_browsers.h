// "AUXDEV Fields" and "AUXDEV Features": the auxiliary device's fields and lines.
#pragma once

#include "platform/win32.h"

// Run modally over `owner`; 1 after "&Close", 0 after cancel. User-interface thread.
INT_PTR OpenAuxdevFields(HINSTANCE instance, HWND owner);
INT_PTR OpenAuxdevFeatures(HINSTANCE instance, HWND owner);
