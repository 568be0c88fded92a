#include "platform/core/device_context.h"

#include <algorithm>
#include <utility>

#include "platform/core/area.h"
#include "platform/core/bitmap.h"

namespace vxd {
namespace {

struct DeviceContext {
    HWND window = nullptr;     // null: in memory
    Rect clip;                 // of a window's, in client coordinates
    HBITMAP bitmap = nullptr;  // of one in memory
    int stretchMode = BLACKONWHITE;
};

// The clip of a context that a window keeps, which grows with the window.
constexpr Rect kEverywhere{0, 0, 1 << 20, 1 << 20};

HandleTable<DeviceContext, HandleKind::kDc>& Contexts() {
    static auto& contexts = *new HandleTable<DeviceContext, HandleKind::kDc>;
    return contexts;
}

DeviceContext* ContextOf(HDC dc) {
    return Contexts().Find(HandleNumber(dc));
}

DeviceContext* MemoryContextOf(HDC dc) {
    DeviceContext* context = ContextOf(dc);
    return context != nullptr && context->window == nullptr ? context : nullptr;
}

HDC NewContext(HWND window, const Rect& clip, HBITMAP bitmap) {
    auto context = std::make_unique<DeviceContext>();
    context->window = window;
    context->clip = clip;
    context->bitmap = bitmap;
    return ToHandle<HDC>(Contexts().Add(std::move(context)));
}

void CountSelection(HBITMAP bitmap, int step) {
    if (Bitmap* selected = FindBitmap(bitmap); selected != nullptr) {
        selected->selections += step;
    }
}

// Draws on another bitmap from now on; gives the one before.
HBITMAP Select(DeviceContext& context, HBITMAP bitmap) {
    CountSelection(context.bitmap, -1);
    CountSelection(bitmap, 1);
    return std::exchange(context.bitmap, bitmap);
}

}  // namespace

std::optional<Canvas> CanvasOf(HDC dc) {
    const DeviceContext* context = ContextOf(dc);
    if (context == nullptr) {
        return std::nullopt;
    }
    if (context->window == nullptr) {
        Pixels& pixels = FindBitmap(context->bitmap)->pixels;
        return Canvas{&pixels, {0, 0, pixels.width, pixels.height}, nullptr};
    }
    Window* window = FindWindowOf(context->window);
    if (window == nullptr) {
        return std::nullopt;
    }
    FitPixels(*window);
    return Canvas{&window->pixels, Intersection(context->clip, ClientRect(*window)), window};
}

const Pixels* PixelsSeenBy(HDC dc) {
    const DeviceContext* context = ContextOf(dc);
    if (context == nullptr) {
        return nullptr;
    }
    if (context->window == nullptr) {
        return &FindBitmap(context->bitmap)->pixels;
    }
    const Window* window = FindWindowOf(context->window);
    return window != nullptr ? &window->pixels : nullptr;
}

int StretchModeOf(HDC dc) {
    const DeviceContext* context = ContextOf(dc);
    return context != nullptr ? context->stretchMode : 0;
}

void ShowChange(const Canvas& canvas, const Rect& area) {
    if (canvas.window != nullptr) {
        canvas.window->widget->Draw(*canvas.pixels, area);
    }
}

void FitPixels(Window& window) {
    const Size size = ClientSize(window);
    if (window.pixels.width == size.width && window.pixels.height == size.height) {
        return;
    }
    Pixels fitted = BlankPixels(size.width, size.height, 0);
    const int width = std::min(size.width, window.pixels.width);
    for (int y = 0; y < std::min(size.height, window.pixels.height); ++y) {
        std::copy_n(window.pixels.data.begin() + y * window.pixels.width, width,
                    fitted.data.begin() + y * size.width);
    }
    window.pixels = std::move(fitted);
}

HDC BeginContext(const Window& window, const Rect& clip) {
    DeviceContext* own = ContextOf(window.ownContext);
    if (own == nullptr) {
        return NewContext(window.handle, clip, nullptr);
    }
    own->clip = clip;
    return window.ownContext;
}

bool EndContext(const Window& window, HDC dc) {
    if (dc != nullptr && dc == window.ownContext) {
        ContextOf(dc)->clip = kEverywhere;
        return true;
    }
    if (MemoryContextOf(dc) != nullptr) {
        return false;
    }
    return Contexts().Remove(HandleNumber(dc)) != nullptr;
}

void MakeOwnContext(Window& window) {
    window.ownContext = NewContext(window.handle, kEverywhere, nullptr);
}

void EndOwnContext(Window& window) {
    Contexts().Remove(HandleNumber(std::exchange(window.ownContext, nullptr)));
}

}  // namespace vxd

using vxd::FindWindowOf;
using vxd::Window;

HDC WINAPI GetDC(HWND handle) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr) {
        return nullptr;
    }
    return window->ownContext != nullptr ? window->ownContext
                                         : vxd::BeginContext(*window, vxd::ClientRect(*window));
}

int WINAPI ReleaseDC(HWND handle, HDC dc) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr && vxd::EndContext(*window, dc);
}

HDC WINAPI CreateCompatibleDC(HDC dc) {
    if (dc != nullptr && vxd::ContextOf(dc) == nullptr) {
        return nullptr;
    }
    return vxd::NewContext(nullptr, {}, vxd::FirstBitmap());
}

BOOL WINAPI DeleteDC(HDC dc) {
    vxd::DeviceContext* context = vxd::MemoryContextOf(dc);
    if (context == nullptr) {
        return FALSE;
    }
    vxd::Select(*context, nullptr);
    vxd::Contexts().Remove(vxd::HandleNumber(dc));
    return TRUE;
}

HGDIOBJ WINAPI SelectObject(HDC dc, HGDIOBJ object) {
    vxd::DeviceContext* context = vxd::MemoryContextOf(dc);
    const auto handle = static_cast<HBITMAP>(object);
    const vxd::Bitmap* bitmap = vxd::FindBitmap(handle);
    if (context == nullptr || bitmap == nullptr) {
        return nullptr;
    }
    const bool isTaken = bitmap->selections > 0 && handle != vxd::FirstBitmap();
    return isTaken && handle != context->bitmap ? nullptr : vxd::Select(*context, handle);
}

HBITMAP WINAPI CreateCompatibleBitmap(HDC dc, int width, int height) {
    const vxd::DeviceContext* context = vxd::ContextOf(dc);
    if (context == nullptr || context->bitmap == vxd::FirstBitmap()) {
        return nullptr;
    }
    return vxd::MakeBitmap(width, height);
}

int WINAPI SetStretchBltMode(HDC dc, int mode) {
    vxd::DeviceContext* context = vxd::ContextOf(dc);
    const bool isKnown = mode == BLACKONWHITE || mode == COLORONCOLOR;
    return context != nullptr && isKnown ? std::exchange(context->stretchMode, mode) : 0;
}
