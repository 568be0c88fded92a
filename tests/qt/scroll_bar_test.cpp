// A scroll bar under a person's mouse and keys, in a program that moves it by steps alone.
#include <gtest/gtest.h>

#include <QAccessible>
#include <QScrollBar>
#include <QStyle>
#include <QStyleOptionSlider>
#include <QTest>
#include <QWindow>
#include <future>
#include <string>
#include <utility>

#include "platform/win32.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/native.h"

namespace {

using kit::OnUserInterface;

constexpr int kLast = 31;
constexpr int kStart = 16;

// The codes, with the position where there is one. User-interface thread.
std::string& Told() {
    static std::string told;
    return told;
}

LRESULT CALLBACK SteppingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_MOUSEWHEEL) {
        Told() += "wheel=" + std::to_string(GET_WHEEL_DELTA_WPARAM(wParam)) + " ";
        return 0;
    }
    if (message != WM_HSCROLL)
        return DefWindowProcA(window, message, wParam, lParam);
    const auto bar = reinterpret_cast<HWND>(lParam);
    const WORD code = LOWORD(wParam);
    Told() += std::to_string(code);
    if (code == SB_THUMBTRACK || code == SB_THUMBPOSITION)
        Told() += "=" + std::to_string(HIWORD(wParam));
    Told() += " ";
    if (code == SB_LINELEFT || code == SB_LINERIGHT)
        SetScrollPos(bar, SB_CTL, GetScrollPos(bar, SB_CTL) + (code == SB_LINERIGHT ? 1 : -1),
                     TRUE);
    return 0;
}

class ScrollBarOnScreen : public testing::Test {
  protected:
    ScrollBarOnScreen() {
        program_ = kit::StartProgram([this] {
            WNDCLASSA windowClass{};
            windowClass.lpfnWndProc = SteppingProcedure;
            windowClass.lpszClassName = "Stepping";
            RegisterClassA(&windowClass);
            const HWND window = CreateWindowExA(0, "Stepping", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE,
                                                0, 0, 300, 60, nullptr, nullptr, nullptr, nullptr);
            label_ = CreateWindowExA(0, "Static", "&Level: 0x10", WS_CHILD | WS_VISIBLE, 0, 30, 100,
                                     20, window, nullptr, nullptr, nullptr);
            bar_ = CreateWindowExA(0, "ScrollBar", "", WS_CHILD | WS_VISIBLE | SBS_HORZ, 0, 0, 300,
                                   20, window, nullptr, nullptr, nullptr);
            SetScrollRange(bar_, SB_CTL, 0, kLast, TRUE);
            SetScrollPos(bar_, SB_CTL, kStart, TRUE);
            MSG message;
            while (GetMessageA(&message, nullptr, 0, 0)) {
                TranslateMessage(&message);
                DispatchMessageA(&message);
            }
            return 0;
        });
        native::Do([] {});
    }
    ~ScrollBarOnScreen() override {
        OnUserInterface([] { PostQuitMessage(0); });
        program_.get();
    }

    // The middle of a part of the bar.
    QPoint Middle(QStyle::SubControl part) const {
        return OnUserInterface([=, this] {
            auto* bar = native::As<QScrollBar>(bar_);
            QStyleOptionSlider option;
            option.initFrom(bar);
            option.orientation = bar->orientation();
            option.minimum = bar->minimum();
            option.maximum = bar->maximum();
            option.sliderPosition = bar->sliderPosition();
            option.sliderValue = bar->value();
            option.pageStep = bar->pageStep();
            option.state.setFlag(QStyle::State_Horizontal);
            return bar->style()->subControlRect(QStyle::CC_ScrollBar, &option, part, bar).center();
        });
    }
    // What was told, and where the native bar stands then.
    std::string TakeTold() const {
        return OnUserInterface([this] {
            return std::exchange(Told(), {}) + "at " +
                   std::to_string(native::As<QScrollBar>(bar_)->value());
        });
    }

    HWND label_ = nullptr;
    HWND bar_ = nullptr;
    std::future<int> program_;
};

TEST_F(ScrollBarOnScreen, TellsOfArrowsAndPagesAndStandsWhereTheProgramPutsIt) {
    native::ClickAt(bar_, Middle(QStyle::SC_ScrollBarAddLine));
    EXPECT_EQ(TakeTold(), "1 8 at 17");
    native::ClickAt(bar_, Middle(QStyle::SC_ScrollBarSubLine));
    EXPECT_EQ(TakeTold(), "0 8 at 16");
    native::ClickAt(bar_, Middle(QStyle::SC_ScrollBarAddPage));
    EXPECT_EQ(TakeTold(), "3 8 at 16") << "the program does not turn pages";
}

