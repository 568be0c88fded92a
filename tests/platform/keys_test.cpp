// What keys do in a dialog box.
#include <gtest/gtest.h>

#include <string>

#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/difference.h"
#include "tests/platform/recorder.h"

namespace {

using kit::Code;
using kit::OnUserInterface;

std::string Pressed(int id) {
    return Code(id, BN_CLICKED);
}

class DialogKeys : public testing::Test {
  protected:
    // As a program does, not as a person.
    void Focus(int id) {
        OnUserInterface([&] { SetFocus(dialog_.Shown().Control(id)); });
    }
    // As a program does that wants the dialog to follow.
    void GoTo(int id) {
        OnUserInterface([&] {
            SendMessageA(dialog_.Shown().Handle(), WM_NEXTDLGCTL,
                         reinterpret_cast<WPARAM>(dialog_.Shown().Control(id)), TRUE);
        });
    }
    // What a key makes the dialog tell.
    std::string Press(WPARAM key) {
        dialog_.TakeNotifications();
        dialog_.Shown().Key(key);
        return dialog_.TakeNotifications();
    }

    kit::RecordedDialog dialog_{IDD_KEYS, "Keys"};
};

TEST_F(DialogKeys, EscapeSendsCancelEvenWithoutACancelButton) {
    EXPECT_EQ(Press(VK_ESCAPE), "2");
    Focus(IDC_RETURN_LINES);
    EXPECT_EQ(Press(VK_ESCAPE), "2") << "an edit of several lines leaves it to the dialog";
}

TEST_F(DialogKeys, EscapeDoesNothingWhileTheCancelButtonIsDisabled) {
    OnUserInterface([&] {
        CreateWindowExA(0, "Button", "Cancel", WS_CHILD | WS_VISIBLE | WS_DISABLED, 0, 0, 10, 10,
                        dialog_.Shown().Handle(), reinterpret_cast<HMENU>(INT_PTR{IDCANCEL}),
                        nullptr, nullptr);
    });
    EXPECT_EQ(Press(VK_ESCAPE),
              kit::ExceptOn(WindowSystem::kWine, Pressed(IDCANCEL),
                            "sends the command of a button that cannot be pressed; no dialog of "
                            "the utility has one",
                            std::string()));
    OnUserInterface([&] { EnableWindow(dialog_.Shown().Control(IDCANCEL), TRUE); });
    EXPECT_EQ(Press(VK_ESCAPE), Pressed(IDCANCEL));
}

TEST_F(DialogKeys, EnterPressesTheButtonThatTheProgramMakesTheDefaultOne) {
    OnUserInterface([&] {
        const HWND dialog = dialog_.Shown().Handle();
        SendMessageA(dialog, DM_SETDEFID, IDC_APPLY, 0);
        EXPECT_EQ(SendMessageA(dialog, DM_GETDEFID, 0, 0), MAKELONG(IDC_APPLY, DC_HASDEFID));
    });
    Focus(IDC_LINE);
    EXPECT_EQ(Press(VK_RETURN), Pressed(IDC_APPLY));
}

TEST(BareDialogKeys, EnterWithoutADefaultButtonSendsOk) {
    kit::RecordedDialog dialog(IDD_BARE, "Bare");
    dialog.TakeNotifications();
    dialog.Shown().Key(VK_RETURN);
    EXPECT_EQ(dialog.TakeNotifications(), "1");
}

TEST_F(DialogKeys, EnterPressesTheDefaultButtonWhereverTheProgramPutsTheFocus) {
    for (const int focus : {IDC_LINE, IDC_CHECK, IDC_RADIO_A, IDC_APPLY}) {
        Focus(focus);
        EXPECT_EQ(Press(VK_RETURN), Pressed(IDOK)) << "focus on " << focus;
    }
}

TEST_F(DialogKeys, AButtonThatTheDialogsKeysLeadToIsTheDefaultOneUntilTheyLeaveIt) {
    GoTo(IDC_APPLY);
    EXPECT_EQ(Press(VK_RETURN), Pressed(IDC_APPLY));
    GoTo(IDC_CHECK);
    EXPECT_EQ(Press(VK_RETURN), Pressed(IDOK));
    Focus(IDOK);
    dialog_.Shown().Key(VK_TAB);
    ASSERT_EQ(dialog_.Shown().FocusedId(), IDC_APPLY);
    EXPECT_EQ(Press(VK_RETURN), Pressed(IDC_APPLY));
    dialog_.Shown().Key(VK_TAB);
    ASSERT_EQ(dialog_.Shown().FocusedId(), IDC_LINE);
    EXPECT_EQ(Press(VK_RETURN), Pressed(IDOK));
}

TEST_F(DialogKeys, EnterInAnEditOfSeveralLinesGoesToTheDefaultButtonAndPressesIt) {
    Focus(IDC_PLAIN_LINES);
    EXPECT_EQ(Press(VK_RETURN), Code(IDC_PLAIN_LINES, EN_KILLFOCUS) + " " + Pressed(IDOK));
    EXPECT_EQ(dialog_.Shown().FocusedId(), IDOK);
}

TEST_F(DialogKeys, ADisabledDefaultButtonIsNotPressed) {
    OnUserInterface([&] { EnableWindow(dialog_.Shown().Control(IDOK), FALSE); });
    Focus(IDC_LINE);
    EXPECT_EQ(Press(VK_RETURN), "");
}

TEST_F(DialogKeys, EnterMakesALineOnlyWhereTheEditAsksForIt) {
    for (const int id : {IDC_PLAIN_LINES, IDC_RETURN_LINES}) {
        dialog_.Shown().Type(id, "ab");
        dialog_.Shown().Key(VK_RETURN);
    }
    EXPECT_EQ(dialog_.Shown().Text(IDC_PLAIN_LINES), "ab");
    EXPECT_EQ(dialog_.Shown().Text(IDC_RETURN_LINES), "ab\r\n");
}

TEST_F(DialogKeys, TabGoesThroughTheStopsInTemplateOrderAndPassesOverDisabledOnes) {
    OnUserInterface(
        [&] { CheckRadioButton(dialog_.Shown().Handle(), IDC_RADIO_A, IDC_RADIO_C, IDC_RADIO_B); });
    for (const int id : {IDC_PLAIN_LINES, IDC_RETURN_LINES, IDC_RADIO_B, IDC_CHECK, IDC_NAME, IDOK,
                         IDC_APPLY, IDC_LINE}) {
        dialog_.Shown().Key(VK_TAB);
        EXPECT_EQ(dialog_.Shown().FocusedId(), id);
    }
    OnUserInterface([&] { SendMessageA(dialog_.Shown().Handle(), WM_NEXTDLGCTL, TRUE, FALSE); });
    EXPECT_EQ(dialog_.Shown().FocusedId(), IDC_APPLY) << "and back";
}

TEST_F(DialogKeys, TabSelectsTheWholeTextOfTheEditItComesTo) {
    OnUserInterface([&] { SetDlgItemTextA(dialog_.Shown().Handle(), IDC_NAME, "0x1F"); });
    Focus(IDC_CHECK);
    dialog_.Shown().Key(VK_TAB);
    PostMessageA(dialog_.Shown().Control(IDC_NAME), WM_CHAR, '7', 0);
    EXPECT_EQ(dialog_.Shown().Text(IDC_NAME), "7");
}

TEST_F(DialogKeys, ArrowsMoveTheChoiceInsideAGroupAndAround) {
    dialog_.Shown().Press(IDC_RADIO_A);
    for (const int id : {IDC_RADIO_B, IDC_RADIO_C, IDC_RADIO_A}) {
        dialog_.Shown().Key(VK_DOWN);
        EXPECT_EQ(dialog_.Shown().FocusedId(), id);
        for (const int each : {IDC_RADIO_A, IDC_RADIO_B, IDC_RADIO_C})
            EXPECT_EQ(dialog_.Shown().IsChecked(each), each == id) << "button " << each;
    }
    EXPECT_NE(Press(VK_UP).find(Pressed(IDC_RADIO_C)), std::string::npos);
    EXPECT_TRUE(dialog_.Shown().IsChecked(IDC_RADIO_C));
}

TEST_F(DialogKeys, ArrowsMoveAmongPushButtonsWithoutPressingThem) {
    GoTo(IDOK);
    EXPECT_EQ(Press(VK_RIGHT), "");
    EXPECT_EQ(dialog_.Shown().FocusedId(), IDC_APPLY);
    EXPECT_EQ(Press(VK_RIGHT), "");
    EXPECT_EQ(dialog_.Shown().FocusedId(), IDOK) << "a disabled button is passed over";
}

TEST_F(DialogKeys, SpacePressesTheFocusedButtonWhenItComesUp) {
    Focus(IDC_CHECK);
    EXPECT_EQ(Press(VK_SPACE), Pressed(IDC_CHECK));
    EXPECT_TRUE(dialog_.Shown().IsChecked(IDC_CHECK));
    Focus(IDC_APPLY);
    EXPECT_EQ(Press(VK_SPACE), Pressed(IDC_APPLY));
}

TEST_F(DialogKeys, MarkedLettersPressButtonsAndLeadFromLabelsToTheirFields) {
    dialog_.Shown().AltKey('n');
    EXPECT_EQ(dialog_.Shown().FocusedId(), IDC_NAME);
    dialog_.TakeNotifications();
    dialog_.Shown().AltKey('p');
    EXPECT_NE(dialog_.TakeNotifications().find(Pressed(IDC_APPLY)), std::string::npos);
    dialog_.Shown().AltKey('g');
    EXPECT_EQ(dialog_.TakeNotifications(), "") << "a disabled button";
    dialog_.Shown().AltKey('c');
    EXPECT_TRUE(dialog_.Shown().IsChecked(IDC_CHECK));
    dialog_.Shown().AltKey('b');
    EXPECT_TRUE(dialog_.Shown().IsChecked(IDC_RADIO_B));
}

}  // namespace
