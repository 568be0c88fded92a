// A window on the desktop: its painting, its place, and what reaches it beside a dialog.
#include <QWindow>
#include <clocale>

#include "tests/kit/dialog.h"
#include "tests/qt/window_test.h"

namespace {

using form::kSeenColour;
using form::WindowTest;
using kit::OnUserInterface;

TEST_F(WindowTest, TheProgramsPixelsFillTheClientAreaBelowAllRowsOfTheMenuBar) {
    EXPECT_EQ(SeenAt({0, 0}), kSeenColour);
    EXPECT_EQ(SeenAt(ClientRect().bottomRight()), kSeenColour);
    EXPECT_NE(SeenAt({0, -1}), kSeenColour);
}

TEST_F(WindowTest, WhatIsUncoveredIsPaintedAnewAndNothingElse) {
    EXPECT_EQ(TakePainted(), std::vector<QRect>{ClientRect()}) << "the first showing paints once";
    const int menuHeight = WindowRect().height() - ClientRect().height();
    // At first the desktop may still be about the showing itself.
    std::vector<QRect> painted;
    for (int turn = 0; painted.empty() && turn < 50; ++turn) {
        std::this_thread::sleep_for(std::chrono::milliseconds(20));
        Expose(QRect(10, menuHeight + 5, 30, 20));
        painted = TakePainted();
    }
    EXPECT_EQ(painted, (std::vector<QRect>{QRect(10, 5, 30, 20)}));
    Expose(QRect(0, 0, 50, menuHeight));
    EXPECT_EQ(TakePainted(), (std::vector<QRect>{})) << "the menu bar is not the program's";
}

TEST_F(WindowTest, AMoveOrResizeByTheDesktopReachesTheProgramAndPaintsWhatIsNewAlone) {
    const QRect client = ClientRect();
    const QRect moved(QPoint(120, 130), WindowRect().size());
    const QRect resized = moved.adjusted(0, 0, 0, 40);
    for (const UINT message : {WM_MOVE, WM_SIZE})
        TakeMessages(message);
    TakePainted();
    native::Do([=, this] { native::WidgetOf(window_)->setGeometry(moved); });
    EXPECT_EQ(TakeMessages(WM_MOVE), 1u);
    native::Do([=, this] { native::WidgetOf(window_)->resize(resized.size()); });
    EXPECT_EQ(TakeMessages(WM_SIZE), 1u);
    EXPECT_EQ(OnUserInterface([this] {
                  RECT window{};
                  GetWindowRect(window_, &window);
                  return QRect(window.left, window.top, window.right - window.left,
                               window.bottom - window.top);
              }),
              resized);
    EXPECT_EQ(TakePainted(), (std::vector<QRect>{QRect(0, client.height(), client.width(), 40)}));
    EXPECT_EQ(SeenAt(ClientRect().bottomRight()), kSeenColour);
    native::Do([this] { native::WidgetOf(window_)->resize(20, 20); });
    EXPECT_EQ(WindowRect().size(), QSize(112, 27)) << "the least that a frame with caption takes";
}

TEST_F(WindowTest, StayingOnTopKeepsPlaceAndKeyboard) {
    const QRect before = WindowRect();
    for (const bool topmost : {true, false}) {
        OnUserInterface([=, this] {
            SetWindowPos(window_, topmost ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                         SWP_NOSIZE | SWP_NOMOVE);
        });
        native::Do([] {});
        OnUserInterface([&] {
            const QWidget* widget = native::WidgetOf(window_);
            EXPECT_TRUE(widget->isVisible());
            EXPECT_EQ(widget->geometry(), before);
            EXPECT_EQ(widget->windowFlags().testFlag(Qt::WindowStaysOnTopHint), topmost);
        });
        native::Press(Qt::Key_B, Qt::AltModifier);
        EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_BARE});
    }
}

TEST_F(WindowTest, WhatWasTypedBeforeADialogCameGoesToTheDialog) {
    native::Do([] {
        for (int times = 0; times < 2; ++times) {
            native::PressKey(Qt::Key_F, Qt::AltModifier);
            native::TypeLetter('o');
        }
    });
    kit::Dialog form = kit::WaitForDialog("Form");
    native::Do([] {});
    EXPECT_EQ(form.Text(IDC_NAME), "o");
    native::Press(Qt::Key_Escape);
    kit::ExpectNoBox();
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_FORM});
}

TEST_F(WindowTest, AnOwnerOfADialogTakesNoInputAndLooksAsBefore) {
    native::Press(Qt::Key_F, Qt::AltModifier);
    native::Press(Qt::Key_O);
    const kit::Dialog form = kit::WaitForDialog("Form");
    ClickBelow(Qt::LeftButton);
    native::Do([this] { native::WidgetOf(window_)->windowHandle()->requestActivate(); });
    EXPECT_EQ(TakeMessages(WM_LBUTTONDOWN), 0u);
    EXPECT_TRUE(OnUserInterface([this] { return native::WidgetOf(window_)->isEnabled(); }));
    native::Press(Qt::Key_Escape);
    EXPECT_FALSE(form.IsOpen());
    EXPECT_EQ(OnUserInterface([] { return GetActiveWindow(); }), window_);
    ClickBelow(Qt::LeftButton);
    EXPECT_EQ(TakeMessages(WM_LBUTTONDOWN), 1u);
}

TEST_F(WindowTest, NumbersAreWrittenInTheProgramsWayWhateverTheDesktopsLanguage) {
    EXPECT_STREQ(std::setlocale(LC_CTYPE, nullptr), "C.UTF-8");
    EXPECT_STREQ(std::setlocale(LC_NUMERIC, nullptr), "C");
}

}  // namespace
