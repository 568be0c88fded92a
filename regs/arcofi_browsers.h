// "ARCOFI Ports" and "ARCOFI Coefficiets": the audio codec's registers and fields, and the
// coefficients that its commands take.
#pragma once

#include "platform/win32.h"

// Run modally over `owner`; 1 after "&Close", 0 after cancel. User-interface thread.
INT_PTR OpenArcofiPorts(HINSTANCE instance, HWND owner);
INT_PTR OpenArcofiCoefficients(HINSTANCE instance, HWND owner);
