// When a window is asked to paint, and what painting reaches.
#include "tests/platform/plain_window.h"

namespace {

using kit::ShowPlainWindow;

COLORREF ColourAt(HWND window, int x, int y) {
    const HDC dc = GetDC(window);
    const COLORREF colour = GetPixel(dc, x, y);
    ReleaseDC(window, dc);
    return colour;
}

PROGRAM_TEST(Painting, ComesAgainUntilTheUpdateRegionIsTaken) {
    const HWND window = ShowPlainWindow();
    RECT part{5, 6, 25, 16};
    InvalidateRect(window, &part, FALSE);
    MSG message;
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_PAINT));
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_PAINT));
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    EXPECT_EQ(paint.rcPaint.left, 5);
    EXPECT_EQ(paint.rcPaint.bottom, 16);
    // Only what waits to be painted is drawn on.
    const HBRUSH brush = CreateSolidBrush(RGB(200, 100, 50));
    RECT all{0, 0, 200, 100};
    FillRect(dc, &all, brush);
    DeleteObject(brush);
    EndPaint(window, &paint);
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
    EXPECT_EQ(ColourAt(window, 10, 10), RGB(200, 100, 50));
    EXPECT_EQ(ColourAt(window, 40, 40), kit::kPlainBackground) << "the class's background";
}

PROGRAM_TEST(Painting, DamageAddsUpAndIsErasedWhenAnyOfItAsksForThat) {
    const HWND window = ShowPlainWindow();
    const HBRUSH brush = CreateSolidBrush(RGB(200, 100, 50));
    const RECT all{0, 0, 200, 100};
    const HDC dc = GetDC(window);
    FillRect(dc, &all, brush);
    ReleaseDC(window, dc);
    DeleteObject(brush);
    const RECT kept{10, 10, 20, 20};
    InvalidateRect(window, &kept, FALSE);
    PAINTSTRUCT paint;
    BeginPaint(window, &paint);
    EndPaint(window, &paint);
    EXPECT_EQ(ColourAt(window, 15, 15), RGB(200, 100, 50));
    const RECT other{30, 10, 40, 30};
    InvalidateRect(window, &kept, TRUE);
    InvalidateRect(window, &other, FALSE);
    BeginPaint(window, &paint);
    EXPECT_EQ(paint.rcPaint.left, 10);
    EXPECT_EQ(paint.rcPaint.right, 40);
    EXPECT_EQ(paint.rcPaint.bottom, 30);
    EXPECT_FALSE(paint.fErase) << "the class's brush has erased";
    EndPaint(window, &paint);
    EXPECT_EQ(ColourAt(window, 15, 15), kit::kPlainBackground);
    EXPECT_EQ(ColourAt(window, 35, 15), kit::kPlainBackground);
    EXPECT_EQ(ColourAt(window, 5, 5), RGB(200, 100, 50));
}

}  // namespace
