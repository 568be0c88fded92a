#include "platform/core/placement.h"

#include <algorithm>

#include "platform/core/paint.h"

namespace vxd {
namespace {

// Part of the work area that a window gets whose size is left to the system.
constexpr int kDefaultSizeNumerator = 3;
constexpr int kDefaultSizeDenominator = 4;

// The least size of a frame with a caption.
constexpr Size kLeastSize{112, 27};

}  // namespace

void SizeLimits::Bound(Rect& rect) const {
    // Where the limits contradict each other the least size counts.
    rect.width = std::max(std::min(rect.width, most.width), least.width);
    rect.height = std::max(std::min(rect.height, most.height), least.height);
}

bool HasSizeLimits(const Window& window) {
    return !window.IsChild() && (window.style & (WS_THICKFRAME | WS_POPUP)) != WS_POPUP;
}

SizeLimits LimitsOf(Window& window) {
    const Rect area = CurrentScreen().WorkArea();
    MINMAXINFO info{};
    info.ptMaxSize = {area.width, area.height};
    info.ptMinTrackSize = {kLeastSize.width, kLeastSize.height};
    info.ptMaxTrackSize = {area.width, area.height};
    Call(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {{info.ptMinTrackSize.x, info.ptMinTrackSize.y},
            {info.ptMaxTrackSize.x, info.ptMaxTrackSize.y}};
}

Rect InitialRect(int x, int y, int width, int height, bool child) {
    Rect rect{x, y, width, height};
    if (child)
        return rect;
    const Rect area = CurrentScreen().WorkArea();
    if (x == CW_USEDEFAULT)
        rect.x = area.x, rect.y = area.y;
    if (width == CW_USEDEFAULT) {
        rect.width = area.width * kDefaultSizeNumerator / kDefaultSizeDenominator;
        rect.height = area.height * kDefaultSizeNumerator / kDefaultSizeDenominator;
    }
    return rect;
}

void SendPlacement(Window& window, bool moved, bool sized) {
    const HWND handle = window.handle;
    if (sized) {
        const Size client = ClientSize(window);
        Call(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.width, client.height));
    }
    if (Window* still = FindWindowOf(handle); still != nullptr && moved) {
        const Point origin =
            still->IsChild() ? Point{still->rect.x, still->rect.y} : ClientOrigin(*still);
        Call(*still, WM_MOVE, 0, MAKELPARAM(origin.x, origin.y));
    }
}

void Place(Window& window, const Rect& wanted) {
    Rect rect = wanted;
    if (HasSizeLimits(window)) {
        const HWND handle = window.handle;
        const SizeLimits limits = LimitsOf(window);
        if (!IsLiveWindow(handle))
            return;
        window.widget->SetSizeLimits(limits.least, limits.most);
        limits.Bound(rect);
    }
    if (rect == window.rect)
        return;
    const Rect before = window.rect;
    window.rect = rect;
    window.widget->SetRect(rect);
    PlacedByScreen(window, before);
}

void PlacedByScreen(Window& window, const Rect& before) {
    if (!window.IsChild() && window.menu != nullptr)
        window.menuHeight = window.widget->MenuBarHeight(window.rect.width);
    const bool moved = before.x != window.rect.x || before.y != window.rect.y;
    const bool sized = before.width != window.rect.width || before.height != window.rect.height;
    if (sized)
        ClientResized(window);
    if (window.placed)
        SendPlacement(window, moved, sized);
}

void MenuBarChanged(Window& window) {
    const int before = window.menuHeight;
    window.menuHeight =
        window.menu != nullptr ? window.widget->MenuBarHeight(window.rect.width) : 0;
    if (window.menuHeight == before)
        return;
    ClientResized(window);
    if (window.placed)
        SendPlacement(window, true, true);
}

}  // namespace vxd

using vxd::FindWindowOf;
using vxd::Window;

BOOL WINAPI SetWindowPos(HWND handle, HWND after, int x, int y, int width, int height, UINT flags) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return FALSE;
    if ((flags & SWP_NOZORDER) == 0 && !window->IsChild()) {
        const bool topmost = after == HWND_TOPMOST;
        if (topmost || after == HWND_NOTOPMOST) {
            window->exStyle = topmost ? window->exStyle | WS_EX_TOPMOST
                                      : window->exStyle & ~static_cast<DWORD>(WS_EX_TOPMOST);
            window->widget->SetTopmost(topmost);
        } else if (after == HWND_TOP) {
            vxd::MoveToFront(*window);
            vxd::CurrentScreen().Raise(window->Number());
        }
    }
    vxd::Rect rect = window->rect;
    if ((flags & SWP_NOMOVE) == 0)
        rect.x = x, rect.y = y;
    if ((flags & SWP_NOSIZE) == 0)
        rect.width = width, rect.height = height;
    vxd::Place(*window, rect);
    return TRUE;
}

BOOL WINAPI GetWindowRect(HWND handle, LPRECT rect) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr || rect == nullptr)
        return FALSE;
    const vxd::Point base =
        window->parent != nullptr ? vxd::ClientOrigin(*window->parent) : vxd::Point{};
    rect->left = base.x + window->rect.x;
    rect->top = base.y + window->rect.y;
    rect->right = rect->left + window->rect.width;
    rect->bottom = rect->top + window->rect.height;
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT rect) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr || rect == nullptr)
        return FALSE;
    const vxd::Size size = vxd::ClientSize(*window);
    *rect = {0, 0, size.width, size.height};
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND handle, LPPOINT point) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr || point == nullptr)
        return FALSE;
    const vxd::Point origin = vxd::ClientOrigin(*window);
    point->x += origin.x;
    point->y += origin.y;
    return TRUE;
}
