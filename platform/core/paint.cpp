#include "platform/core/paint.h"

#include <algorithm>

#include "platform/core/placement.h"

namespace vxd {
namespace {

struct Brush {
    COLORREF colour = 0;
};

struct DeviceContext {
    HWND window = nullptr;
    Rect clip;  // in client coordinates
};

// The clip of a context that a window keeps, which grows with the window.
constexpr Rect kEverywhere{0, 0, 1 << 20, 1 << 20};

struct PaintTables {
    HandleTable<Brush, HandleKind::kBrush> brushes;
    HandleTable<DeviceContext, HandleKind::kDc> contexts;
};

PaintTables& Tables() {
    static PaintTables& tables = *new PaintTables;
    return tables;
}

DeviceContext* ContextOf(HDC dc) {
    return Tables().contexts.Find(HandleNumber(dc));
}

Rect Intersection(const Rect& a, const Rect& b) {
    const int left = std::max(a.x, b.x);
    const int top = std::max(a.y, b.y);
    const int right = std::min(a.x + a.width, b.x + b.width);
    const int bottom = std::min(a.y + a.height, b.y + b.height);
    return {left, top, std::max(0, right - left), std::max(0, bottom - top)};
}

Rect Union(const Rect& a, const Rect& b) {
    if (a.Empty())
        return b;
    if (b.Empty())
        return a;
    const int left = std::min(a.x, b.x);
    const int top = std::min(a.y, b.y);
    return {left, top, std::max(a.x + a.width, b.x + b.width) - left,
            std::max(a.y + a.height, b.y + b.height) - top};
}

Rect FromRect(const RECT& rect) {
    return {rect.left, rect.top, rect.right - rect.left, rect.bottom - rect.top};
}

RECT ToRect(const Rect& rect) {
    return {rect.x, rect.y, rect.x + rect.width, rect.y + rect.height};
}

Rect ClientRect(const Window& window) {
    const Size size = ClientSize(window);
    return {0, 0, size.width, size.height};
}

constexpr std::uint32_t PixelOf(COLORREF colour) {
    return 0xFF000000u | static_cast<std::uint32_t>(GetRValue(colour)) << 16 |
           static_cast<std::uint32_t>(GetGValue(colour)) << 8 | GetBValue(colour);
}

constexpr COLORREF ColourOf(std::uint32_t pixel) {
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

void MakePixels(Window& window) {
    const Size size = ClientSize(window);
    if (window.pixels.width == size.width && window.pixels.height == size.height)
        return;
    Pixels fitted{size.width, size.height, {}};
    fitted.data.resize(static_cast<std::size_t>(size.width) *
                       static_cast<std::size_t>(size.height));
    const int width = std::min(size.width, window.pixels.width);
    for (int y = 0; y < std::min(size.height, window.pixels.height); ++y)
        std::copy_n(window.pixels.data.begin() + y * window.pixels.width, width,
                    fitted.data.begin() + y * size.width);
    window.pixels = std::move(fitted);
}

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

HDC NewContext(const Window& window, const Rect& clip) {
    auto context = std::make_unique<DeviceContext>();
    context->window = window.handle;
    context->clip = clip;
    return ToHandle<HDC>(Tables().contexts.Add(std::move(context)));
}

HDC ContextFor(const Window& window, const Rect& clip) {
    DeviceContext* own = ContextOf(window.ownContext);
    if (own == nullptr)
        return NewContext(window, clip);
    own->clip = clip;
    return window.ownContext;
}

// Ends the use of a device context; one of the window's own stays for the next.
bool EndContext(const Window& window, HDC dc) {
    if (dc == nullptr || dc != window.ownContext)
        return Tables().contexts.Remove(HandleNumber(dc)) != nullptr;
    ContextOf(dc)->clip = kEverywhere;
    return true;
}

// Sets the pixels of an area and shows them at once: nobody need release the context for that.
void Fill(Window& window, const DeviceContext& context, const Rect& area, std::uint32_t pixel) {
    const Rect inside = Intersection(Intersection(area, context.clip), ClientRect(window));
    if (inside.Empty())
        return;
    MakePixels(window);
    for (int y = inside.y; y < inside.y + inside.height; ++y)
        std::fill_n(window.pixels.data.begin() + y * window.pixels.width + inside.x, inside.width,
                    pixel);
    CurrentScreen().Draw(window.Widget(), window.pixels, inside);
}

}  // namespace

const Window* NextWindowToPaint(const std::function<bool(const Window&)>& wanted) {
    return NextToPaintIn(TopLevelWindows(), wanted);
}

void DrawnAnew(Window& control) {
    if (control.pixels.data.empty())
        return;
    control.pixels = {};
    CurrentScreen().Draw(control.Widget(), control.pixels, ClientRect(control));
}

void MakeOwnContext(Window& window) {
    window.ownContext = NewContext(window, kEverywhere);
}

void EndOwnContext(Window& window) {
    Tables().contexts.Remove(HandleNumber(std::exchange(window.ownContext, nullptr)));
}

void ClientResized(Window& window) {
    if (window.control != nullptr)
        return DrawnAnew(window);
    const Size size = ClientSize(window);
    const int oldWidth = window.pixels.width;
    const int oldHeight = window.pixels.height;
    if (!window.pixels.data.empty())
        MakePixels(window);
    Invalidate(window, {oldWidth, 0, size.width - oldWidth, size.height}, true);
    Invalidate(window, {0, oldHeight, size.width, size.height - oldHeight}, true);
}

bool EraseBackground(Window& window, HDC dc) {
    const DeviceContext* context = ContextOf(dc);
    if (context == nullptr)
        return false;
    if (window.dialog != nullptr) {
        // Where nothing is drawn the screen shows a dialog's own look.
        if (!window.pixels.data.empty())
            Fill(window, *context, context->clip, 0);
        return true;
    }
    const Brush* brush = Tables().brushes.Find(HandleNumber(window.windowClass->background));
    if (brush == nullptr)
        return false;
    Fill(window, *context, context->clip, PixelOf(brush->colour));
    return true;
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
    paint->hdc = vxd::ContextFor(*window, area);
    paint->rcPaint = vxd::ToRect(area);
    if (erase)
        paint->fErase =
            SendMessageA(handle, WM_ERASEBKGND, reinterpret_cast<WPARAM>(paint->hdc), 0) == 0;
    return paint->hdc;
}

BOOL WINAPI EndPaint(HWND handle, const PAINTSTRUCT* paint) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr && paint != nullptr && vxd::EndContext(*window, paint->hdc);
}

HDC WINAPI GetDC(HWND handle) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return nullptr;
    return window->ownContext != nullptr ? window->ownContext
                                         : vxd::NewContext(*window, vxd::ClientRect(*window));
}

