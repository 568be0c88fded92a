#include "platform/core/icon.h"

#include <map>
#include <memory>

#include "platform/core/handle_table.h"
#include "platform/core/resource.h"
#include "platform/core/sign.h"

namespace vxd {
namespace {

constexpr int kIconSize = 32;

HandleTable<Pixels, HandleKind::kIcon>& Icons() {
    static auto& icons = *new HandleTable<Pixels, HandleKind::kIcon>;
    return icons;
}

HICON Add(Pixels pixels) {
    return ToHandle<HICON>(Icons().Add(std::make_unique<Pixels>(std::move(pixels))));
}

// Each of the system's own icons has one handle, however often it is asked for.
HICON SystemIcon(LPCSTR name) {
    if (name != IDI_HAND && name != IDI_EXCLAMATION && name != IDI_ASTERISK)
        return nullptr;
    static auto& made = *new std::map<LPCSTR, HICON>;
    HICON& icon = made[name];
    if (icon == nullptr)
        icon = Add(DrawSign(LOWORD(reinterpret_cast<ULONG_PTR>(name))));
    return icon;
}

}  // namespace

const Pixels* IconPixels(HICON icon) {
    const Pixels* pixels = Icons().Find(HandleNumber(icon));
    return pixels != nullptr && pixels->width > 0 ? pixels : nullptr;
}

}  // namespace vxd

HICON WINAPI LoadIconA(HINSTANCE instance, LPCSTR name) {
    if (instance == nullptr)
        return vxd::SystemIcon(name);
    auto pixels = vxd::FindIcon(vxd::NameOf(name), vxd::kIconSize);
    return pixels ? vxd::Add(std::move(*pixels)) : nullptr;
}

// The screen shows the desktop's arrow over every window; other cursors there are none.
HCURSOR WINAPI LoadCursorA(HINSTANCE /*instance*/, LPCSTR name) {
    static const HCURSOR arrow = vxd::Add({});
    return name == IDC_ARROW ? arrow : nullptr;
}
