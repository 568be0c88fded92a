#include "platform/core/drawing.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <vector>

#include "platform/core/area.h"
#include "platform/core/bitmap.h"
#include "platform/core/device_context.h"

namespace vxd {
namespace {

using Pixel = std::uint32_t;

constexpr Pixel kOpaque = 0xFF000000u;
constexpr Pixel kWhite = 0xFFFFFFFFu;

struct Brush {
    COLORREF colour = 0;
};

HandleTable<Brush, HandleKind::kBrush>& Brushes() {
    static auto& brushes = *new HandleTable<Brush, HandleKind::kBrush>;
    return brushes;
}

const Brush* BrushOf(HBRUSH brush) {
    return Brushes().Find(HandleNumber(brush));
}

constexpr Pixel PixelOf(COLORREF colour) {
    return kOpaque | static_cast<Pixel>(GetRValue(colour)) << 16 |
           static_cast<Pixel>(GetGValue(colour)) << 8 | GetBValue(colour);
}

constexpr COLORREF ColourOf(Pixel pixel) {
    return RGB(pixel >> 16 & 0xFF, pixel >> 8 & 0xFF, pixel & 0xFF);
}

Pixel* PixelAt(Pixels& pixels, int x, int y) {
    return pixels.data.data() + static_cast<std::ptrdiff_t>(y) * pixels.width + x;
}

const Pixel* PixelAt(const Pixels& pixels, int x, int y) {
    return pixels.data.data() + static_cast<std::ptrdiff_t>(y) * pixels.width + x;
}

bool Fill(HDC dc, const Rect& area, Pixel pixel) {
    const auto canvas = CanvasOf(dc);
    if (!canvas) {
        return false;
    }
    const Rect inside = Intersection(area, canvas->clip);
    if (inside.Empty()) {
        return true;
    }
    for (int y = inside.y; y < inside.y + inside.height; ++y) {
        std::fill_n(PixelAt(*canvas->pixels, inside.x, y), inside.width, pixel);
    }
    ShowChange(*canvas, inside);
    return true;
}

// The bits that both have. Where nothing was drawn yet, a control or a dialog shows its own light
// ground, on which a drawing looks as it is.
Pixel Masked(Pixel below, Pixel drawn) {
    return kOpaque | ((below >= kOpaque ? below : kWhite) & drawn);
}

void DrawRow(Pixel* to, const Pixel* from, int length, DWORD operation) {
    if (operation == SRCAND) {
        std::transform(to, to + length, from, to, Masked);
    } else {
        std::transform(from, from + length, to, [](Pixel pixel) { return kOpaque | pixel; });
    }
}

// Draws an area of `source` that begins at `from`. `to` is an area of the canvas, and as much of it
// as canvas and source have is drawn on.
void Copy(const Canvas& canvas, const Rect& to, const Pixels& source, Point from, DWORD operation) {
    const int shiftX = to.x - from.x;
    const int shiftY = to.y - from.y;
    const Rect given{shiftX, shiftY, source.width, source.height};
    const Rect inside = Intersection(Intersection(to, canvas.clip), given);
    if (inside.Empty()) {
        return;
    }
    for (int y = inside.y; y < inside.y + inside.height; ++y) {
        DrawRow(PixelAt(*canvas.pixels, inside.x, y),
                PixelAt(source, inside.x - shiftX, y - shiftY), inside.width, operation);
    }
    ShowChange(canvas, inside);
}

// What `bits` show, in a header's terms; empty for a format that is not drawn.
class Picture {
  public:
    Picture(const void* bits, const BITMAPINFOHEADER& header)
        : bits_(static_cast<const Pixel*>(bits)),
          width_(header.biWidth),
          height_(std::abs(header.biHeight)),
          topDown_(header.biHeight < 0) {
        if (bits == nullptr || header.biSize < sizeof(BITMAPINFOHEADER) || header.biPlanes != 1 ||
            header.biBitCount != 32 || header.biCompression != BI_RGB) {
            bits_ = nullptr;
        }
    }

    // Whether the picture is drawn and has this area. A picture stored upside down is measured from
    // its last row, which is the one it begins with.
    bool Has(const Rect& area) const {
        return bits_ != nullptr && !area.Empty() && area.x >= 0 && area.y >= 0 &&
               area.x + area.width <= width_ && area.y + area.height <= height_;
    }

    // The row `y` of an area, from its top.
    const Pixel* Row(const Rect& area, int y) const {
        const int stored = topDown_ ? area.y + y : area.y + area.height - 1 - y;
        return bits_ + static_cast<std::ptrdiff_t>(stored) * width_ + area.x;
    }

