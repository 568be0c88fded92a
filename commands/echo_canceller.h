// The commands of the echo-cancelling DSP. User-interface thread.
#pragma once

#include <cstdint>

#include "platform/win32.h"

// Initialises or terminates the DSP or sets its mode, by one of the commands IDM_AEC_INITIALIZE to
// IDM_AEC_AGC_OFF. What it does and what fails is told in the trace alone. `menu` is only named
// there.
void HandleAECMode(HMENU menu, uint32_t command);
