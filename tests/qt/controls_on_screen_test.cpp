// Focus, buttons, lists and combo boxes: what a person does with the native widgets reaches the
// program, and what the program sets is what they show.
#include <QCheckBox>
#include <QComboBox>
#include <QListWidget>
#include <QRadioButton>
#include <QTest>
#include <QWindow>

#include "tests/qt/form_test.h"

namespace {

using form::AddRows;
using form::BoxIsDue;
using form::Codes;
using form::FormTest;
using form::TakeCodes;
using kit::OnUserInterface;

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

TEST_F(FormTest, ADialogsFrameHasACloseBoxAndNoOthers) {
    const HWND form = form_.Handle();
    const Qt::WindowFlags flags =
        OnUserInterface([form] { return native::WidgetOf(form)->windowFlags(); });
    EXPECT_TRUE(flags.testFlag(Qt::WindowTitleHint));
    EXPECT_TRUE(flags.testFlag(Qt::WindowCloseButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMinimizeButtonHint));
    EXPECT_FALSE(flags.testFlag(Qt::WindowMaximizeButtonHint));
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
        OnUserInterface([] { BoxIsDue() = true; });
        mouse(true);
        OnUserInterface([] { BoxIsDue() = false; });
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

}  // namespace
