// Icons and bitmaps among the resources.
#include <algorithm>
#include <array>
#include <cstdlib>

#include "platform/core/resource.h"
#include "platform/core/resource_reader.h"

namespace vxd {
namespace {

constexpr std::uint32_t kHeaderSize = 40;
constexpr std::uint32_t kOpaque = 0xFF000000u;

// What the two have in common: the header that comes before the pixels.
struct ImageHeader {
    std::int32_t width = 0;
    std::int32_t height = 0;  // negative where the top row comes first
    std::uint16_t bitsPerPixel = 0;
    std::uint32_t paletteSize = 0;  // 0: all that the bits can name
};

// Nothing for what is damaged or compressed.
std::optional<ImageHeader> ReadImageHeader(Reader& reader) {
    const std::uint32_t headerSize = reader.Dword();
    ImageHeader header;
    header.width = reader.SignedDword();
    header.height = reader.SignedDword();
    const std::uint16_t planes = reader.Word();
    header.bitsPerPixel = reader.Word();
    const std::uint32_t compression = reader.Dword();
    reader.Take(12);  // image size, resolution
    header.paletteSize = reader.Dword();
    reader.Dword();  // how many colours matter
    if (reader.Failed() || headerSize != kHeaderSize || planes != 1 || compression != 0) {
        return std::nullopt;
    }
    return header;
}

using Palette = std::array<std::uint32_t, 256>;

// The palette of a bitmap whose pixels are numbers of colours. Nothing where the data end in it.
std::optional<Palette> ReadPalette(Reader& reader, const ImageHeader& header) {
    Palette palette{};
    palette.fill(kOpaque);
    const std::uint32_t most = 1u << header.bitsPerPixel;
    const std::uint32_t size = header.paletteSize != 0 ? header.paletteSize : most;
    if (size > most) {
        return std::nullopt;
    }
    std::generate_n(palette.begin(), size, [&reader] { return reader.Dword() | kOpaque; });
    return reader.Failed() ? std::nullopt : std::optional(palette);
}

std::uint32_t ByteAt(Bytes row, std::size_t index) {
    return std::to_integer<std::uint32_t>(row[index]);
}

// A pixel of a row of whole numbers of bits.
std::uint32_t PixelIn(Bytes row, std::size_t x, unsigned bitsPerPixel, const Palette& palette) {
    if (bitsPerPixel > 8) {
        const std::size_t at = x * (bitsPerPixel / 8);
        return kOpaque | ByteAt(row, at + 2) << 16 | ByteAt(row, at + 1) << 8 | ByteAt(row, at);
    }
    const std::size_t perByte = 8 / bitsPerPixel;
    const auto shift = static_cast<unsigned>(perByte - 1 - x % perByte) * bitsPerPixel;
    return palette[ByteAt(row, x / perByte) >> shift & ((1u << bitsPerPixel) - 1)];
}

bool IsKnownDepth(unsigned bitsPerPixel) {
    constexpr std::array kDepths = {1u, 4u, 8u, 24u, 32u};
    return std::find(kDepths.begin(), kDepths.end(), bitsPerPixel) != kDepths.end();
}

}  // namespace

std::optional<std::uint16_t> ChooseIconImage(Bytes group, int size) {
    constexpr std::uint16_t kIconGroup = 1;
    Reader reader(group);
    reader.Word();  // reserved
    if (reader.Word() != kIconGroup)
        return std::nullopt;
    std::optional<std::uint16_t> best;
    int bestWidth = 0;
    const std::uint16_t count = reader.Word();
    for (int i = 0; i < count && !reader.Failed(); ++i) {
        const std::uint8_t storedWidth = reader.Byte();
        const int width = storedWidth != 0 ? storedWidth : 256;
        reader.Take(5);  // height, number of colours, reserved, planes
        const std::uint16_t bitsPerPixel = reader.Word();
        reader.Dword();  // number of bytes
        const std::uint16_t id = reader.Word();
        const int distance = std::abs(width - size);
        const int bestDistance = std::abs(bestWidth - size);
        if (bitsPerPixel == 32 &&
            (!best || distance < bestDistance || (distance == bestDistance && width > bestWidth))) {
            best = id;
            bestWidth = width;
        }
    }
    return reader.Failed() ? std::nullopt : best;
}

std::optional<Pixels> ParseIconImage(Bytes data) {
    constexpr std::int32_t kMaxSide = 256;
    Reader reader(data);
    const auto header = ReadImageHeader(reader);
    if (!header || header->bitsPerPixel != 32) {
        return std::nullopt;
    }
    const std::int32_t width = header->width;
    const std::int32_t height = header->height / 2;  // that of the pixels and of the mask
    if (width < 1 || width > kMaxSide || height < 1 || height > kMaxSide) {
        return std::nullopt;
    }

    Pixels pixels{width, height, {}};
    const auto rowLength = static_cast<std::size_t>(width);
    pixels.data.resize(rowLength * static_cast<std::size_t>(height));
    // The bottom row comes first. A little-endian B, G, R, A is 0xAARRGGBB.
    for (auto row = pixels.data.end(); row != pixels.data.begin();) {
        row -= width;
        std::generate_n(row, rowLength, [&reader] { return reader.Dword(); });
    }
    return reader.Failed() ? std::nullopt : std::optional(std::move(pixels));
}

std::optional<Pixels> FindIcon(const ResourceName& name, int size) {
    const auto image = ChooseIconImage(FindResource(kResourceGroupIcon, name), size);
    return image ? ParseIconImage(FindResource(kResourceIcon, *image)) : std::nullopt;
}

std::optional<Pixels> ParseBitmap(Bytes data) {
    constexpr std::int32_t kMaxSide = 0x4000;
    Reader reader(data);
    const auto header = ReadImageHeader(reader);
    if (!header || !IsKnownDepth(header->bitsPerPixel) || header->width < 1 ||
        header->width > kMaxSide || header->height == 0 || header->height > kMaxSide ||
        header->height < -kMaxSide) {
        return std::nullopt;
    }
    Palette palette{};
    if (header->bitsPerPixel <= 8) {
        const auto read = ReadPalette(reader, *header);
        if (!read) {
            return std::nullopt;
        }
        palette = *read;
    }
    const int height = std::abs(header->height);
    const auto width = static_cast<std::size_t>(header->width);
    const std::size_t rowBytes = (width * header->bitsPerPixel + 31) / 32 * 4;
    const Bytes rows = reader.Take(rowBytes * static_cast<std::size_t>(height));
    if (reader.Failed()) {
        return std::nullopt;
    }
    Pixels pixels{header->width, height, {}};
    pixels.data.reserve(width * static_cast<std::size_t>(height));
    for (int y = 0; y < height; ++y) {
        const int stored = header->height < 0 ? y : height - 1 - y;
        const Bytes row = rows.subspan(static_cast<std::size_t>(stored) * rowBytes, rowBytes);
        for (std::size_t x = 0; x < width; ++x) {
            pixels.data.push_back(PixelIn(row, x, header->bitsPerPixel, palette));
        }
    }
    return pixels;
}

}  // namespace vxd
