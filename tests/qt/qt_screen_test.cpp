// The screen for people: what a person does with the native widgets reaches the program, and what
// the program sets is what the widgets show.
#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QRadioButton>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <clocale>
#include <functional>
#include <future>
#include <memory>
#include <random>
#include <string>
#include <thread>
#include <utility>
#include <vector>

#include "platform/qt/snapshot.h"
#include "platform/win32.h"
#include "tests/kit/dialog.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/form.h"
#include "tests/qt/native.h"

namespace {

using kit::OnUserInterface;
using Codes = std::vector<int>;

// Controls and their notification codes, as WM_COMMAND tells them. Touched by the user-interface
// thread alone.
std::vector<std::pair<int, int>> theNotices;

// Whether the list's focus is answered with a message box. User-interface thread.
bool theBoxIsDue = false;

// What a control has told; all notices so far are forgotten.
Codes TakeCodes(int id) {
    return OnUserInterface([id] {
        Codes codes;
        for (const auto& [control, code] : std::exchange(theNotices, {})) {
            if (control == id)
                codes.push_back(code);
        }
        return codes;
    });
}

void AddRows(HWND dialog, int id, UINT message) {
    for (const char* row : {"alpha", "beta", "gamma", "delta"})
        SendDlgItemMessageA(dialog, id, message, 0, reinterpret_cast<LPARAM>(row));
}

// Has the program change one of the form's controls, which one and how by a number.
constexpr UINT kChange = WM_APP + 1;

void ChangeForm(HWND dialog, unsigned number) {
    const std::string text = std::string(number % 7, 'p') + std::to_string(number);
    const auto row = static_cast<WPARAM>(number % 3);
    switch (number % 6) {
        case 5:
            SendDlgItemMessageA(dialog, IDC_NAME, EM_SETSEL, row, row + 1);
            break;
        case 0:
            SetDlgItemTextA(dialog, IDC_NAME, text.c_str());
            break;
        case 1:
            SetDlgItemTextA(dialog, IDC_WORD, text.c_str());
            break;
        case 2:
            SendDlgItemMessageA(dialog, IDC_LIST, LB_INSERTSTRING, row,
                                reinterpret_cast<LPARAM>(text.c_str()));
            break;
        case 3:
            SendDlgItemMessageA(dialog, IDC_LIST, LB_DELETESTRING, row, 0);
            break;
        default:
            SendDlgItemMessageA(dialog, IDC_LIST, LB_SETCURSEL, row, 0);
            break;
    }
}

INT_PTR CALLBACK FormProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            AddRows(dialog, IDC_PLACE, CB_ADDSTRING);
            AddRows(dialog, IDC_WORD, CB_ADDSTRING);
            AddRows(dialog, IDC_SIMPLE, CB_ADDSTRING);
            AddRows(dialog, IDC_LIST, LB_ADDSTRING);
            CheckRadioButton(dialog, IDC_RED, IDC_BLUE, IDC_RED);
            return TRUE;
        case WM_COMMAND:
            theNotices.emplace_back(LOWORD(wParam), HIWORD(wParam));
            if (theBoxIsDue && LOWORD(wParam) == IDC_LIST && HIWORD(wParam) == LBN_SETFOCUS) {
                MessageBoxA(dialog, "The row cannot be read.", "Report", MB_OK);
            }
            if (LOWORD(wParam) == IDOK || LOWORD(wParam) == IDCANCEL)
                EndDialog(dialog, LOWORD(wParam));
            return TRUE;
        case kChange:
            ChangeForm(dialog, static_cast<unsigned>(wParam));
            return TRUE;
        default:
            return FALSE;
    }
}

int RunForm(HWND owner) {
    return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_FORM),
                                            owner, FormProcedure, 0));
}

class FormTest : public testing::Test {
  protected:
    FormTest()
        : result_(kit::StartProgram([] { return RunForm(nullptr); })),
          form_(kit::WaitForDialog("Form")) {
        native::Do([] {});
    }

