// What there is once in the process. For the files that make up the windows alone.
#pragma once

#include <vector>

#include "platform/core/handle_table.h"
#include "platform/core/window.h"

namespace vxd {

struct Desk {
    HandleTable<Window, HandleKind::kWindow> windows;
    std::vector<Window*> topLevel;
    HWND focus = nullptr;
    HWND active = nullptr;
};

Desk& TheDesk();

}  // namespace vxd
