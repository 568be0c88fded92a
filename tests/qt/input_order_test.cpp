// What a person does while the program is busy arrives whole and in its order.
#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QTest>
#include <QWindow>
#include <random>

#include "tests/qt/form_test.h"

namespace {

using form::FormTest;
using form::kChange;
using form::TakeCodes;
using kit::OnUserInterface;

// Of what has been told, the changes and the choices, in their order. User-interface thread.
std::string Order() {
    std::string order;
    for (const auto& [control, code] : form::Notices()) {
        if (code == EN_CHANGE) {
            order += control == IDC_NAME ? "name " : "note ";
        } else if (control == IDC_LIST && code == LBN_DBLCLK) {
            order += "list ";
        } else if (control == IDC_APPLY && code == BN_CLICKED) {
            order += "apply ";
        } else if (control == IDCANCEL) {
            order += "cancel";
        }
    }
    return order;
}

void TypeLetters(const char* letters) {
    for (; *letters != '\0'; ++letters)
        native::TypeLetter(*letters);
}

// The line that a person types into.
QLineEdit* LineOf(HWND field) {
    auto* line = native::As<QLineEdit>(field);
    return line != nullptr ? line : native::WidgetOf(field)->findChild<QLineEdit*>();
}

TEST_F(FormTest, KeysTypedAheadGoWhereTheFocusIsByThen) {
    Focus(IDC_MANUAL);
    native::Do([] {
        native::PressKey(Qt::Key_N, Qt::AltModifier);
        TypeLetters("123");
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
        TypeLetters("123");
        QWidget& apply = *native::WidgetOf(Control(IDC_APPLY));
        native::ClickWidget(apply, apply.rect().center());
        native::TypeLetter('x');
    });
    EXPECT_EQ(OnUserInterface(Order), "name name name apply ");
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
    EXPECT_EQ(OnUserInterface(Order), "name note name ");
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
        TypeLetters("12");
        QWidget& list = *native::WidgetOf(Control(IDC_LIST));
        QTest::mouseDClick(list.window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                           list.mapTo(list.window(), QPoint(10, 10)));
        native::WidgetOf(form_.Handle())->close();
    });
    EXPECT_EQ(result_.get(), IDCANCEL);
    EXPECT_EQ(Order(), "name name list cancel");
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
        const HWND field = Control(id);
        SetText(id, "kept");
        Focus(id);
        overtake([] { native::TypeLetter('x'); });
        EXPECT_EQ(form_.Text(id), "kept");
        EXPECT_EQ(id == IDC_NOTE ? ShownText(id, "plainText") : OnUserInterface([=] {
                      return LineOf(field)->text().toStdString();
                  }),
                  "kept");
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
    // What a person sees of the form, and what the program knows of it, as one text each. Of a
    // selection only that one can be seen where the keyboard is.
    std::string Seen() const {
        return OnUserInterface([this] {
            std::string seen;
            for (const int id : {IDC_NAME, IDC_WORD}) {
                const QLineEdit& line = *LineOf(GetDlgItem(form_.Handle(), id));
                seen += line.text().toStdString() + " ";
                if (line.hasFocus()) {
                    const int start =
                        line.hasSelectedText() ? line.selectionStart() : line.cursorPosition();
                    seen += Range(start, start + line.selectionLength());
                }
            }
            const auto& list = *native::As<QListWidget>(GetDlgItem(form_.Handle(), IDC_LIST));
            return seen +
                   Range(list.count(), list.selectedItems().isEmpty() ? -1 : list.currentRow());
        });
    }
    std::string Known() const {
        return OnUserInterface([this] {
            std::string known;
            for (const int id : {IDC_NAME, IDC_WORD}) {
                const HWND field = GetDlgItem(form_.Handle(), id);
                char text[64];
                GetWindowTextA(field, text, sizeof text);
                known += std::string(text) + " ";
                if (GetFocus() == field) {
                    const auto range = static_cast<DWORD>(
                        SendMessageA(field, id == IDC_NAME ? EM_GETSEL : CB_GETEDITSEL, 0, 0));
                    known += Range(LOWORD(range), HIWORD(range));
                }
            }
            const HWND list = GetDlgItem(form_.Handle(), IDC_LIST);
            return known + Range(static_cast<int>(SendMessageA(list, LB_GETCOUNT, 0, 0)),
                                 static_cast<int>(SendMessageA(list, LB_GETCURSEL, 0, 0)));
        });
    }

  private:
    static std::string Range(int first, int second) {
        return std::to_string(first) + ":" + std::to_string(second) + " ";
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
