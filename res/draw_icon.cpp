// Draws the program's icon: a circuit-board chip with a camera lens on it, in the three sizes that
// title bars, task lists and the About box ask for, as 32-bit images with alpha.
//
// The drawing lives on a square of 48 units. Its straight edges lie on multiples of 3, which are
// whole pixels at 16 and 48 pixels and at worst half pixels at 32.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <fstream>
#include <vector>

namespace {

constexpr double kUnits = 48;
constexpr std::array<std::uint32_t, 3> kSizes = {16, 32, 48};
constexpr int kSamples = 8;  // per pixel and direction

struct Colour {
    double red, green, blue;
};

struct Point {
    double x, y;
};

// What one sample point sees; nothing at all outside the chip.
struct Sample {
    bool opaque = false;
    Colour colour{};
};

Colour Blend(Colour from, Colour to, double share) {
    share = std::clamp(share, 0.0, 1.0);
    return {from.red + (to.red - from.red) * share, from.green + (to.green - from.green) * share,
            from.blue + (to.blue - from.blue) * share};
}

double Distance(Point a, Point b) {
    return std::hypot(a.x - b.x, a.y - b.y);
}

bool InBox(Point point, double left, double top, double right, double bottom, double radius) {
    const double x = std::max({left + radius - point.x, point.x - (right - radius), 0.0});
    const double y = std::max({top + radius - point.y, point.y - (bottom - radius), 0.0});
    return point.x >= left && point.x < right && point.y >= top && point.y < bottom &&
           x * x + y * y <= radius * radius;
}

// Three pins a side, 6 units wide with 3 between them.
bool OnPin(Point point) {
    const auto onRow = [](double along) {
        const double place = std::fmod(along - 12, 9);
        return along >= 12 && along < 36 && place < 6;
    };
    const auto inReach = [](double across) { return across >= 3 && across < 45; };
    return (onRow(point.x) && inReach(point.y)) || (onRow(point.y) && inReach(point.x));
}

Colour LensColour(Point point, double distance) {
    constexpr Point kHighlight = {20.5, 19.5};
    if (Distance(point, kHighlight) < 2.2) {
        return {235, 245, 255};
    }
    if (distance < 3) {
        return {14, 22, 46};
    }
    if (distance < 7.5) {
        return Blend({120, 190, 245}, {28, 66, 150}, (point.x + point.y - 38) / 20);
    }
    return {26, 30, 38};
}

Sample Look(Point point) {
    constexpr Point kCentre = {24, 24};
    constexpr double kRimRadius = 11.5;
    constexpr double kLensRadius = 9.75;
    constexpr Point kLight = {34.5, 13.5};

    if (InBox(point, 9, 9, 39, 39, 3)) {
        const double distance = Distance(point, kCentre);
        if (distance < kLensRadius) {
            return {true, LensColour(point, distance)};
        }
        if (distance < kRimRadius) {
            return {true, {206, 214, 220}};
        }
        if (Distance(point, kLight) < 2) {
            return {true, {255, 92, 70}};
        }
        return {true, Blend({30, 142, 92}, {12, 84, 62}, (point.x + point.y - 18) / 60)};
    }
    if (OnPin(point)) {
        return {true, Blend({240, 204, 110}, {196, 148, 48}, (point.x + point.y - 24) / 48)};
    }
    return {};
}

void AppendNumber(std::vector<std::uint8_t>& bytes, std::uint32_t value, int width) {
    for (int i = 0; i < width; ++i) {
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
    }
}

void AppendPixel(std::vector<std::uint8_t>& bytes, std::uint32_t size, std::uint32_t column,
                 std::uint32_t row) {
    Colour sum{};
    int covered = 0;
    for (int i = 0; i < kSamples * kSamples; ++i) {
        const int across = i % kSamples;
        const int down = i / kSamples;
        const double x = column + (across + 0.5) / kSamples;
        const double y = row + (down + 0.5) / kSamples;
        const Sample sample = Look({x * kUnits / size, y * kUnits / size});
        if (sample.opaque) {
            ++covered;
            sum.red += sample.colour.red;
            sum.green += sample.colour.green;
            sum.blue += sample.colour.blue;
        }
    }
    const double share = std::max(covered, 1);
    for (const double channel : {sum.blue, sum.green, sum.red}) {
        bytes.push_back(static_cast<std::uint8_t>(std::lround(channel / share)));
    }
    bytes.push_back(static_cast<std::uint8_t>(covered * 255 / (kSamples * kSamples)));
}

// One image as icon files hold it: a bitmap header of twice the height, the pixels from the bottom
// row up, and a one-bit mask (rows of whole 32-bit words) for systems that ignore alpha.
std::vector<std::uint8_t> DrawImage(std::uint32_t size) {
    constexpr std::uint32_t kHeaderSize = 40;
    const std::uint32_t maskRow = (size + 31) / 32 * 4;
    std::vector<std::uint8_t> image;
    AppendNumber(image, kHeaderSize, 4);
    AppendNumber(image, size, 4);
    AppendNumber(image, size * 2, 4);
    AppendNumber(image, 1, 2);   // planes
    AppendNumber(image, 32, 2);  // bits per pixel
    AppendNumber(image, 0, 4);   // uncompressed
    AppendNumber(image, size * size * 4 + maskRow * size, 4);
    image.resize(kHeaderSize);

    std::vector<std::uint8_t> mask(maskRow * size);
    for (std::uint32_t row = size; row-- > 0;) {
        for (std::uint32_t column = 0; column < size; ++column) {
            AppendPixel(image, size, column, row);
            if (image.back() < 128) {
                mask[(size - 1 - row) * maskRow + column / 8] |=
                    static_cast<std::uint8_t>(0x80 >> (column % 8));
            }
        }
    }
    image.insert(image.end(), mask.begin(), mask.end());
    return image;
}

std::vector<std::uint8_t> DrawIcon() {
    constexpr std::size_t kFileHeaderSize = 6;
    constexpr std::size_t kEntrySize = 16;
    std::vector<std::uint8_t> file;
    std::vector<std::uint8_t> images;
    AppendNumber(file, 0, 2);
    AppendNumber(file, 1, 2);  // an icon, not a cursor
    AppendNumber(file, kSizes.size(), 2);
    for (const std::uint32_t size : kSizes) {
        const std::vector<std::uint8_t> image = DrawImage(size);
        const std::size_t offset = kFileHeaderSize + kSizes.size() * kEntrySize + images.size();
        AppendNumber(file, size, 1);
        AppendNumber(file, size, 1);
        AppendNumber(file, 0, 2);   // no palette
        AppendNumber(file, 1, 2);   // planes
        AppendNumber(file, 32, 2);  // bits per pixel
        AppendNumber(file, static_cast<std::uint32_t>(image.size()), 4);
        AppendNumber(file, static_cast<std::uint32_t>(offset), 4);
        images.insert(images.end(), image.begin(), image.end());
    }
    file.insert(file.end(), images.begin(), images.end());
    return file;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) {
        std::fprintf(stderr, "usage: %s ICON_FILE\n", argv[0]);
        return 2;
    }
    const std::vector<std::uint8_t> icon = DrawIcon();
    std::ofstream file(argv[1], std::ios::binary);
    file.write(reinterpret_cast<const char*>(icon.data()),
               static_cast<std::streamsize>(icon.size()));
    file.close();
    if (!file) {
        std::fprintf(stderr, "%s: cannot write %s\n", argv[0], argv[1]);
        return 1;
    }
    return 0;
}