  private:
    const Pixel* bits_;
    int width_;
    int height_;
    bool topDown_;
};

// The whole of `to` shows the whole of `from`; each pixel is one of the picture's.
void Stretch(const Canvas& canvas, const Rect& to, const Picture& picture, const Rect& from) {
    const Rect inside = Intersection(to, canvas.clip);
    if (inside.Empty()) {
        return;
    }
    const auto scaled = [](int at, int size, int sourceSize) {
        return static_cast<int>(static_cast<std::int64_t>(at) * sourceSize / size);
    };
    std::vector<int> columns(static_cast<std::size_t>(inside.width));
    for (int x = 0; x < inside.width; ++x) {
        columns[static_cast<std::size_t>(x)] = scaled(inside.x - to.x + x, to.width, from.width);
    }
    for (int y = inside.y; y < inside.y + inside.height; ++y) {
        const Pixel* row = picture.Row(from, scaled(y - to.y, to.height, from.height));
        std::transform(columns.begin(), columns.end(), PixelAt(*canvas.pixels, inside.x, y),
                       [row](int column) { return kOpaque | row[column]; });
    }
    ShowChange(canvas, inside);
}

}  // namespace

bool EraseBackground(const Window& window, HDC dc) {
    const Rect all = ClientRect(window);
    if (window.dialog != nullptr) {
        // Where nothing is drawn the screen shows a dialog's own look.
        return window.pixels.data.empty() ? PixelsSeenBy(dc) != nullptr : Fill(dc, all, 0);
    }
    const Brush* brush = BrushOf(window.windowClass->background);
    return brush != nullptr && Fill(dc, all, PixelOf(brush->colour));
}

}  // namespace vxd

HBRUSH WINAPI CreateSolidBrush(COLORREF colour) {
    auto brush = std::make_unique<vxd::Brush>();
    brush->colour = colour;
    return vxd::ToHandle<HBRUSH>(vxd::Brushes().Add(std::move(brush)));
}

BOOL WINAPI DeleteObject(HGDIOBJ object) {
    return vxd::EndBitmap(static_cast<HBITMAP>(object)) ||
           vxd::Brushes().Remove(vxd::HandleNumber(object)) != nullptr;
}

int WINAPI FillRect(HDC dc, const RECT* rect, HBRUSH handle) {
    const vxd::Brush* brush = vxd::BrushOf(handle);
    return brush != nullptr && rect != nullptr &&
           vxd::Fill(dc, vxd::FromRect(*rect), vxd::PixelOf(brush->colour));
}

COLORREF WINAPI GetPixel(HDC dc, int x, int y) {
    constexpr COLORREF kNoColour = 0xFFFFFFFFu;
    const vxd::Pixels* pixels = vxd::PixelsSeenBy(dc);
    if (pixels == nullptr || x < 0 || y < 0 || x >= pixels->width || y >= pixels->height) {
        return kNoColour;
    }
    return vxd::ColourOf(*vxd::PixelAt(*pixels, x, y));
}

BOOL WINAPI BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX,
                   int sourceY, DWORD operation) {
    const auto canvas = vxd::CanvasOf(dc);
    const vxd::Pixels* from = vxd::PixelsSeenBy(source);
    if (!canvas || from == nullptr || (operation != SRCCOPY && operation != SRCAND)) {
        return FALSE;
    }
    const vxd::Rect to{x, y, width, height};
    if (from == canvas->pixels) {
        const vxd::Pixels before = *from;
        vxd::Copy(*canvas, to, before, {sourceX, sourceY}, operation);
    } else {
        vxd::Copy(*canvas, to, *from, {sourceX, sourceY}, operation);
    }
    return TRUE;
}

int WINAPI StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY,
                         int sourceWidth, int sourceHeight, LPCVOID bits, const BITMAPINFO* info,
                         UINT use, DWORD operation) {
    const auto canvas = vxd::CanvasOf(dc);
    if (!canvas || info == nullptr || use != DIB_RGB_COLORS || operation != SRCCOPY) {
        return 0;
    }
    const vxd::Picture picture(bits, info->bmiHeader);
    const vxd::Rect from{sourceX, sourceY, sourceWidth, sourceHeight};
    const bool shrinks = width < sourceWidth || height < sourceHeight;
    if (!picture.Has(from) || (shrinks && vxd::StretchModeOf(dc) != COLORONCOLOR)) {
        return 0;
    }
    vxd::Stretch(*canvas, {x, y, width, height}, picture, from);
    return sourceHeight;
}