TEST_F(ScrollBarOnScreen, TellsOfItsThumbAndGoesBackWhereTheProgramLeavesIt) {
    const QPoint thumb = Middle(QStyle::SC_ScrollBarSlider);
    const auto mouse = [this](auto event, QPoint where) {
        native::Do([&] {
            QWidget* bar = native::WidgetOf(bar_);
            event(bar->window()->windowHandle(), bar->mapTo(bar->window(), where));
        });
    };
    mouse([](QWindow* window, QPoint at) { QTest::mousePress(window, Qt::LeftButton, {}, at); },
          thumb);
    mouse([](QWindow* window, QPoint at) { QTest::mouseMove(window, at); }, thumb + QPoint(300, 0));
    EXPECT_EQ(TakeTold(), "5=31 at 31") << "it stays with the person who holds it";
    mouse([](QWindow* window, QPoint at) { QTest::mouseRelease(window, Qt::LeftButton, {}, at); },
          thumb + QPoint(300, 0));
    EXPECT_EQ(TakeTold(), "4=31 8 at 16");
}

TEST_F(ScrollBarOnScreen, EndsWithTheThumbThatIsLetGoInPlaceAndLeavesTheWheelToItsWindow) {
    native::ClickAt(bar_, Middle(QStyle::SC_ScrollBarSlider));
    EXPECT_EQ(TakeTold(), "4=16 8 at 16");
    native::Do([this] { native::TurnWheel(*native::WidgetOf(bar_), QPoint(9, 9), 240); });
    EXPECT_EQ(TakeTold(), "wheel=240 at 16");
}

TEST_F(ScrollBarOnScreen, IsKnownToToolsByItsLabelAndWhereItStands) {
    const auto told = [this] {
        return OnUserInterface([this] {
            QAccessibleInterface& view =
                *QAccessible::queryAccessibleInterface(native::WidgetOf(bar_));
            EXPECT_EQ(view.role(), QAccessible::ScrollBar);
            QAccessibleValueInterface& value = *view.valueInterface();
            return view.text(QAccessible::Name).toStdString() + " " +
                   std::to_string(value.currentValue().toInt()) + " of " +
                   std::to_string(value.maximumValue().toInt());
        });
    };
    EXPECT_EQ(told(), "Level: 0x10 16 of 31");
    OnUserInterface([this] { SetFocus(bar_); });
    native::Press(Qt::Key_Right);
    OnUserInterface([this] { SetWindowTextA(label_, "&Level: 0x11"); });
    EXPECT_EQ(told(), "Level: 0x11 17 of 31");
}

TEST_F(ScrollBarOnScreen, TellsOfAPositionThatAToolSetsLikeOfAThumbThatIsDrawnThere) {
    native::Do([this] {
        QAccessible::queryAccessibleInterface(native::WidgetOf(bar_))
            ->valueInterface()
            ->setCurrentValue(20);
    });
    EXPECT_EQ(TakeTold(), "5=20 4=20 8 at 16");
}

TEST_F(ScrollBarOnScreen, TellsOfKeysWhereItHasTheFocusAndShowsThatItHas) {
    const auto look = [this] {
        return OnUserInterface([this] { return native::WidgetOf(bar_)->grab().toImage(); });
    };
    const QImage without = look();
    OnUserInterface([this] { SetFocus(bar_); });
    EXPECT_NE(look(), without);
    native::Press(Qt::Key_Right);
    EXPECT_EQ(TakeTold(), "1 8 at 17");
    native::Press(Qt::Key_Home);
    EXPECT_EQ(TakeTold(), "6 8 at 17");
    native::Press(Qt::Key_A);
    EXPECT_EQ(TakeTold(), "at 17");
    // As the desktop tells of a key that is held: ups and downs that are none.
    const auto right = [](bool isDown, bool repeats) {
        native::Do([=] {
            QTest::simulateEvent(QGuiApplication::focusWindow(), isDown, Qt::Key_Right,
                                 Qt::NoModifier, QString(), repeats);
        });
    };
    right(true, false);
    for (int times = 0; times < 2; ++times) {
        right(false, true);
        right(true, true);
    }
    EXPECT_EQ(TakeTold(), "1 1 1 at 20");
    right(false, false);
    EXPECT_EQ(TakeTold(), "8 at 20");
}

}  // namespace
