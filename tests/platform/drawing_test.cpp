// What drawing on device contexts leaves there, on windows and in memory.
#include "tests/platform/plain_window.h"

namespace {

using Row = std::vector<COLORREF>;

constexpr COLORREF kRed = RGB(255, 0, 0);
constexpr COLORREF kGreen = RGB(0, 255, 0);
constexpr COLORREF kBlue = RGB(0, 0, 255);
constexpr COLORREF kMixed = RGB(240, 204, 170);
constexpr COLORREF kNoColour = 0xFFFFFFFFu;

// What a row of a device context shows from a point on.
Row RowOf(HDC dc, int x, int y, int length) {
    Row row;
    for (int i = 0; i < length; ++i) {
        row.push_back(GetPixel(dc, x + i, y));
    }
    return row;
}

// A shown window with a static frame of 60 by 20 in it, and the frame's device context.
struct FrameInWindow {
    HWND window = kit::ShowPlainWindow();
    HWND frame = CreateWindowExA(0, "Static", "", WS_CHILD | WS_VISIBLE | SS_ETCHEDFRAME, 10, 10,
                                 60, 20, window, nullptr, nullptr, nullptr);
    HDC dc = nullptr;

    FrameInWindow() {
        UpdateWindow(frame);
        kit::Drain();
        dc = GetDC(frame);
    }
};

PROGRAM_TEST(Drawing, CopiesAndCombinesCellsOfABitmapInAFrame) {
    const FrameInWindow frame;
    const HDC dc = frame.dc;
    // Four cells of 2 by 2 pixels in a row, of a colour each.
    const HDC cells = CreateCompatibleDC(dc);
    const HBITMAP bitmap = CreateCompatibleBitmap(dc, 8, 2);
    const HGDIOBJ first = SelectObject(cells, bitmap);
    LONG left = 0;
    for (const COLORREF colour : {kRed, kGreen, kBlue, kMixed}) {
        const RECT cell{left, 0, left + 2, 2};
        const HBRUSH brush = CreateSolidBrush(colour);
        FillRect(cells, &cell, brush);
        DeleteObject(brush);
        left += 2;
    }
    EXPECT_TRUE(BitBlt(dc, 20, 6, 4, 2, cells, 2, 0, SRCCOPY));
    EXPECT_EQ(RowOf(dc, 20, 7, 4), (Row{kGreen, kGreen, kBlue, kBlue}));
    EXPECT_TRUE(BitBlt(dc, 21, 6, 2, 2, cells, 6, 0, SRCAND));
    EXPECT_EQ(RowOf(dc, 20, 6, 4), (Row{kGreen, RGB(0, 204, 0), RGB(0, 0, 170), kBlue}));
    // What the source has not got is not drawn.
    EXPECT_TRUE(BitBlt(dc, 18, 6, 4, 2, cells, -2, 0, SRCCOPY));
    EXPECT_EQ(RowOf(dc, 20, 6, 3), (Row{kRed, kRed, RGB(0, 0, 170)}));
    EXPECT_TRUE(BitBlt(dc, 19, 7, 4, 2, cells, 7, 1, SRCCOPY));
    EXPECT_EQ(RowOf(dc, 19, 7, 3), (Row{kMixed, kRed, kRed}));
    // Nor is what lies outside of the frame.
    EXPECT_TRUE(BitBlt(dc, 57, -1, 8, 2, cells, 0, 0, SRCCOPY));
    EXPECT_EQ(RowOf(dc, 57, 0, 3), (Row{kRed, kRed, kGreen}));
    EXPECT_EQ(GetPixel(dc, 60, 0), kNoColour);
    const HDC around = GetDC(frame.window);
    EXPECT_EQ(GetPixel(around, 71, 9), kit::kPlainBackground);
    ReleaseDC(frame.window, around);
    // A copy within one bitmap moves what was there before.
    EXPECT_TRUE(BitBlt(cells, 2, 0, 6, 2, cells, 0, 0, SRCCOPY));
    EXPECT_EQ(RowOf(cells, 0, 1, 8), (Row{kRed, kRed, kRed, kRed, kGreen, kGreen, kBlue, kBlue}));
    EXPECT_EQ(SelectObject(cells, first), bitmap);
    EXPECT_TRUE(DeleteObject(bitmap));
    EXPECT_TRUE(DeleteDC(cells));
}

constexpr std::uint32_t PictureOf(COLORREF colour) {
    return std::uint32_t{GetRValue(colour)} << 16 | std::uint32_t{GetGValue(colour)} << 8 |
           GetBValue(colour);
}

// The upper row is red and green, the lower one blue and mixed.
constexpr std::array kPicture = {PictureOf(kRed), PictureOf(kGreen), PictureOf(kBlue),
                                 PictureOf(kMixed)};

BITMAPINFO Describe(LONG height) {
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = 2;
    info.bmiHeader.biHeight = height;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    return info;
}

PROGRAM_TEST(Drawing, APictureFillsTheAreaItIsStretchedOver) {
    const FrameInWindow frame;
    const HDC dc = frame.dc;
    SetStretchBltMode(dc, COLORONCOLOR);
    const auto draw = [dc](const RECT& to, LONG height) {
        const BITMAPINFO info = Describe(height);
        return StretchDIBits(dc, to.left, to.top, to.right - to.left, to.bottom - to.top, 0, 0, 2,
                             2, kPicture.data(), &info, DIB_RGB_COLORS, SRCCOPY);
    };
    EXPECT_EQ(draw({4, 4, 6, 6}, -2), 2);
    EXPECT_EQ(RowOf(dc, 4, 4, 2), (Row{kRed, kGreen}));
    EXPECT_EQ(RowOf(dc, 4, 5, 2), (Row{kBlue, kMixed}));
    EXPECT_EQ(draw({4, 4, 8, 10}, 2), 2) << "the lower row comes first";
    EXPECT_EQ(RowOf(dc, 4, 6, 4), (Row{kBlue, kBlue, kMixed, kMixed}));
    EXPECT_EQ(RowOf(dc, 4, 7, 4), (Row{kRed, kRed, kGreen, kGreen}));
    EXPECT_EQ(draw({-2, -2, 2, 2}, -2), 2) << "as much of it as the frame has";
    EXPECT_EQ(RowOf(dc, 0, 1, 2), (Row{kMixed, kMixed}));
}

}  // namespace
