// A scroll bar under a person's mouse, keys and assistive tools, in a program that moves it by
// steps alone.
#include <QAccessible>
#include <QScrollBar>
#include <QTest>
#include <QWindow>

#include "tests/qt/form_test.h"

namespace {

using kit::OnUserInterface;

class ScrollBarOnScreen : public form::FormTest {
  protected:
    // What was told, and where the native bar stands then.
    std::string TakeTold() const {
        return TakeHeard() + "at " +
               std::to_string(Shown<QScrollBar>(IDC_LEVEL, &QScrollBar::value));
    }
    QPoint Middle() const {
        return Shown<QScrollBar>(IDC_LEVEL, [](QScrollBar& bar) { return bar.rect().center(); });
    }
    QAccessibleInterface& ToolsView() const {
        return *QAccessible::queryAccessibleInterface(native::WidgetOf(bar_));
    }

    const HWND bar_ = Control(IDC_LEVEL);
};

TEST_F(ScrollBarOnScreen, TellsOfKeysWhereItHasTheFocusAndShowsThatItHas) {
    const QImage without = Look(IDC_LEVEL);
    Focus(IDC_LEVEL);
    EXPECT_NE(Look(IDC_LEVEL), without);
    native::Press(Qt::Key_Right);
    EXPECT_EQ(TakeTold(), "1 8 at 17");
    native::Press(Qt::Key_Home);
    EXPECT_EQ(TakeTold(), "6 8 at 17");
    native::Press(Qt::Key_A);
    EXPECT_EQ(TakeTold(), "at 17");
    // As the desktop tells of a key that is held: with an up and a down that are none.
    native::Do([] {
        for (const auto& [isDown, repeats] :
             {std::pair{true, false}, {false, true}, {true, true}, {false, false}}) {
            QTest::simulateEvent(QGuiApplication::focusWindow(), isDown, Qt::Key_Right,
                                 Qt::NoModifier, QString(), repeats);
        }
    });
    EXPECT_EQ(TakeTold(), "1 1 8 at 19");
}

TEST_F(ScrollBarOnScreen, TellsOfArrowsAndOfItsThumbAndGoesBackWhereTheProgramLeavesIt) {
    native::ClickAt(bar_, QPoint(2 * Middle().x() - 4, Middle().y()));
    EXPECT_EQ(TakeTold(), "1 8 at 17");
    const QPoint far = Middle() + QPoint(600, 0);
    const auto mouse = [this](auto event, QPoint where) {
        native::Do([&] {
            QWidget* bar = native::WidgetOf(bar_);
            event(bar->window()->windowHandle(), bar->mapTo(bar->window(), where));
        });
    };
    mouse([](QWindow* window, QPoint at) { QTest::mousePress(window, Qt::LeftButton, {}, at); },
          Middle());
    mouse([](QWindow* window, QPoint at) { QTest::mouseMove(window, at); }, far);
    EXPECT_EQ(TakeTold(), "5=31 at 31") << "it stays with the person who holds it";
    mouse([](QWindow* window, QPoint at) { QTest::mouseRelease(window, Qt::LeftButton, {}, at); },
          far);
    EXPECT_EQ(TakeTold(), "4=31 8 at 17");
}

TEST_F(ScrollBarOnScreen, IsKnownToToolsByItsLabelAndWhereItStandsAndMovedByThem) {
    const auto told = [this] {
        return OnUserInterface([this] {
            EXPECT_EQ(ToolsView().role(), QAccessible::ScrollBar);
            return ToolsView().text(QAccessible::Name).toStdString() + " " +
                   std::to_string(ToolsView().valueInterface()->currentValue().toInt());
        });
    };
    EXPECT_EQ(told(), "Level: 0x10 16");
    Focus(IDC_LEVEL);
    native::Press(Qt::Key_Right);
    SetText(IDC_LEVEL_LABEL, "&Level: 0x11");
    EXPECT_EQ(told(), "Level: 0x11 17");
    TakeHeard();
    native::Do([this] { ToolsView().valueInterface()->setCurrentValue(20); });
    EXPECT_EQ(TakeTold(), "5=20 4=20 8 at 17") << "like a thumb that is drawn there";
}

}  // namespace
