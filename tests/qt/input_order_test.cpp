// What a person does while the program is busy arrives whole and in its order.
#include <gtest/gtest.h>

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <QWindow>
#include <functional>
#include <random>
#include <string>

#include "tests/qt/form_test.h"

namespace {

using form::FormTest;
using form::kChange;
using form::TakeCodes;
using kit::OnUserInterface;

TEST_F(FormTest, KeysTypedAheadGoWhereTheFocusIsByThen) {
    Focus(IDC_MANUAL);
    native::Do([] {
        native::PressKey(Qt::Key_N, Qt::AltModifier);
        for (const char letter : {'1', '2', '3'})
            native::TypeLetter(letter);
        native::PressKey(Qt::Key_Tab);
        native::TypeLetter('4');
    });
    for (int turn = 0; turn < 6; ++turn)
        native::Do([] {});
    EXPECT_EQ(form_.Text(IDC_NAME), "123");
    EXPECT_EQ(form_.Text(IDC_NOTE), "4");
}

TEST_F(FormTest, TypedKeysAndAClickBehindThemArriveInTheirOrder) {
    Focus(IDC_NAME);
    TakeCodes(0);
    native::Do([this] {
        for (const char letter : {'1', '2', '3'})
            native::TypeLetter(letter);
        QWidget& apply = *native::WidgetOf(Control(IDC_APPLY));
        native::ClickWidget(apply, apply.rect().center());
        native::TypeLetter('x');
    });
    std::string order;
    for (const auto& [control, code] : OnUserInterface([] { return form::Notices(); })) {
        if (control == IDC_NAME && code == EN_CHANGE)
            order += "typed ";
        if (control == IDC_APPLY && code == BN_CLICKED)
            order += "clicked";
    }
    EXPECT_EQ(order, "typed typed typed clicked");
    EXPECT_EQ(form_.Text(IDC_NAME), "123");
}

TEST_F(FormTest, WhatIsDroppedMadeByAnInputMethodOrUndoneCountsInItsTurn) {
    Focus(IDC_NAME);
    TakeCodes(0);
    native::Do([this] {
        native::TypeLetter('1');
        native::Drop(*native::WidgetOf(Control(IDC_NOTE)), "dropped");
        native::TypeLetter('2');
    });
    std::string order;
    for (const auto& [control, code] : OnUserInterface([] { return form::Notices(); })) {
        if (code == EN_CHANGE) {
            order += control == IDC_NAME ? "name " : "note ";
        }
    }
    EXPECT_EQ(order, "name note name ");
    EXPECT_EQ(form_.Text(IDC_NAME), "12");
    EXPECT_EQ(form_.Text(IDC_NOTE), "dropped");
    native::Do([] {
        native::PressKey(Qt::Key_Backtab, Qt::ShiftModifier);
        native::PressKey(Qt::Key_Tab);
        native::PressKey(Qt::Key_Tab);
        native::Commit("\xC3\xA9");
    });
    EXPECT_EQ(form_.Text(IDC_NAME), "12");
    EXPECT_EQ(form_.Text(IDC_NOTE), "\xC3\xA9") << "in place of the selected text";
    Focus(IDC_NAME);
    native::Press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_NE(form_.Text(IDC_NAME), "12");
    EXPECT_EQ(ShownText(IDC_NAME), form_.Text(IDC_NAME));
}

TEST_F(FormTest, DoubleClicksAndCloseBoxesBehindTypedKeysWaitForThem) {
    Focus(IDC_NAME);
    TakeCodes(0);
    native::DoLast([this] {
        for (const char letter : {'1', '2'}) {
            native::TypeLetter(letter);
        }
        QWidget& list = *native::WidgetOf(Control(IDC_LIST));
        QTest::mouseDClick(list.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                           list.mapTo(list.window(), QPoint(10, 10)));
        native::WidgetOf(form_.Handle())->close();
    });
    EXPECT_EQ(result_.get(), IDCANCEL);
    std::string order;
    for (const auto& [control, code] : form::Notices()) {
        if (control == IDC_NAME && code == EN_CHANGE) {
            order += "typed ";
        } else if (control == IDC_LIST && code == LBN_DBLCLK) {
            order += "clicked ";
        } else if (control == IDCANCEL) {
            order += "closed";
        }
    }
    EXPECT_EQ(order, "typed typed clicked closed");
}

// A dialog may come between what a person sees happen and its turn.
TEST_F(FormTest, WhatCountsForNothingIsTakenBackOnTheScreen) {
    const HWND form = form_.Handle();
    const auto overtake = [form](const std::function<void()>& events) {
        native::Do([&] {
            events();
            EnableWindow(form, FALSE);
        });
        OnUserInterface([form] { EnableWindow(form, TRUE); });
    };
    for (const int id : {IDC_NAME, IDC_NOTE, IDC_WORD, IDC_SIMPLE}) {
        SetText(id, "kept");
        Focus(id);
        overtake([] { native::TypeLetter('x'); });
        EXPECT_EQ(form_.Text(id), "kept");
        const std::string shown = Shown<QWidget>(id, [](QWidget& widget) {
            const auto* line = dynamic_cast<QLineEdit*>(&widget) != nullptr
                                   ? dynamic_cast<QLineEdit*>(&widget)
                                   : widget.findChild<QLineEdit*>();
            return (line != nullptr ? line->text() : widget.property("plainText").toString())
                .toStdString();
        });
        EXPECT_EQ(shown, "kept") << id;
    }
    Send(IDC_LIST, LB_SETCURSEL, 0);
    overtake([this] { native::ClickWidget(*native::WidgetOf(Control(IDC_LIST)), QPoint(10, 25)); });
    EXPECT_EQ(form_.SelectedRow(IDC_LIST), 0);
    EXPECT_EQ(Shown<QListWidget>(IDC_LIST, &QListWidget::currentRow), 0);
    Send(IDC_PLACE, CB_SETCURSEL, 2);
    Focus(IDC_PLACE);
    native::Press(Qt::Key_Down, Qt::AltModifier);
    overtake([] {
        native::PressKey(Qt::Key_Up);
        native::PressKey(Qt::Key_Return);
    });
    EXPECT_EQ(Shown<QComboBox>(IDC_PLACE, &QComboBox::currentIndex), 2);
    EXPECT_EQ(form_.SelectedRow(IDC_PLACE), 2);
}

// Whatever a person and the program do at the same time, they see the same afterwards.
class BothOnForm : public FormTest, public testing::WithParamInterface<unsigned> {
  protected:
    // What a person sees of the form, and what the program knows of it, as one text each.
    std::string Seen() const {
        return OnUserInterface([this] {
            const auto& name = *native::As<QLineEdit>(Control(IDC_NAME));
            const auto& word = *native::As<QComboBox>(Control(IDC_WORD))->lineEdit();
            const auto& list = *native::As<QListWidget>(Control(IDC_LIST));
            const int row = list.selectedItems().isEmpty() ? -1 : list.currentRow();
            return Line(name) + Line(word) + std::to_string(list.count()) + " rows, " +
                   std::to_string(row);
        });
    }
    std::string Known() const {
        return OnUserInterface([this] {
            const auto field = [this](int id, UINT selection) {
                char text[64];
                GetDlgItemTextA(form_.Handle(), id, text, sizeof text);
                const auto selected =
                    static_cast<DWORD>(SendMessageA(Control(id), selection, 0, 0));
                return text + Selection(Control(id), LOWORD(selected), HIWORD(selected));
            };
            const auto ask = [this](UINT message) {
                return std::to_string(SendMessageA(Control(IDC_LIST), message, 0, 0));
            };
            return field(IDC_NAME, EM_GETSEL) + field(IDC_WORD, CB_GETEDITSEL) + ask(LB_GETCOUNT) +
                   " rows, " + ask(LB_GETCURSEL);
        });
    }