int WINAPI ReleaseDC(HWND handle, HDC dc) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr && vxd::EndContext(*window, dc);
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

HBRUSH WINAPI CreateSolidBrush(COLORREF colour) {
    auto brush = std::make_unique<vxd::Brush>();
    brush->colour = colour;
    return vxd::ToHandle<HBRUSH>(vxd::Tables().brushes.Add(std::move(brush)));
}

BOOL WINAPI DeleteObject(HGDIOBJ object) {
    return vxd::Tables().brushes.Remove(vxd::HandleNumber(object)) != nullptr;
}

int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH handle) {
    const vxd::Brush* brush = vxd::Tables().brushes.Find(vxd::HandleNumber(handle));
    const vxd::DeviceContext* context = vxd::ContextOf(dc);
    Window* window = context != nullptr ? FindWindowOf(context->window) : nullptr;
    if (brush == nullptr || window == nullptr || rect == nullptr)
        return 0;
    vxd::Fill(*window, *context, vxd::FromRect(*rect), vxd::PixelOf(brush->colour));
    return 1;
}

COLORREF WINAPI GetPixel(HDC dc, int x, int y) {
    constexpr COLORREF kNoColour = 0xFFFFFFFFu;
    const vxd::DeviceContext* context = vxd::ContextOf(dc);
    const Window* window = context != nullptr ? FindWindowOf(context->window) : nullptr;
    if (window == nullptr || x < 0 || y < 0 || x >= window->pixels.width ||
        y >= window->pixels.height)
        return kNoColour;
    return vxd::ColourOf(
        window->pixels.data[static_cast<std::size_t>(y * window->pixels.width + x)]);
}
