// What a person types and pastes into native edits reaches the program, and the other way round.
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>

#include "tests/qt/form_test.h"

namespace {

using form::Codes;
using form::FormTest;
using form::TakeCodes;
using kit::OnUserInterface;

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

}  // namespace
