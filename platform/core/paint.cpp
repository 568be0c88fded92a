#include "platform/core/paint.h"

#include "platform/core/area.h"
#include "platform/core/device_context.h"

namespace vxd {
namespace {

void Invalidate(Window& window, const Rect& area, bool erase) {
    if (window.control != nullptr)
        return DrawnAnew(window);
    const Rect visible = Intersection(area, ClientRect(window));
    if (visible.Empty())
        return;
    window.update = Union(window.update.value_or(Rect{}), visible);
    window.eraseUpdate = window.eraseUpdate || erase;
}

const Window* NextToPaintIn(const std::vector<Window*>& windows,
                            const std::function<bool(const Window&)>& wanted) {
    for (const Window* window : windows) {
        if (!window->IsVisible() || window->control != nullptr)
            continue;
        if (window->update && wanted(*window))
            return window;
        if (const Window* inner = NextToPaintIn(window->children, wanted); inner != nullptr)
            return inner;
    }
    return nullptr;
}

}  // namespace

const Window* NextWindowToPaint(const std::function<bool(const Window&)>& wanted) {
    return NextToPaintIn(TopLevelWindows(), wanted);
}

void DrawnAnew(Window& control) {
    if (control.pixels.data.empty())
        return;
    control.pixels = {};
    control.widget->Draw(control.pixels, ClientRect(control));
}

void ClientResized(Window& window) {
    if (window.control != nullptr)
        return DrawnAnew(window);
    const Size size = ClientSize(window);
    const int oldWidth = window.pixels.width;
    const int oldHeight = window.pixels.height;
    if (!window.pixels.data.empty())
        FitPixels(window);
    Invalidate(window, {oldWidth, 0, size.width - oldWidth, size.height}, true);
    Invalidate(window, {0, oldHeight, size.width, size.height - oldHeight}, true);
}

}  // namespace vxd

using vxd::FindWindowOf;
using vxd::Window;

HDC WINAPI BeginPaint(HWND handle, LPPAINTSTRUCT paint) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr || paint == nullptr)
        return nullptr;
    *paint = PAINTSTRUCT{};
    const vxd::Rect area = window->update.value_or(vxd::Rect{});
    const bool erase = window->eraseUpdate;
    window->update.reset();
    window->eraseUpdate = false;
    paint->hdc = vxd::BeginContext(*window, area);
    paint->rcPaint = vxd::ToRect(area);
    if (erase) {
        paint->fErase =
            SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint->hdc), 0) == 0;
    }
    return paint->hdc;
}

BOOL WINAPI EndPaint(HWND handle, const PAINTSTRUCT* paint) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr && paint != nullptr && vxd::EndContext(*window, paint->hdc);
}

BOOL WINAPI InvalidateRect(HWND handle, const RECT* rect, BOOL erase) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return FALSE;
    vxd::Invalidate(*window, rect != nullptr ? vxd::FromRect(*rect) : vxd::ClientRect(*window),
                    erase != FALSE);
    return TRUE;
}

BOOL WINAPI UpdateWindow(HWND handle) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return FALSE;
    if (window->update && vxd::IsShown(*window))
        SendMessageA(handle, WM_PAINT, 0, 0);
    return TRUE;
}
