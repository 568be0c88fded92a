// Draws the two bitmaps that a map of motion is made of: a scale of colours, one for each length of
// a motion vector in pixels, and arrows for its direction, which are laid over a colour by
// SRCAND: black stays black, and white leaves the colour.
//
// The colours get lighter from one to the next, so that they are told apart without their hue too,
// and even the darkest lets a black arrow be read. All is drawn in whole numbers: it comes out the
// same wherever it is built.
#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>
#include <utility>
#include <vector>

namespace {

constexpr int kCell = 16;

struct Colour {
    int red, green, blue;
};

constexpr Colour kBlack{0, 0, 0};
constexpr Colour kWhite{255, 255, 255};

// Pixels as numbers of colours in a palette, the upper row first.
class Bitmap {
  public:
    Bitmap(int width, int height, std::vector<Colour> palette)
        : width_(width),
          height_(height),
          palette_(std::move(palette)),
          pixels_(static_cast<std::size_t>(width * height)) {}

    void Set(int x, int y, std::size_t colour) {
        pixels_[static_cast<std::size_t>(y * width_ + x)] = static_cast<std::uint8_t>(colour);
    }

    bool Write(const std::string& path) const {
        std::ofstream file(path, std::ios::binary);
        const std::vector<char> bytes = File();
        file.write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        file.close();
        return !file.fail();
    }

  private:
    // A bitmap file of 8 bits a pixel. Its rows are whole 32-bit words, as both widths are.
    std::vector<char> File() const {
        constexpr std::uint32_t kFileHeader = 14;
        constexpr std::uint32_t kInfoHeader = 40;
        const auto colours = static_cast<std::uint32_t>(palette_.size());
        const auto pixelBytes = static_cast<std::uint32_t>(pixels_.size());
        const std::uint32_t offset = kFileHeader + kInfoHeader + 4 * colours;
        std::vector<char> file = {'B', 'M'};
        const auto append = [&file](std::uint32_t number, int bytes) {
            for (int i = 0; i < bytes; ++i) {
                file.push_back(static_cast<char>(number >> (8 * i) & 0xFF));
            }
        };
        append(offset + pixelBytes, 4);
        append(0, 4);
        append(offset, 4);
        append(kInfoHeader, 4);
        append(static_cast<std::uint32_t>(width_), 4);
        append(static_cast<std::uint32_t>(height_), 4);
        append(1, 2);  // planes
        append(8, 2);  // bits per pixel
        append(0, 4);  // uncompressed
        append(pixelBytes, 4);
        append(0, 4);  // resolution
        append(0, 4);
        append(colours, 4);
        append(0, 4);  // all colours matter
        for (const Colour& colour : palette_) {
            for (const int channel : {colour.blue, colour.green, colour.red, 0}) {
                append(static_cast<std::uint32_t>(channel), 1);
            }
        }
        for (int y = height_; y-- > 0;) {
            const auto row = pixels_.begin() + y * width_;
            file.insert(file.end(), row, row + width_);
        }
        return file;
    }