    ~FormTest() override {
        if (!result_.valid())
            return;
        OnUserInterface([this] { EndDialog(form_.Handle(), 0); });
        result_.wait();
    }

    HWND Control(int id) const { return form_.Control(id); }

    // What the program does with a control.
    LRESULT Send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        const HWND control = Control(id);
        return OnUserInterface([=] { return SendMessageA(control, message, wParam, lParam); });
    }
    void SetText(int id, const char* text) const {
        Send(id, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    }
    void Focus(int id) const {
        const HWND control = Control(id);
        OnUserInterface([control] { SetFocus(control); });
    }

    // What a control's widget shows: one of its members, or a function of it.
    template <typename Widget, typename Question>
    auto Shown(int id, Question question) const {
        const HWND control = Control(id);
        return OnUserInterface([=] { return std::invoke(question, *native::As<Widget>(control)); });
    }
    std::string ShownText(int id, const char* property = "text") const {
        return Shown<QWidget>(id, [property](QWidget& widget) {
            return widget.property(property).toString().toStdString();
        });
    }

    std::future<int> result_;
    kit::Dialog form_;
};

TEST_F(FormTest, WhatIsTypedIntoAnEditReachesTheProgramLetterByLetterUpToItsLimit) {
    Send(IDC_NAME, EM_LIMITTEXT, 3);
    SetText(IDC_NAME, "12345");
    EXPECT_EQ(ShownText(IDC_NAME), "12345") << "the limit binds typing alone";
    native::Press(Qt::Key_End);
    native::Type("6");
    EXPECT_EQ(form_.Text(IDC_NAME), "12345");
    SetText(IDC_NAME, "");
    TakeCodes(IDC_NAME);
    native::Type("7890");
    EXPECT_EQ(form_.Text(IDC_NAME), "789");
    EXPECT_EQ(ShownText(IDC_NAME), "789");
    EXPECT_EQ(TakeCodes(IDC_NAME), (Codes{EN_UPDATE, EN_CHANGE, EN_UPDATE, EN_CHANGE, EN_UPDATE,
                                          EN_CHANGE, EN_MAXTEXT}));
}

TEST_F(FormTest, TextSetByTheProgramIsShownAndTheSelectionCountsBytes) {
    SetText(IDC_NAME, "gr\xC3\xBCn");
    Send(IDC_NAME, EM_SETSEL, 2, 4);
    EXPECT_EQ(ShownText(IDC_NAME), "gr\xC3\xBCn");
    EXPECT_EQ(ShownText(IDC_NAME, "selectedText"), "\xC3\xBC");
    native::Press(Qt::Key_Home);
    native::Press(Qt::Key_Right);
    native::Press(Qt::Key_Right, Qt::ShiftModifier);
    native::Press(Qt::Key_Right, Qt::ShiftModifier);
    EXPECT_EQ(Send(IDC_NAME, EM_GETSEL), MAKELONG(1, 4));
}

TEST_F(FormTest, WhatIsPastedIsCutAtTheLimit) {
    for (const int id : {IDC_NAME, IDC_WORD}) {
        SetText(id, "abcdef");
        Send(id, id == IDC_NAME ? EM_LIMITTEXT : CB_LIMITTEXT, 6);
        Focus(id);
        Send(id, EM_SETSEL, 1, 3);
        TakeCodes(id);
        native::Do([] {
            QGuiApplication::clipboard()->setText("UVWXYZ");
            native::PressKey(Qt::Key_V, Qt::ControlModifier);
        });
        EXPECT_EQ(form_.Text(id), "aUVdef");
        EXPECT_EQ(TakeCodes(id), id == IDC_NAME ? (Codes{EN_MAXTEXT, EN_UPDATE, EN_CHANGE})
                                                : (Codes{CBN_EDITUPDATE, CBN_EDITCHANGE}));
    }
}

