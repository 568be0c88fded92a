// What a program draws is shown pixel by pixel, whatever scale the desktop has.
#include <gtest/gtest.h>

#include <QImage>
#include <QPainter>
#include <QWidget>
#include <array>
#include <cstdint>

#include "tests/platform/plain_window.h"
#include "tests/qt/form_test.h"
#include "tests/qt/native.h"

namespace {

using form::FormTest;
using kit::OnUserInterface;

constexpr int kSide = 24;

// No pixel has a neighbour of its colour.
constexpr std::uint32_t PatternAt(int x, int y) {
    constexpr std::array<std::uint32_t, 4> kColours = {0xF0C020, 0x102080, 0x20C060, 0xE04040};
    return kColours[static_cast<std::size_t>((x + 2 * y) % 4)];
}

void DrawPattern(HDC dc) {
    std::array<std::uint32_t, kSide * kSide> pixels{};
    for (int i = 0; i < kSide * kSide; ++i) {
        pixels[static_cast<std::size_t>(i)] = PatternAt(i % kSide, i / kSide);
    }
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = kSide;
    info.bmiHeader.biHeight = -kSide;
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    StretchDIBits(dc, 0, 0, kSide, kSide, 0, 0, kSide, kSide, pixels.data(), &info, DIB_RGB_COLORS,
                  SRCCOPY);
}

QImage ImageOf(QWidget& widget, double scale) {
    QImage image(widget.size() * scale, QImage::Format_RGB32);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::white);
    widget.render(&image);
    return image;
}

void ExpectSharpPixels(HWND window) {
    const HDC dc = GetDC(window);
    DrawPattern(dc);
    QWidget& widget = *native::WidgetOf(window);
    const QImage twice = ImageOf(widget, 2);
    const QImage oddly = ImageOf(widget, 1.5);
    int blended = 0;
    for (int y = 0; y < 2 * kSide; ++y) {
        for (int x = 0; x < 2 * kSide; ++x) {
            ASSERT_EQ(twice.pixel(x, y) & 0xFFFFFF, PatternAt(x / 2, y / 2)) << x << ' ' << y;
            if (x < kSide * 3 / 2 && y < kSide * 3 / 2) {
                const std::uint32_t pixel = oddly.pixel(x, y) & 0xFFFFFF;
                const int column = x * 2 / 3;
                const int row = y * 2 / 3;
                blended += pixel == PatternAt(column, row) || pixel == PatternAt(column + 1, row) ||
                                   pixel == PatternAt(column, row + 1) ||
                                   pixel == PatternAt(column + 1, row + 1)
                               ? 0
                               : 1;
            }
        }
    }
    EXPECT_EQ(blended, 0);

    // Painting a part anew changes nothing of what is there.
    QImage patched = oddly;
    for (const QPoint at : {QPoint(5, 7), QPoint(6, 7), QPoint(8, 3)}) {
        widget.render(&patched, at, QRegion(QRect(at, QSize(1, 1))), QWidget::RenderFlags());
    }
    EXPECT_EQ(patched, oddly);
    ReleaseDC(window, dc);
}

TEST(DrawingOnScreen, IsSharpAtEveryScaleAndInParts) {
    kit::RunAsProgram([] {
        const HWND window = kit::MakePlainWindow();
        const HWND frame = CreateWindowExA(0, "Static", "", WS_CHILD | WS_VISIBLE | SS_ETCHEDFRAME,
                                           40, 10, 60, 40, window, nullptr, nullptr, nullptr);
        const HWND child = CreateWindowExA(0, "Telling", "", WS_CHILD | WS_VISIBLE, 110, 10, 60, 40,
                                           window, nullptr, nullptr, nullptr);
        ShowWindow(window, SW_SHOW);
        UpdateWindow(window);
        UpdateWindow(child);
        ExpectSharpPixels(frame);
        ExpectSharpPixels(child);
    });
}

// Fills a window from its own middle on; nothing releases the context.
void DrawOn(HWND window, COLORREF colour) {
    RECT area{};
    GetClientRect(window, &area);
    area.left = area.right / 2;
    const HBRUSH brush = CreateSolidBrush(colour);
    FillRect(GetDC(window), &area, brush);
    DeleteObject(brush);
}

TEST_F(FormTest, WhatIsDrawnOnAControlLiesOverItsLookUntilItIsPaintedAnew) {
    constexpr QColor kDrawn(0x10, 0xC0, 0x20);
    for (const int id : {IDC_APPLY, IDC_NAME, IDC_LIST}) {
        const HWND control = Control(id);
        OnUserInterface([=] {
            const auto look = [=] { return native::WidgetOf(control)->grab().toImage(); };
            const QImage before = look();
            const QPoint drawnAt = before.rect().bottomRight() - QPoint(2, 2);
            DrawOn(control, RGB(0x10, 0xC0, 0x20));
            EXPECT_EQ(look().pixelColor(drawnAt), kDrawn) << id;
            EXPECT_EQ(look().copy(0, 0, before.width() / 2, before.height()),
                      before.copy(0, 0, before.width() / 2, before.height()))
                << id << " lost its own look where nothing is drawn";
            InvalidateRect(control, nullptr, TRUE);
            UpdateWindow(control);
            EXPECT_EQ(look(), before) << id;
        });
    }
}

TEST_F(FormTest, WhatIsDrawnOnADialogIsSeenBehindItsControlsUntilItIsPaintedAnew) {
    const HWND form = form_.Handle();
    const HWND button = Control(IDC_APPLY);
    OnUserInterface([=] {
        const auto look = [=] { return native::WidgetOf(form)->grab().toImage(); };
        const QImage before = look();
        const QRect inFront = native::WidgetOf(button)->geometry().adjusted(4, 4, -4, -4);
        DrawOn(form, RGB(0x10, 0xC0, 0x20));
        const QImage drawn = look();
        EXPECT_EQ(drawn.pixelColor(drawn.rect().bottomRight()), QColor(0x10, 0xC0, 0x20));
        EXPECT_EQ(drawn.copy(inFront), before.copy(inFront));
        InvalidateRect(form, nullptr, TRUE);
        UpdateWindow(form);
        EXPECT_EQ(look(), before);
    });
}

}  // namespace