    int width_;
    int height_;
    std::vector<Colour> palette_;
    std::vector<std::uint8_t> pixels_;
};

constexpr int kScaleCells = 24;
constexpr int kScaleHeight = 28;

struct ScalePoint {
    int cell;
    Colour colour;
};

// From cold to hot. Between these points each channel runs in a straight line.
constexpr std::array<ScalePoint, 6> kScale = {{{0, {40, 88, 232}},
                                               {6, {150, 108, 246}},
                                               {11, {236, 112, 196}},
                                               {16, {252, 150, 104}},
                                               {20, {252, 198, 70}},
                                               {23, {255, 248, 150}}}};

Colour ScaleColour(int cell) {
    const auto next = std::find_if(kScale.begin() + 1, kScale.end(),
                                   [cell](const ScalePoint& point) { return cell <= point.cell; });
    const ScalePoint& from = *(next - 1);
    const ScalePoint& to = *next;
    const int length = to.cell - from.cell;
    const auto between = [&](int Colour::*channel) {
        const int sum =
            from.colour.*channel * (to.cell - cell) + to.colour.*channel * (cell - from.cell);
        return (sum + length / 2) / length;
    };
    return {between(&Colour::red), between(&Colour::green), between(&Colour::blue)};
}

constexpr int kDigitWidth = 5;
constexpr int kDigitHeight = 7;
// A row of five pixels for each bit pattern, the left one highest.
constexpr std::array<std::array<std::uint8_t, kDigitHeight>, 10> kDigits = {{
    {0b01110, 0b10001, 0b10001, 0b10001, 0b10001, 0b10001, 0b01110},
    {0b00100, 0b01100, 0b00100, 0b00100, 0b00100, 0b00100, 0b01110},
    {0b01110, 0b10001, 0b00001, 0b00010, 0b00100, 0b01000, 0b11111},
    {0b01110, 0b10001, 0b00001, 0b00110, 0b00001, 0b10001, 0b01110},
    {0b00010, 0b00110, 0b01010, 0b10010, 0b11111, 0b00010, 0b00010},
    {0b11111, 0b10000, 0b11110, 0b00001, 0b00001, 0b10001, 0b01110},
    {0b00110, 0b01000, 0b10000, 0b11110, 0b10001, 0b10001, 0b01110},
    {0b11111, 0b00001, 0b00010, 0b00010, 0b00100, 0b00100, 0b00100},
    {0b01110, 0b10001, 0b10001, 0b01110, 0b10001, 0b10001, 0b01110},
    {0b01110, 0b10001, 0b10001, 0b01111, 0b00001, 0b00010, 0b01100},
}};

void DrawDigit(Bitmap& bitmap, int left, int top, int digit, std::size_t colour) {
    for (int y = 0; y < kDigitHeight; ++y) {
        const int row = kDigits[static_cast<std::size_t>(digit)][static_cast<std::size_t>(y)];
        for (int x = 0; x < kDigitWidth; ++x) {
            if ((row >> (kDigitWidth - 1 - x) & 1) != 0) {
                bitmap.Set(left + x, top + y, colour);
            }
        }
    }
}

// The map takes the upper 16 rows of a cell; below them the cell bears its number.
Bitmap DrawScale() {
    std::vector<Colour> palette;
    for (int cell = 0; cell < kScaleCells; ++cell) {
        palette.push_back(ScaleColour(cell));
    }
    palette.push_back(kBlack);
    const std::size_t black = palette.size() - 1;
    Bitmap bitmap(kScaleCells * kCell, kScaleHeight, std::move(palette));
    constexpr int kNumberTop = kCell + 2;
    for (int cell = 0; cell < kScaleCells; ++cell) {
        for (int x = cell * kCell; x < (cell + 1) * kCell; ++x) {
            for (int y = 0; y < kScaleHeight; ++y) {
                bitmap.Set(x, y, static_cast<std::size_t>(cell));
            }
        }
        const int middle = cell * kCell + kCell / 2;
        if (cell < 10) {
            DrawDigit(bitmap, middle - 3, kNumberTop, cell, black);
        } else {
            DrawDigit(bitmap, middle - 6, kNumberTop, cell / 10, black);
            DrawDigit(bitmap, middle, kNumberTop, cell % 10, black);
        }
    }
    return bitmap;
}

// Whether an arrow to the right covers a point of a cell.
bool OnStraightArrow(int x, int y) {
    const int fromAxis = y < kCell / 2 ? kCell / 2 - 1 - y : y - kCell / 2;
    const bool onShaft = x >= 2 && x < 9 && fromAxis == 0;
    return onShaft || (x >= 9 && x < 14 && fromAxis < 14 - x);
}

// The same of an arrow down and to the right.
bool OnSlantingArrow(int x, int y) {
    const bool onShaft = x >= 3 && y >= 3 && x + y < 20 && std::abs(x - y) <= 1;
    return onShaft || (x <= 12 && y <= 12 && x + y >= 18);
}

struct Direction {
    int x;  // the sign of what the vector has to the right
    int y;  // and of what it has down
};

// In the order of their cells. The first one stands for no motion.
constexpr std::array<Direction, 9> kDirections = {
    {{0, 0}, {-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};

bool OnArrow(Direction direction, int x, int y) {
    if (direction.x == 0 && direction.y == 0) {
        return x >= 7 && x < 9 && y >= 7 && y < 9;
    }
    const auto mirrored = [](int sign, int at) { return sign < 0 ? kCell - 1 - at : at; };
    const int along = mirrored(direction.x, x);
    const int down = mirrored(direction.y, y);
    if (direction.y == 0) {
        return OnStraightArrow(along, y);
    }
    return direction.x == 0 ? OnStraightArrow(down, x) : OnSlantingArrow(along, down);
}

Bitmap DrawDirections() {
    Bitmap bitmap(static_cast<int>(kDirections.size()) * kCell, kCell, {kWhite, kBlack});
    int left = 0;
    for (const Direction direction : kDirections) {
        for (int y = 0; y < kCell; ++y) {
            for (int x = 0; x < kCell; ++x) {
                bitmap.Set(left + x, y, OnArrow(direction, x, y) ? 1 : 0);
            }
        }
        left += kCell;
    }
    return bitmap;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 3) {
        std::fprintf(stderr, "usage: %s SCALE_FILE DIRECTIONS_FILE\n", argv[0]);
        return 2;
    }
    if (!DrawScale().Write(argv[1]) || !DrawDirections().Write(argv[2])) {
        std::fprintf(stderr, "cannot write %s and %s\n", argv[1], argv[2]);
        return 1;
    }
    return 0;
}