TEST_F(FormTest, TypingPastTheLimitIsTakenBackAndLeavesTheCaretWhereItWas) {
    for (const int id : {IDC_NAME, IDC_NOTE}) {
        SetText(id, "g\xC3\xBCnstig");
        Send(id, EM_LIMITTEXT, 8);
        Focus(id);
        Send(id, EM_SETSEL, 3, 3);
        TakeCodes(id);
        native::Type("X");
        EXPECT_EQ(form_.Text(id), "g\xC3\xBCnstig");
        EXPECT_EQ(TakeCodes(id), Codes{EN_MAXTEXT});
        native::Press(Qt::Key_Backspace);
        native::Type("uY");
        EXPECT_EQ(form_.Text(id), "guYnstig");
        EXPECT_EQ(ShownText(id, id == IDC_NAME ? "text" : "plainText"), "guYnstig");
    }
}

TEST_F(FormTest, AMultiLineEditShowsLinesAndGivesThemBackWithCarriageReturns) {
    SetText(IDC_NOTE, "one\r\ntwo");
    Focus(IDC_NOTE);
    Send(IDC_NOTE, EM_SETSEL, 8, 8);
    EXPECT_EQ(ShownText(IDC_NOTE, "plainText"), "one\ntwo");
    native::Press(Qt::Key_Return);
    native::Type("3");
    EXPECT_EQ(form_.Text(IDC_NOTE), "one\r\ntwo\r\n3");
}

TEST_F(FormTest, ReadOnlyAndDisabledEditsTakeNoTyping) {
    Send(IDC_NAME, EM_SETREADONLY, TRUE);
    native::Type("1");
    EXPECT_EQ(form_.Text(IDC_NAME), "");
    const HWND name = Control(IDC_NAME);
    OnUserInterface([name] { EnableWindow(name, FALSE); });
    EXPECT_FALSE(Shown<QWidget>(IDC_NAME, &QWidget::isEnabled));
}

