// "Camera Registers", one for each camera.
#pragma once

#include "platform/win32.h"

// Run modally over `owner`; 1 after "&Close", 0 after cancel. User-interface thread.
INT_PTR OpenDigitalCameraRegisters(HINSTANCE instance, HWND owner);
INT_PTR OpenAnalogCameraRegisters(HINSTANCE instance, HWND owner);
