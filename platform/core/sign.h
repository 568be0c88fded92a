// The system's own icons, which message boxes show as their signs.
#pragma once

#include "platform/screen.h"
#include "platform/win32.h"

namespace vxd {

// What IDI_HAND, IDI_EXCLAMATION or IDI_ASTERISK shows, given as a number.
Pixels DrawSign(UINT number);

}  // namespace vxd
