#include "platform/core/icon.h"

#include <memory>

#include "platform/core/handle_table.h"
#include "platform/core/resource.h"

namespace vxd {
namespace {

constexpr int kIconSize = 32;

HandleTable<Pixels, HandleKind::kIcon>& Icons() {
    static HandleTable<Pixels, HandleKind::kIcon> icons;
    return icons;
}

HICON Add(Pixels pixels) {
    return ToHandle<HICON>(Icons().Add(std::make_unique<Pixels>(std::move(pixels))));
}

}  // namespace

const Pixels* IconPixels(HICON icon) {
    const Pixels* pixels = Icons().Find(HandleNumber(icon));
    return pixels != nullptr && pixels->width > 0 ? pixels : nullptr;
}

}  // namespace vxd

HICON WINAPI LoadIconA(HINSTANCE /*instance*/, LPCSTR name) {
    auto pixels = vxd::FindIcon(vxd::NameOf(name), vxd::kIconSize);
    return pixels ? vxd::Add(std::move(*pixels)) : nullptr;
}

// The screen shows the desktop's arrow over every window; other cursors there are none.
HCURSOR WINAPI LoadCursorA(HINSTANCE /*instance*/, LPCSTR name) {
    static const HCURSOR arrow = vxd::Add({});
    return name == IDC_ARROW ? arrow : nullptr;
}
