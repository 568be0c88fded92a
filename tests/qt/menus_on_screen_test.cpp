// The menu bar and popups, by keys and mouse.
#include <QImage>
#include <QMenuBar>
#include <QToolButton>
#include <QWindow>
#include <initializer_list>

#include "tests/qt/window_test.h"

namespace {

using form::WindowTest;
using kit::OnUserInterface;

TEST_F(WindowTest, EveryEntryOfALongMenuBarIsInSightAtEveryWidth) {
    for (const int width : {900, 300}) {
        OnUserInterface([&] {
            SetWindowPos(window_, nullptr, 0, 0, width, 300, SWP_NOMOVE | SWP_NOZORDER);
            int entries = 0;
            int rowsHeight = 0;
            for (const QMenuBar* row : Rows()) {
                for (QAction* entry : row->actions()) {
                    const QRect place = row->actionGeometry(entry);
                    EXPECT_TRUE(row->rect().contains(place) && !place.isEmpty())
                        << entry->text().toStdString() << " at " << width;
                    ++entries;
                }
                rowsHeight += row->height();
            }
            EXPECT_EQ(entries, 24);
            RECT client{};
            GetClientRect(window_, &client);
            EXPECT_EQ(client.bottom, 300 - rowsHeight);
        });
    }
    // Qt's own list of the entries that have no room would run a loop of its own while it is open.
    OnUserInterface([this] {
        SetWindowPos(window_, nullptr, 0, 0, 30, 900, SWP_NOMOVE);
        for (const QMenuBar* row : Rows()) {
            for (const QToolButton* list : row->findChildren<QToolButton*>())
                EXPECT_FALSE(list->isVisible());
        }
    });
    native::Press(Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(OnUserInterface([] { return OpenMenu().size(); }), 4);
    native::Press(Qt::Key_Escape);
    native::Press(Qt::Key_Escape);
}

TEST_F(WindowTest, AMenuOpensByItsKeyTellsTheProgramAndGivesTheCommand) {
    native::Press(Qt::Key_F, Qt::AltModifier);
    EXPECT_EQ(TakeMessages(WM_INITMENUPOPUP), 1u);
    OnUserInterface([this] { CheckMenuItem(GetMenu(window_), IDM_MARKED, MF_CHECKED); });
    native::Do([] {});
    OnUserInterface([] {
        const auto entries = OpenMenu();
        ASSERT_EQ(entries.size(), 4);
        EXPECT_TRUE(entries[1]->isChecked()) << "an open menu shows a new mark";
        EXPECT_FALSE(entries[2]->isEnabled());
    });
    native::Press(Qt::Key_M);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_MARKED});
    native::Press(Qt::Key_F, Qt::AltModifier);
    OnUserInterface([] {
        ASSERT_EQ(OpenMenu().size(), 4);
        EXPECT_TRUE(OpenMenu()[1]->isChecked()) << "the mark is the program's, not the click's";
    });
    native::Press(Qt::Key_Escape);
    native::Press(Qt::Key_Escape);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{});
    native::Press(Qt::Key_F, Qt::AltModifier);
    native::Press(Qt::Key_I);
    native::Press(Qt::Key_D);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_DEEP});
}

TEST_F(WindowTest, F10AndAltAloneGiveTheMenuBarTheKeyboardAndTakeItBack) {
    const QImage idle = MenuBarLook();
    for (const Qt::Key enter : {Qt::Key_F10, Qt::Key_Alt}) {
        for (const Qt::Key leave : {Qt::Key_Escape, enter}) {
            native::Press(enter);
            EXPECT_EQ(ActiveEntry(), "&File");
            EXPECT_NE(MenuBarLook(), idle) << "the keyboard's entry is not seen";
            native::Press(leave);
            EXPECT_EQ(ActiveEntry(), "");
        }
        native::Press(enter);
        native::Press(Qt::Key_Right);
        native::Press(Qt::Key_Return);
        EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_BARE});
        ExpectKeyboard();
    }
}

TEST_F(WindowTest, ALetterThatEntriesOfTheMenuBarShareLeadsFromOneToTheNextAndOpensNone) {
    for (int times = 0; times < 2; ++times) {
        native::Press(Qt::Key_N, Qt::AltModifier);
        EXPECT_EQ(ActiveEntry(), "Me&nu C");
        native::Press(Qt::Key_N);
        EXPECT_EQ(ActiveEntry(), "Wider tha&n a narrow window") << "in another row";
        native::Press(Qt::Key_N);
        EXPECT_EQ(ActiveEntry(), "Me&nu C");
        EXPECT_EQ(TakeMessages(WM_INITMENUPOPUP), 0u);
        // One that no other has is as good as with Alt.
        native::Press(times == 0 ? Qt::Key_B : Qt::Key_Escape);
        EXPECT_EQ(TakeCommands(), times == 0 ? std::vector<UINT>{IDM_BARE} : std::vector<UINT>{});
        EXPECT_EQ(ActiveEntry(), "");
        ExpectKeyboard();
    }
}

