// What a program draws on a dialog and its controls.
#include "tests/qt/form_test.h"

namespace {

using form::FormTest;

// Fills a window from its own middle on; nothing releases the context.
void DrawOn(HWND window) {
    RECT area{};
    GetClientRect(window, &area);
    area.left = area.right / 2;
    const HBRUSH brush = CreateSolidBrush(RGB(0x10, 0xC0, 0x20));
    FillRect(GetDC(window), &area, brush);
    DeleteObject(brush);
}

TEST_F(FormTest, WhatIsDrawnOnADialogOrAControlLiesOverItsLookUntilItIsPaintedAnew) {
    for (const HWND window :
         {form_.Handle(), Control(IDC_APPLY), Control(IDC_NAME), Control(IDC_LIST)}) {
        kit::OnUserInterface([window] {
            const auto look = [window] { return native::WidgetOf(window)->grab().toImage(); };
            const QImage before = look();
            const QRect left(0, 0, before.width() / 2, before.height());
            DrawOn(window);
            EXPECT_EQ(look().pixelColor(before.rect().bottomRight() - QPoint(2, 2)),
                      QColor(0x10, 0xC0, 0x20));
            EXPECT_EQ(look().copy(left), before.copy(left)) << "where nothing is drawn";
            InvalidateRect(window, nullptr, TRUE);
            UpdateWindow(window);
            EXPECT_EQ(look(), before);
        });
    }
}

}  // namespace
