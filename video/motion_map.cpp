#include "video/motion_map.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>

#include "res/resource.h"

namespace {

constexpr int kCell = 16;
constexpr int kColours = 24;
constexpr int kDirections = 9;
constexpr int kScaleWidth = kColours * kCell;
constexpr int kScaleHeight = 28;
// Of the scale in its frame.
constexpr int kScaleX = 8;
constexpr int kScaleY = 16;

// The arrows by the signs of x and y, each -1, 0 or 1.
constexpr std::array<std::array<int, 3>, 3> kArrows{{{5, 1, 8}, {3, 0, 4}, {6, 2, 7}}};

int Sign(int value) {
    return (value > 0) - (value < 0);
}

using Magnitudes = std::array<std::array<int, kColours>, kColours>;

Magnitudes MakeMagnitudes() {
    Magnitudes magnitudes{};
    for (int a = 0; a < kColours; ++a) {
        for (int b = 0; b < kColours; ++b) {
            magnitudes[static_cast<std::size_t>(a)][static_cast<std::size_t>(b)] =
                static_cast<int>(std::sqrt(static_cast<double>(a * a + b * b)) + 0.5);
        }
    }
    return magnitudes;
}

int Magnitude(int x, int y) {
    static const Magnitudes magnitudes = MakeMagnitudes();
    const auto side = [](int component) {
        return static_cast<std::size_t>(std::min(std::abs(component), kColours - 1));
    };
    return magnitudes[side(x)][side(y)];
}

struct Cell {
    int colour;
    int arrow;
};

Cell CellOf(MotionVector vector, MotionShown shown) {
    const int x = shown == MotionShown::kY ? 0 : vector.x;
    const int y = shown == MotionShown::kX ? 0 : vector.y;
    const auto row = static_cast<std::size_t>(Sign(x) + 1);
    const auto column = static_cast<std::size_t>(Sign(y) + 1);
    return {std::min(Magnitude(x, y), kColours - 1), kArrows[row][column]};
}

}  // namespace

MotionMap::~MotionMap() {
    if (memory_ != nullptr) {
        SelectObject(memory_, noBitmap_);
        DeleteDC(memory_);
    }
    for (const HBITMAP bitmap : {scale_, directions_, cells_}) {
        if (bitmap != nullptr) {
            DeleteObject(bitmap);
        }
    }
}

void MotionMap::Load(HINSTANCE instance, HWND window) {
    scale_ = LoadBitmapA(instance, MAKEINTRESOURCEA(IDB_MOTION_SCALE));
    directions_ = LoadBitmapA(instance, MAKEINTRESOURCEA(IDB_MOTION_DIRECTIONS));
    if (scale_ == nullptr || directions_ == nullptr) {
        return;
    }
    const HDC screen = GetDC(window);
    memory_ = CreateCompatibleDC(screen);
    const bool composed = memory_ != nullptr && ComposeCells(screen);
    ReleaseDC(window, screen);
    if (!composed && cells_ != nullptr) {
        DeleteObject(cells_);
        cells_ = nullptr;
    }
}

// A column for each colour, a row for each arrow, so that a cell of the map is one copy.
bool MotionMap::ComposeCells(HDC screen) {
    cells_ = CreateCompatibleBitmap(screen, kScaleWidth, kDirections * kCell);
    const HDC target = CreateCompatibleDC(screen);
    if (cells_ == nullptr || target == nullptr) {
        DeleteDC(target);
        return false;
    }
    const HGDIOBJ noTarget = SelectObject(target, cells_);
    noBitmap_ = SelectObject(memory_, scale_);
    for (int arrow = 0; arrow < kDirections; ++arrow) {
        BitBlt(target, 0, arrow * kCell, kScaleWidth, kCell, memory_, 0, 0, SRCCOPY);
    }
    SelectObject(memory_, directions_);
    for (int arrow = 0; arrow < kDirections; ++arrow) {
        for (int colour = 0; colour < kColours; ++colour) {
            BitBlt(target, colour * kCell, arrow * kCell, kCell, kCell, memory_, arrow * kCell, 0,
                   SRCAND);
        }
    }
    SelectObject(target, noTarget);
    DeleteDC(target);
    return true;
}

void MotionMap::Draw(HWND window, const VppStatistics& current, const VppStatistics& previous,
                     MotionShown shown) const {
    if (cells_ == nullptr || current.vectors == previous.vectors) {
        return;
    }
    const HDC dc = GetDC(window);
    if (dc == nullptr) {
        return;
    }
    SelectObject(memory_, cells_);
    for (int block = 0; block < kMotionColumns * kMotionRows; ++block) {
        const auto index = static_cast<std::size_t>(block);
        if (current.vectors[index] == previous.vectors[index]) {
            continue;
        }
        const Cell cell = CellOf(current.vectors[index], shown);
        BitBlt(dc, block % kMotionColumns * kCell, block / kMotionColumns * kCell, kCell, kCell,
               memory_, cell.colour * kCell, cell.arrow * kCell, SRCCOPY);
    }
    ReleaseDC(window, dc);
}

void MotionMap::DrawScale(HWND window) const {
    if (cells_ == nullptr) {
        return;
    }
    const HDC dc = GetDC(window);
    if (dc == nullptr) {
        return;
    }
    SelectObject(memory_, scale_);
    BitBlt(dc, kScaleX, kScaleY, kScaleWidth, kScaleHeight, memory_, 0, 0, SRCCOPY);
    ReleaseDC(window, dc);
}
