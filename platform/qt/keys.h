// Keys as the core knows them.
#pragma once

#include "platform/screen.h"

class QKeyEvent;

namespace vxd::qt {

input::KeyPress ToKeyPress(const QKeyEvent& event);

}  // namespace vxd::qt