TEST_F(WindowTest, ALetterWithAltBeginsAnewWhereTheMenuBarHasTheKeyboard) {
    native::Press(Qt::Key_F, Qt::AltModifier);
    native::Press(Qt::Key_Escape);
    EXPECT_EQ(ActiveEntry(), "&File");
    native::Press(Qt::Key_N, Qt::AltModifier);
    native::Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(ActiveEntry(), "Me&nu C");
    native::Press(Qt::Key_N);
    native::Press(Qt::Key_N, Qt::AltModifier);
    EXPECT_EQ(ActiveEntry(), "Me&nu C");
    native::Press(Qt::Key_B, Qt::AltModifier);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_BARE});
    ExpectKeyboard();
    native::Press(Qt::Key_F10);
    TakeMessages(WM_SYSKEYDOWN);
    native::Press(Qt::Key_Z, Qt::AltModifier);
    EXPECT_EQ(ActiveEntry(), "");
    EXPECT_EQ(TakeMessages(WM_SYSKEYDOWN), 1u) << "a letter of no entry is the window's";
    ExpectKeyboard();
}

TEST_F(WindowTest, AMenuBarWithTheKeyboardLosesItWithTheWindow) {
    native::Press(Qt::Key_F10);
    std::unique_ptr<QWindow> other;
    native::Do([&] {
        other = std::make_unique<QWindow>();
        other->show();
        other->requestActivate();
    });
    EXPECT_EQ(OnUserInterface([] { return GetActiveWindow(); }), nullptr);
    native::Do([&] {
        other.reset();
        native::WidgetOf(window_)->activateWindow();
    });
    EXPECT_EQ(ActiveEntry(), "");
    ExpectKeyboard();
}

TEST_F(WindowTest, TheArrowKeysRunThroughAllRowsOfTheMenuBarAsThroughOne) {
    std::vector<std::string> entries = OnUserInterface([this] {
        std::vector<std::string> texts;
        for (const QMenuBar* row : Rows()) {
            for (const QAction* entry : row->actions())
                texts.push_back(entry->text().toStdString());
        }
        return texts;
    });
    native::Press(Qt::Key_F10);
    const auto expectRound = [&](Qt::Key key) {
        for (const std::string& entry : entries) {
            EXPECT_EQ(ActiveEntry(), entry);
            native::Press(key);
        }
        EXPECT_EQ(ActiveEntry(), entries.front());
    };
    expectRound(Qt::Key_Right);
    std::reverse(entries.begin() + 1, entries.end());
    expectRound(Qt::Key_Left);
    // An open menu takes the way along: the last entry's menu is one to the left of the first.
    native::Press(Qt::Key_Down);
    native::Press(Qt::Key_Left);
    EXPECT_EQ(TakeMessages(WM_INITMENUPOPUP), 2u);
    native::Press(Qt::Key_Return);
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_OTHER});
    ExpectKeyboard();
}

TEST_F(WindowTest, AChoiceInTheContextMenuIsACommandAndLeavingItIsNone) {
    const auto choose = [this](std::initializer_list<Qt::Key> keys) {
        ClickBelow(Qt::RightButton);
        OnUserInterface([] {
            ASSERT_EQ(OpenMenu().size(), 2);
            EXPECT_TRUE(OpenMenu()[0]->isChecked());
        });
        native::Do([keys] {
            for (const Qt::Key key : keys)
                native::PressKey(key);
        });
        return TakeCommands();
    };
    EXPECT_EQ(choose({Qt::Key_L}), std::vector<UINT>{IDM_LESS});
    EXPECT_EQ(choose({Qt::Key_Escape}), std::vector<UINT>{});
    TakeMessages(WM_KEYDOWN);
    EXPECT_EQ(choose({Qt::Key_Down, Qt::Key_Return, Qt::Key_L}), std::vector<UINT>{IDM_MORE});
    EXPECT_EQ(TakeMessages(WM_KEYDOWN), 1u) << "the letter behind the choice is the window's";
}

TEST_F(WindowTest, MenusOfAWindowCloseWhenItTakesNoInputAnyMore) {
    for (const bool bar : {false, true}) {
        if (bar) {
            native::Press(Qt::Key_F, Qt::AltModifier);
            native::Press(Qt::Key_I);
        } else {
            ClickBelow(Qt::RightButton);
        }
        EXPECT_NE(OnUserInterface([] { return OpenMenu().size(); }), 0);
        OnUserInterface([this] { EnableWindow(window_, FALSE); });
        native::Do([] {});
        EXPECT_EQ(OnUserInterface([] { return OpenMenu().size(); }), 0);
        OnUserInterface([this] { EnableWindow(window_, TRUE); });
    }
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{});
    native::Press(Qt::Key_Escape);
}

}  // namespace