TEST_F(FormTest, TabAndAltLettersMoveTheFocusOfBothSides) {
    const auto expectFocus = [this](int id) {
        EXPECT_EQ(form_.FocusedId(), id);
        EXPECT_TRUE(Shown<QWidget>(id, &QWidget::hasFocus)) << id;
    };
    expectFocus(IDC_NAME);
    native::Press(Qt::Key_Tab);
    native::Press(Qt::Key_Tab);
    expectFocus(IDC_RED);
    native::Press(Qt::Key_Backtab, Qt::ShiftModifier);
    native::Press(Qt::Key_Backtab, Qt::ShiftModifier);
    expectFocus(IDC_NAME);
    native::Press(Qt::Key_P, Qt::AltModifier);
    expectFocus(IDC_APPLY);
    EXPECT_EQ(form_.Text(IDC_NAME), "") << "the letter was taken as text";
    native::Press(Qt::Key_N, Qt::AltModifier);
    expectFocus(IDC_NAME);
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

TEST_F(FormTest, ADialogsFrameHasACloseBoxAndNoOthers) {
    const HWND form = form_.Handle();
    const Qt::WindowFlags flags =
        OnUserInterface([form] { return native::WidgetOf(form)->windowFlags(); });
    EXPECT_TRUE(flags.testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
}

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

TEST_F(FormTest, OneRadioButtonOfAGroupIsCheckedAfterAClick) {
    native::Click(Control(IDC_GREEN));
    for (const int id : {IDC_RED, IDC_GREEN, IDC_BLUE}) {
        EXPECT_EQ(form_.IsChecked(id), id == IDC_GREEN) << id;
        EXPECT_EQ(Shown<QRadioButton>(id, &QRadioButton::isChecked), id == IDC_GREEN) << id;
    }
    EXPECT_EQ(TakeCodes(IDC_GREEN), Codes{BN_CLICKED});
}

TEST_F(FormTest, ACheckBoxShowsWhatTheProgramMakesOfAClick) {
    native::Click(Control(IDC_MANUAL));
    EXPECT_EQ(TakeCodes(IDC_MANUAL), Codes{BN_CLICKED});
    EXPECT_FALSE(Shown<QCheckBox>(IDC_MANUAL, &QCheckBox::isChecked))
        << "this box changes by the program alone";
    for (const auto state : {Qt::Checked, Qt::PartiallyChecked, Qt::Unchecked}) {
        native::Click(Control(IDC_THREE));
        EXPECT_EQ(Shown<QCheckBox>(IDC_THREE, &QCheckBox::checkState), state);
    }
}

TEST_F(FormTest, AChoiceFromADropDownListNotifiesAndOneByTheProgramDoesNot) {
    Send(IDC_PLACE, CB_SETCURSEL, 2);
    EXPECT_EQ(Shown<QComboBox>(IDC_PLACE, &QComboBox::currentIndex), 2);
    EXPECT_EQ(TakeCodes(IDC_PLACE), Codes{});
    native::Click(Control(IDC_PLACE));
    native::Press(Qt::Key_Down);
    native::Press(Qt::Key_Return);
    EXPECT_EQ(form_.SelectedRow(IDC_PLACE), 3);
    EXPECT_TRUE(form_.IsOpen()) << "the list's Enter was taken for the dialog's";
    EXPECT_EQ(TakeCodes(IDC_PLACE),
              (Codes{CBN_SETFOCUS, CBN_DROPDOWN, CBN_CLOSEUP, CBN_SELENDOK, CBN_SELCHANGE}));
}

TEST_F(FormTest, RowsComeAndGoWithoutTouchingSelectionOrEdit) {
    Send(IDC_WORD, CB_RESETCONTENT);
    SetText(IDC_WORD, "own");
    OnUserInterface([this] { AddRows(form_.Handle(), IDC_WORD, CB_ADDSTRING); });
    Send(IDC_WORD, CB_DELETESTRING, 0);
    EXPECT_EQ(ShownText(IDC_WORD, "currentText"), "own");
    EXPECT_EQ(form_.SelectedRow(IDC_WORD), -1);
    Send(IDC_LIST, LB_SETCURSEL, 1);
    Send(IDC_LIST, LB_DELETESTRING, 1);
    EXPECT_TRUE(Shown<QListWidget>(IDC_LIST, &QListWidget::selectedItems).isEmpty());
}

TEST_F(FormTest, AListBoxTellsClicksAndDoubleClicks) {
    const HWND list = Control(IDC_LIST);
    const QPoint third = Shown<QListWidget>(IDC_LIST, [](QListWidget& rows) {
        return rows.visualItemRect(rows.item(2)).center() + rows.viewport()->mapTo(&rows, QPoint());
    });
    native::ClickAt(list, third);
    EXPECT_EQ(form_.SelectedRow(IDC_LIST), 2);
    EXPECT_EQ(TakeCodes(IDC_LIST), (Codes{LBN_SETFOCUS, LBN_SELCHANGE}));
    native::Do([=] {
        QWidget* widget = native::WidgetOf(list);
        QTest::mouseDClick(widget->window()->windowHandle(), Qt::LeftButton, Qt::NoModifier,
                           widget->mapTo(widget->window(), third));
    });
    EXPECT_EQ(TakeCodes(IDC_LIST), (Codes{LBN_SELCHANGE, LBN_DBLCLK}));
}

TEST_F(FormTest, AClickThatMakesTheProgramShowABoxChoosesItsRowBehindTheBox) {
    const HWND list = Control(IDC_LIST);
    Send(IDC_LIST, LB_SETCURSEL, 0);
    const auto mouse = [list](bool goesDown) {
        native::Do([=] {
            auto* rows = native::As<QListWidget>(list);
            QWindow* window = rows->window()->windowHandle();
            const QPoint third = rows->visualItemRect(rows->item(2)).center() +
                                 rows->viewport()->mapTo(rows->window(), QPoint());
            if (goesDown) {
                QTest::mousePress(window, Qt::LeftButton, {}, third);
            } else {
                QTest::mouseRelease(window, Qt::LeftButton, {}, third);
            }
        });
    };
    const Codes toTheBoxAndBack{LBN_SETFOCUS, LBN_KILLFOCUS, LBN_SETFOCUS};
    for (const bool upBehindTheBox : {false, true}) {
        Focus(IDC_NAME);
        TakeCodes(IDC_LIST);
        OnUserInterface([] { theBoxIsDue = true; });
        mouse(true);
        OnUserInterface([] { theBoxIsDue = false; });
        if (!upBehindTheBox) {
            mouse(false);
        }
        EXPECT_EQ(form_.SelectedRow(IDC_LIST), 0);
        kit::MeetBox("Report", "The row cannot be read.");
        native::Do([] {});
        EXPECT_EQ(form_.SelectedRow(IDC_LIST), 2);
        Codes told = toTheBoxAndBack;
        if (upBehindTheBox) {
            EXPECT_EQ(TakeCodes(IDC_LIST), told);
            told.clear();
            mouse(false);
        }
        told.push_back(LBN_SELCHANGE);
        EXPECT_EQ(TakeCodes(IDC_LIST), told);
        Send(IDC_LIST, LB_SETCURSEL, 0);
    }
}

TEST_F(FormTest, LettersTypedIntoAListBoxChooseTheRowThatBeginsWithThem) {
    Send(IDC_LIST, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("demand"));
    Focus(IDC_LIST);
    Send(IDC_LIST, LB_SETCURSEL, 0);
    TakeCodes(IDC_LIST);
    native::Type("DEM");
    EXPECT_EQ(form_.SelectedRow(IDC_LIST), 4);
    EXPECT_EQ(TakeCodes(IDC_LIST), (Codes{LBN_SELCHANGE, LBN_SELCHANGE})) << "delta, demand";
}

TEST_F(FormTest, ArrowKeysInTheEditOfASimpleComboBoxChooseFromItsList) {
    Focus(IDC_SIMPLE);
    Send(IDC_SIMPLE, CB_SETCURSEL, 0);
    native::Press(Qt::Key_Down);
    EXPECT_EQ(form_.SelectedRow(IDC_SIMPLE), 1);
    EXPECT_EQ(form_.Text(IDC_SIMPLE), "beta");
}

TEST_F(FormTest, EnterPressesTheDefaultButton) {
    native::DoLast([] { native::PressKey(Qt::Key_Return); });
    EXPECT_EQ(result_.get(), IDOK);
}

TEST_F(FormTest, TheCloseBoxCancels) {
    const HWND form = form_.Handle();
    native::DoLast([form] { native::WidgetOf(form)->close(); });
    EXPECT_EQ(result_.get(), IDCANCEL);
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
    for (const auto& [control, code] : OnUserInterface([] { return theNotices; })) {
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
    for (const auto& [control, code] : OnUserInterface([] { return theNotices; })) {
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
    for (const auto& [control, code] : theNotices) {
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

// The program of the window tests: a window with a menu bar, filled with one colour.

constexpr COLORREF kColour = RGB(0x20, 0x60, 0xA0);
constexpr QColor kSeenColour(0x20, 0x60, 0xA0);

// Touched by the user-interface thread alone.
std::vector<UINT> theCommands;
std::vector<UINT> theMessages;
std::vector<QRect> thePainted;
HWND theWindow = nullptr;

void Paint(HWND window) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    thePainted.emplace_back(QPoint(paint.rcPaint.left, paint.rcPaint.top),
                            QPoint(paint.rcPaint.right - 1, paint.rcPaint.bottom - 1));
    const HBRUSH brush = CreateSolidBrush(kColour);
    FillRect(dc, &paint.rcPaint, brush);
    DeleteObject(brush);
    EndPaint(window, &paint);
}

void Offer(HWND window, LPARAM where) {
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING | MF_CHECKED, IDM_MORE, "&More");
    AppendMenuA(menu, MF_STRING, IDM_LESS, "&Less");
    TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_RIGHTBUTTON, static_cast<SHORT>(LOWORD(where)),
                   static_cast<SHORT>(HIWORD(where)), 0, window, nullptr);
    DestroyMenu(menu);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    theMessages.push_back(message);
    switch (message) {
        case WM_PAINT:
            Paint(window);
            return 0;
        case WM_COMMAND:
            theCommands.push_back(static_cast<UINT>(wParam));
            if (wParam == IDM_FORM)
                RunForm(window);
            return 0;
        case WM_CONTEXTMENU:
            Offer(window, lParam);
            return 0;
        case WM_CLOSE:
            PostQuitMessage(7);
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

int RunWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "Wide";
    windowClass.lpszMenuName = MAKEINTRESOURCEA(IDR_BAR);
    RegisterClassA(&windowClass);
    theWindow = CreateWindowExA(0, "Wide", "Wide", WS_OVERLAPPEDWINDOW, 50, 60, 700, 200, nullptr,
                                nullptr, windowClass.hInstance, nullptr);
    ShowWindow(theWindow, SW_SHOWNORMAL);
    UpdateWindow(theWindow);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

class WindowTest : public testing::Test {
  protected:
    WindowTest() : result_(kit::StartProgram(RunWindow)) {
        native::Do([] {});
        window_ = OnUserInterface([] { return theWindow; });
    }

    ~WindowTest() override {
        native::DoLast([this] { native::WidgetOf(window_)->close(); });
        EXPECT_EQ(result_.get(), 7);
    }

    // What came since it was last taken: commands, one kind of message, areas painted.
    static std::vector<UINT> TakeCommands() {
        return OnUserInterface([] { return std::exchange(theCommands, {}); });
    }
    static std::size_t TakeMessages(UINT message) {
        return OnUserInterface([message] { return std::erase(theMessages, message); });
    }
    std::vector<QRect> TakePainted() const {
        return OnUserInterface([this] {
            UpdateWindow(window_);
            return std::exchange(thePainted, {});
        });
    }

    static void ExpectKeyboard() {
        TakeMessages(WM_KEYDOWN);
        native::Type("x");
        EXPECT_EQ(TakeMessages(WM_KEYDOWN), 1u) << "the window has no keyboard";
    }

    // The desktop has lost a part of the window.
    void Expose(QRect area) const {
        native::Do([=, this] {
            QExposeEvent exposure(area);
            QCoreApplication::sendEvent(native::WidgetOf(window_)->windowHandle(), &exposure);
        });
    }

    // A click near the lower left corner, inside the client area.
    void ClickBelow(Qt::MouseButton button) const {
        native::Do([=, this] {
            QWidget* widget = native::WidgetOf(window_);
            native::ClickWidget(*widget, QPoint(5, widget->height() - 5), button);
        });
    }

    // User-interface thread: the rows of the menu bar, and the entries of the menu that is open.
    QList<QMenuBar*> Rows() const { return native::WidgetOf(window_)->findChildren<QMenuBar*>(); }
    static QList<QAction*> OpenMenu() {
        const auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        return menu != nullptr ? menu->actions() : QList<QAction*>();
    }

    QImage MenuBarLook() const {
        return OnUserInterface([this] { return Rows().front()->grab().toImage(); });
    }

    // The entry of the menu bar that the keyboard is on; empty for none.
    std::string ActiveEntry() const {
        return OnUserInterface([this] {
            for (const QMenuBar* row : Rows()) {
                if (row->hasFocus() && row->activeAction() != nullptr)
                    return row->activeAction()->text().toStdString();
            }
            return std::string();
        });
    }

    QRect ClientRect() const {
        return OnUserInterface([this] {
            RECT rect{};
            GetClientRect(window_, &rect);
            return QRect(0, 0, rect.right, rect.bottom);
        });
    }

    QRect WindowRect() const {
        return OnUserInterface([this] { return native::WidgetOf(window_)->geometry(); });
    }

    // What the person sees at a place of the client area.
    QColor SeenAt(QPoint place) const {
        return OnUserInterface([=, this] {
            UpdateWindow(window_);
            POINT point{place.x(), place.y()};
            ClientToScreen(window_, &point);
            QWidget* widget = native::WidgetOf(window_);
            const QPoint inside = QPoint(point.x, point.y) - widget->geometry().topLeft();
            return widget->grab().toImage().pixelColor(inside);
        });
    }

    std::future<int> result_;
    HWND window_ = nullptr;
};

TEST_F(WindowTest, TheProgramsPixelsFillTheClientAreaBelowAllRowsOfTheMenuBar) {
    EXPECT_EQ(SeenAt({0, 0}), kSeenColour);
    EXPECT_EQ(SeenAt(ClientRect().bottomRight()), kSeenColour);
    EXPECT_NE(SeenAt({0, -1}), kSeenColour);
}

TEST_F(WindowTest, EveryEntryOfALongMenuBarIsInSightAtEveryWidth) {
    int previousHeight = 0;
    for (const int width : {900, 600, 300}) {
        int entries = 0;
        int rowsHeight = 0;
        OnUserInterface([&] {
            SetWindowPos(window_, nullptr, 0, 0, width, 300, SWP_NOMOVE | SWP_NOZORDER);
            for (const QMenuBar* row : Rows()) {
                for (QAction* entry : row->actions()) {
                    const QRect place = row->actionGeometry(entry);
                    EXPECT_TRUE(row->rect().contains(place) && !place.isEmpty())
                        << entry->text().toStdString() << " at " << width;
                    ++entries;
                }
                rowsHeight += row->height();
            }
        });
        EXPECT_EQ(entries, 24);
        EXPECT_EQ(ClientRect().height(), 300 - rowsHeight);
        EXPECT_GT(rowsHeight, previousHeight);
        previousHeight = rowsHeight;
    }
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
    Expose(QRect(10, menuHeight - 5, 30, 20));
    EXPECT_EQ(TakePainted(), (std::vector<QRect>{QRect(10, 0, 30, 15)}));
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
    const RECT rect = OnUserInterface([this] {
        RECT window{};
        GetWindowRect(window_, &window);
        return window;
    });
    EXPECT_EQ(QRect(QPoint(rect.left, rect.top), QPoint(rect.right - 1, rect.bottom - 1)), resized);
    EXPECT_EQ(TakePainted(), (std::vector<QRect>{QRect(0, client.height(), client.width(), 40)}));
    EXPECT_EQ(SeenAt(ClientRect().bottomRight()), kSeenColour);
    native::Do([this] { native::WidgetOf(window_)->resize(20, 20); });
    EXPECT_EQ(WindowRect().size(), QSize(112, 27)) << "the least that a frame with caption takes";
}

TEST_F(WindowTest, AChoiceInTheContextMenuIsACommandAndLeavingItIsNone) {
    struct Case {
        Qt::Key key;
        std::vector<UINT> commands;
    };
    for (const Case& each :
         {Case{Qt::Key_L, {IDM_LESS}}, Case{Qt::Key_Escape, {}}, Case{Qt::Key_M, {IDM_MORE}}}) {
        ClickBelow(Qt::RightButton);
        OnUserInterface([] {
            ASSERT_EQ(OpenMenu().size(), 2);
            EXPECT_TRUE(OpenMenu()[0]->isChecked());
        });
        native::Press(each.key);
        EXPECT_EQ(TakeCommands(), each.commands);
    }
}

TEST_F(WindowTest, ALetterBehindTheChoiceInAContextMenuIsNoOtherChoice) {
    ClickBelow(Qt::RightButton);
    TakeMessages(WM_KEYDOWN);
    native::Do([] {
        native::PressKey(Qt::Key_Down);
        native::PressKey(Qt::Key_Return);
        native::TypeLetter('l');
    });
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{IDM_MORE});
    EXPECT_EQ(TakeMessages(WM_KEYDOWN), 1u) << "the letter is the window's";
}

TEST_F(WindowTest, MenusOfAWindowCloseWhenItTakesNoInputAnyMore) {
    const auto disabled = [this](const std::function<void()>& open) {
        open();
        EXPECT_NE(OnUserInterface([] { return OpenMenu().size(); }), 0);
        OnUserInterface([this] { EnableWindow(window_, FALSE); });
        native::Do([] {});
        EXPECT_EQ(OnUserInterface([] { return OpenMenu().size(); }), 0);
        OnUserInterface([this] { EnableWindow(window_, TRUE); });
    };
    disabled([this] { ClickBelow(Qt::RightButton); });
    disabled([] {
        native::Press(Qt::Key_F, Qt::AltModifier);
        native::Press(Qt::Key_I);
    });
    EXPECT_EQ(TakeCommands(), std::vector<UINT>{});
    native::Press(Qt::Key_Escape);
}

TEST_F(WindowTest, AContextMenuEndsWithItsWindow) {
    int answer = -1;
    const HWND owner = OnUserInterface([this] {
        return CreateWindowExA(0, "Static", "", WS_CHILD | WS_VISIBLE, 0, 0, 50, 20, window_,
                               nullptr, nullptr, nullptr);
    });
    kit::BeginStep([&] {
        const HMENU menu = CreatePopupMenu();
        AppendMenuA(menu, MF_STRING, IDM_MORE, "&More");
        answer = TrackPopupMenu(menu, TPM_RETURNCMD, 60, 70, 0, owner, nullptr);
        DestroyMenu(menu);
    });
    native::Do([] {});
    EXPECT_EQ(OnUserInterface([] { return OpenMenu().size(); }), 1);
    OnUserInterface([owner] { DestroyWindow(owner); });
    native::Do([] {});
    EXPECT_EQ(OnUserInterface([&] { return answer; }), 0);
    EXPECT_EQ(OnUserInterface([] { return OpenMenu().size(); }), 0);
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

// Qt's own list of the entries that have no room would run a loop of its own while it is open.
TEST_F(WindowTest, AMenuBarTooNarrowForAnEntryStillShowsItsEntriesAlone) {
    OnUserInterface([this] { SetWindowPos(window_, nullptr, 0, 0, 30, 900, SWP_NOMOVE); });
    native::Do([] {});
    OnUserInterface([this] {
        ASSERT_GT(Rows().size(), 20);
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

TEST_F(WindowTest, WhatWasTypedBeforeADialogCameGoesToTheDialog) {
    native::Do([] {
        for (int times = 0; times < 2; ++times) {
            native::PressKey(Qt::Key_F, Qt::AltModifier);
            native::TypeLetter('o');
        }
    });
    kit::Dialog form = kit::WaitForDialog("Form");
    native::Do([] {});
    const auto forms = OnUserInterface([] {
        int count = 0;
        const auto visit = [](HWND window, LPARAM counted) -> BOOL {
            char title[8];
            GetWindowTextA(window, title, sizeof title);
            *reinterpret_cast<int*>(counted) += std::string(title) == "Form" ? 1 : 0;
            return TRUE;
        };
        EnumThreadWindows(GetCurrentThreadId(), visit, reinterpret_cast<LPARAM>(&count));
        return count;
    });
    EXPECT_EQ(forms, 1);
    EXPECT_EQ(form.Text(IDC_NAME), "o");
    native::Press(Qt::Key_Escape);
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

TEST_F(WindowTest, APictureOfTheDesktopShowsTheWindowAndItsOpenMenu) {
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("desktop.png"));
    native::Press(Qt::Key_F, Qt::AltModifier);
    QImage picture;
    QRect menu;
    native::Do([&] {
        ASSERT_TRUE(vxd::qt::SaveDesktopPicture(path.toStdString()));
        picture.load(path);
        menu = QApplication::activePopupWidget()->geometry();
    });
    // The window lies in the middle, as far from the lower edge as from the sides.
    const QRect window = WindowRect();
    const int margin = (picture.width() - window.width()) / 2;
    EXPECT_GT(margin, 0);
    EXPECT_GT(picture.height(), margin + window.height());
    const QPoint corner = picture.rect().bottomRight() - QPoint(margin, margin);
    EXPECT_EQ(picture.pixelColor(corner), kSeenColour);
    EXPECT_NE(picture.pixelColor(corner + menu.center() - window.bottomRight()), kSeenColour)
        << "the menu hangs over the client area";
    native::Press(Qt::Key_Escape);
    native::Press(Qt::Key_Escape);
}

}  // namespace
