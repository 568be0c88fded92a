#include "platform/core/bitmap.h"

#include <memory>
#include <utility>

#include "platform/core/handle_table.h"
#include "platform/core/resource.h"

namespace vxd {
namespace {

constexpr std::uint32_t kBlack = 0xFF000000u;

HandleTable<Bitmap, HandleKind::kBitmap>& Bitmaps() {
    static auto& bitmaps = *new HandleTable<Bitmap, HandleKind::kBitmap>;
    return bitmaps;
}

HBITMAP Add(Pixels pixels) {
    auto bitmap = std::make_unique<Bitmap>();
    bitmap->pixels = std::move(pixels);
    return ToHandle<HBITMAP>(Bitmaps().Add(std::move(bitmap)));
}

}  // namespace

Pixels BlankPixels(int width, int height, std::uint32_t pixel) {
    Pixels pixels{width, height, {}};
    pixels.data.assign(static_cast<std::size_t>(width) * static_cast<std::size_t>(height), pixel);
    return pixels;
}

Bitmap* FindBitmap(HBITMAP bitmap) {
    return Bitmaps().Find(HandleNumber(bitmap));
}

HBITMAP MakeBitmap(int width, int height) {
    constexpr int kLongestSide = 0x4000;
    if (width < 1 || height < 1 || width > kLongestSide || height > kLongestSide) {
        return nullptr;
    }
    return Add(BlankPixels(width, height, kBlack));
}

HBITMAP FirstBitmap() {
    static const HBITMAP first = MakeBitmap(1, 1);
    return first;
}

bool EndBitmap(HBITMAP handle) {
    const Bitmap* bitmap = FindBitmap(handle);
    if (bitmap == nullptr || bitmap->selections > 0 || handle == FirstBitmap()) {
        return false;
    }
    Bitmaps().Remove(HandleNumber(handle));
    return true;
}

}  // namespace vxd

HBITMAP WINAPI LoadBitmapA(HINSTANCE /*instance*/, LPCSTR name) {
    auto pixels = vxd::ParseBitmap(vxd::FindResource(vxd::kResourceBitmap, vxd::NameOf(name)));
    return pixels ? vxd::Add(std::move(*pixels)) : nullptr;
}
