// The arrows of a map of motion, as the utility loads them.
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

  private:
    HDC dc_;
    HBITMAP bitmap_;
    HGDIOBJ before_;
};

PROGRAM_TEST(MotionBitmaps, HaveABlackArrowOnWhiteForEachDirection) {
    const Loaded arrows(IDB_MOTION_DIRECTIONS);
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