  private:
    // Only where the keyboard is can it be seen.
    static std::string Selection(HWND field, int start, int end) {
        return GetFocus() != field ? std::string("; ")
                                   : " " + std::to_string(start) + "-" + std::to_string(end) + "; ";
    }
    std::string Line(const QLineEdit& line) const {
        const bool selected = line.hasSelectedText();
        const int start = selected ? line.selectionStart() : line.cursorPosition();
        const int end = selected ? line.selectionEnd() : start;
        const HWND field = &line == native::As<QLineEdit>(Control(IDC_NAME)) ? Control(IDC_NAME)
                                                                             : Control(IDC_WORD);
        return line.text().toStdString() + Selection(field, start, end);
    }
};

TEST_P(BothOnForm, SeeTheSameAfterBothChangedIt) {
    std::mt19937 random(GetParam());
    const auto below = [&random](unsigned limit) {
        return static_cast<unsigned>(random() % limit);
    };
    for (int round = 0; round < 60; ++round) {
        Focus(below(2) == 0 ? IDC_NAME : IDC_WORD);
        native::Do([&] {
            for (unsigned event = 0; event < 6; ++event) {
                QWidget& list = *native::WidgetOf(Control(IDC_LIST));
                switch (below(8)) {
                    case 0:
                    case 1:
                        native::TypeLetter(static_cast<char>('a' + below(26)));
                        break;
                    case 2:
                        native::PressKey(Qt::Key_Backspace);
                        break;
                    case 3:
                    case 4:
                        PostMessageA(form_.Handle(), kChange, below(1000), 0);
                        break;
                    case 5:
                        native::PressKey(below(2) == 0 ? Qt::Key_Left : Qt::Key_Home,
                                         below(2) == 0 ? Qt::ShiftModifier : Qt::NoModifier);
                        break;
                    case 6:
                        EnableWindow(form_.Handle(), below(2) == 0);
                        break;
                    default:
                        native::ClickWidget(list, QPoint(10, 5 + static_cast<int>(below(60))));
                        break;
                }
            }
        });
        ASSERT_EQ(Seen(), Known()) << "round " << round;
        OnUserInterface([this] { EnableWindow(form_.Handle(), TRUE); });
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, BothOnForm, testing::Values(20260101u, 7u, 91u, 4711u));

}  // namespace
