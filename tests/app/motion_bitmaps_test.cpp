// The bitmaps that a map of motion is made of, as the utility loads them.
#include <gtest/gtest.h>

#include <array>
#include <cmath>

#include "platform/win32.h"
#include "res/resource.h"
#include "tests/platform/plain_window.h"

namespace {

constexpr int kCell = 16;

// A bitmap of the program's on a device context in memory.
class Loaded {
  public:
    explicit Loaded(int id)
        : dc_(CreateCompatibleDC(nullptr)),
          bitmap_(LoadBitmapA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(id))),
          before_(SelectObject(dc_, bitmap_)) {}
    ~Loaded() {
        SelectObject(dc_, before_);
        EXPECT_TRUE(DeleteObject(bitmap_));
        DeleteDC(dc_);
    }
    Loaded(const Loaded&) = delete;
    Loaded& operator=(const Loaded&) = delete;

    COLORREF At(int x, int y) const { return GetPixel(dc_, x, y); }
    bool Has(int x, int y) const { return At(x, y) != 0xFFFFFFFFu; }

  private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

// How much light a colour gives, from 0 to 1.
double LuminanceOf(COLORREF colour) {
    const auto linear = [](int channel) { return std::pow(channel / 255.0, 2.2); };
    return 0.2126 * linear(GetRValue(colour)) + 0.7152 * linear(GetGValue(colour)) +
           0.0722 * linear(GetBValue(colour));
}

PROGRAM_TEST(MotionBitmaps, HaveAScaleThatGetsLighterFromCellToCell) {
    const Loaded scale(IDB_MOTION_SCALE);
    EXPECT_TRUE(scale.Has(383, 27));
    EXPECT_FALSE(scale.Has(384, 0));
    EXPECT_FALSE(scale.Has(0, 28));
    double before = 0.1;  // black arrows can be read on all of them
    for (int cell = 0; cell < 24; ++cell) {
        const COLORREF colour = scale.At(cell * kCell, 0);
        EXPECT_GT(LuminanceOf(colour), before + 0.005) << cell;
        before = LuminanceOf(colour);
        for (int i = 0; i < kCell * kCell; ++i) {
            ASSERT_EQ(scale.At(cell * kCell + i % kCell, i / kCell), colour) << cell;
        }
    }
    EXPECT_GT(GetBValue(scale.At(0, 0)), GetRValue(scale.At(0, 0))) << "cold";
    EXPECT_LT(GetBValue(scale.At(383, 0)), GetRValue(scale.At(383, 0))) << "hot";
}

PROGRAM_TEST(MotionBitmaps, HaveABlackArrowOnWhiteForEachDirection) {
    const Loaded arrows(IDB_MOTION_DIRECTIONS);
    EXPECT_TRUE(arrows.Has(143, 15));
    EXPECT_FALSE(arrows.Has(144, 15));
    EXPECT_FALSE(arrows.Has(143, 16));
    // Where an arrow is heaviest is where it points to.
    constexpr std::array<POINT, 9> kDirections = {
        {{0, 0}, {-1, 0}, {1, 0}, {0, -1}, {0, 1}, {-1, -1}, {1, -1}, {1, 1}, {-1, 1}}};
    int left = 0;
    for (const POINT& direction : kDirections) {
        int black = 0;
        int right = 0;  // twice as far from the middle as the pixels lie, added up
        int down = 0;
        for (int i = 0; i < kCell * kCell; ++i) {
            const COLORREF colour = arrows.At(left + i % kCell, i / kCell);
            EXPECT_TRUE(colour == RGB(0, 0, 0) || colour == RGB(255, 255, 255));
            if (colour == RGB(0, 0, 0)) {
                ++black;
                right += 2 * (i % kCell) - (kCell - 1);
                down += 2 * (i / kCell) - (kCell - 1);
            }
        }
        const auto sign = [black](int sum) { return sum > black ? 1 : sum < -black ? -1 : 0; };
        EXPECT_GT(black, 0);
        EXPECT_EQ(sign(right), direction.x) << left;
        EXPECT_EQ(sign(down), direction.y) << left;
        left += kCell;
    }
}

}  // namespace
