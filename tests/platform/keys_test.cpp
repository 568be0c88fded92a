// What keys do in a dialog box.
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

class DialogKeys : public kit::RecordedTest {
  protected:
    DialogKeys() : RecordedTest(IDD_KEYS, "Keys") {}

    // As a program does that wants the dialog to follow.
    void GoTo(int id) {
        OnUserInterface([&] {
            SendMessageA(dialog_->Handle(), WM_NEXTDLGCTL,
                         reinterpret_cast<WPARAM>(dialog_->Control(id)), TRUE);
        });
    }
    // What a key makes the dialog tell.
    std::string Press(WPARAM key) {
        dialog_.TakeNotifications();
        dialog_->Key(key);
        return dialog_.TakeNotifications();
    }
};

class DialogLetters : public kit::RecordedTest {
  protected:
    DialogLetters()
        : RecordedTest(IDD_LETTERS, "Letters", {.act = [](HWND window) {
                           CheckRadioButton(window, IDC_KIND_A, IDC_KIND_B, IDC_KIND_B);
                       }}) {}

    // What Alt and a letter make the dialog tell of clicks, and the number of who has the focus.
    std::string Follow(char letter) {
        dialog_.TakeNotifications();
        dialog_->AltKey(letter);
        std::string clicks;
        std::istringstream told(dialog_.TakeNotifications());
        for (std::string each; told >> each;) {
            if (each.ends_with(":0"))
                clicks += each + " ";
        }
        return clicks + "focus " + std::to_string(dialog_->FocusedId());
    }
};

std::string FocusOn(int id) {
    return "focus " + std::to_string(id);
}

TEST_F(DialogLetters, LeadFromALabelToTheNextStopAndPressAButtonThatIsNone) {
    EXPECT_EQ(Follow('f'), FocusOn(IDC_FIELD)) << "over a disabled field and one that is no stop";
    EXPECT_EQ(Follow('k'), FocusOn(IDC_KIND_B)) << "the radio button of the frame that is checked";
    EXPECT_EQ(Follow('u'), Pressed(IDC_UNSTOPPED) + " " + FocusOn(IDC_UNSTOPPED));
    EXPECT_TRUE(dialog_->IsChecked(IDC_UNSTOPPED));
}

TEST_F(DialogLetters, ThatSeveralShareMoveTheFocusAndPressTheDefaultButtonAlone) {
    const auto expected = [](int id, int pressedByWine) {
        return kit::ExceptOn(
            WindowSystem::kWine, Pressed(pressedByWine) + " " + FocusOn(pressedByWine),
            "presses the next of several buttons; Windows' guidelines have the focus move",
            FocusOn(id));
    };
    EXPECT_EQ(Follow('t'), expected(IDC_TWIN, IDC_TWIN));
    EXPECT_EQ(Follow('t'), expected(IDC_OTHER_TWIN, IDC_TWIN));
    EXPECT_EQ(Follow('t'), expected(IDC_TWIN, IDC_TWIN)) << "and round";
    EXPECT_EQ(Follow('s'), expected(IDC_SEND, IDC_SEND));
    dialog_->Focus(IDC_FIELD);
    dialog_->Enable(IDC_SEND, false);
    EXPECT_EQ(Follow('s'), Pressed(IDOK) + " " + FocusOn(IDOK)) << "no longer shared";
}

TEST_F(DialogKeys, EscapeSendsCancelEvenWithoutACancelButton) {
    EXPECT_EQ(Press(VK_ESCAPE), "2");
    Focus(IDC_RETURN_LINES);
    EXPECT_EQ(Press(VK_ESCAPE), "2") << "an edit of several lines leaves it to the dialog";
}

TEST(BareDialogKeys, EnterWithoutADefaultButtonSendsOk) {
    kit::RecordedDialog dialog(IDD_BARE, "Bare");
    dialog.TakeNotifications();
    dialog->Key(VK_RETURN);
    EXPECT_EQ(dialog.TakeNotifications(), "1");
}

TEST_F(DialogKeys, EnterPressesTheDefaultButtonWhereverTheProgramPutsTheFocus) {
    for (const int focus : {IDC_LINE, IDC_CHECK, IDC_RADIO_A, IDC_APPLY}) {
        Focus(focus);
        EXPECT_EQ(Press(VK_RETURN), Pressed(IDOK)) << "focus on " << focus;
    }
    dialog_->Enable(IDOK, false);
    EXPECT_EQ(Press(VK_RETURN), "") << "a disabled one is not pressed";
}

TEST_F(DialogKeys, AButtonThatTheDialogsKeysLeadToIsTheDefaultOneUntilTheyLeaveIt) {
    GoTo(IDC_APPLY);
    EXPECT_EQ(Press(VK_RETURN), Pressed(IDC_APPLY));
    GoTo(IDC_CHECK);
    EXPECT_EQ(Press(VK_RETURN), Pressed(IDOK));
    Focus(IDOK);
    dialog_->Key(VK_TAB);
    ASSERT_EQ(dialog_->FocusedId(), IDC_APPLY);
    EXPECT_EQ(Press(VK_RETURN), Pressed(IDC_APPLY));
    dialog_->Key(VK_TAB);
    ASSERT_EQ(dialog_->FocusedId(), IDC_LINE);
    EXPECT_EQ(Press(VK_RETURN), Pressed(IDOK));
}

TEST_F(DialogKeys, EnterMakesALineOnlyWhereTheEditAsksForItAndElsePressesTheDefaultButton) {
    dialog_->Type(IDC_RETURN_LINES, "ab");
    dialog_->Key(VK_RETURN);
    EXPECT_EQ(dialog_->Text(IDC_RETURN_LINES), "ab\r\n");
    Focus(IDC_PLAIN_LINES);
    EXPECT_EQ(Press(VK_RETURN), Code(IDC_PLAIN_LINES, EN_KILLFOCUS) + " " + Pressed(IDOK));
    EXPECT_EQ(dialog_->FocusedId(), IDOK);
    EXPECT_EQ(dialog_->Text(IDC_PLAIN_LINES), "");
}

TEST_F(DialogKeys, TabGoesThroughTheStopsInTemplateOrderAndPassesOverDisabledOnes) {
    dialog_->CheckRadio(IDC_RADIO_A, IDC_RADIO_C, IDC_RADIO_B);
    for (const int id : {IDC_PLAIN_LINES, IDC_RETURN_LINES, IDC_RADIO_B, IDC_CHECK, IDC_NAME, IDOK,
                         IDC_APPLY, IDC_LINE}) {
        dialog_->Key(VK_TAB);
        EXPECT_EQ(dialog_->FocusedId(), id);
    }
    OnUserInterface([&] { SendMessageA(dialog_->Handle(), WM_NEXTDLGCTL, TRUE, FALSE); });
    EXPECT_EQ(dialog_->FocusedId(), IDC_APPLY) << "and back";
}

TEST_F(DialogKeys, TabSelectsTheWholeTextOfTheEditItComesTo) {
    dialog_->SetText(IDC_NAME, "0x1F");
    Focus(IDC_CHECK);
    dialog_->Key(VK_TAB);
    PostMessageA(dialog_->Control(IDC_NAME), WM_CHAR, '7', 0);
    EXPECT_EQ(dialog_->Text(IDC_NAME), "7");
}

TEST_F(DialogKeys, ArrowsMoveTheChoiceInsideAGroupAndAround) {
    dialog_->Press(IDC_RADIO_A);
    for (const int id : {IDC_RADIO_B, IDC_RADIO_C, IDC_RADIO_A}) {
        dialog_->Key(VK_DOWN);
        EXPECT_EQ(dialog_->FocusedId(), id);
        for (const int each : {IDC_RADIO_A, IDC_RADIO_B, IDC_RADIO_C})
            EXPECT_EQ(dialog_->IsChecked(each), each == id) << "button " << each;
    }
    EXPECT_NE(Press(VK_UP).find(Pressed(IDC_RADIO_C)), std::string::npos);
    EXPECT_TRUE(dialog_->IsChecked(IDC_RADIO_C));
}

TEST_F(DialogKeys, AControlThatIsHiddenHandsTheFocusToTheFirstStop) {
    dialog_->SetText(IDC_LINE, "text");
    Focus(IDC_CHECK);
    OnUserInterface([&] { ShowWindow(dialog_->Control(IDC_CHECK), SW_HIDE); });
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_LINE, EN_SETFOCUS));
    EXPECT_EQ(Send(IDC_LINE, EM_GETSEL), MAKELONG(0, 4));
}

TEST_F(DialogKeys, ArrowsMoveAmongPushButtonsWithoutPressingThem) {
    GoTo(IDOK);
    EXPECT_EQ(Press(VK_RIGHT), "");
    EXPECT_EQ(dialog_->FocusedId(), IDC_APPLY);
    EXPECT_EQ(Press(VK_RIGHT), "");
    EXPECT_EQ(dialog_->FocusedId(), IDOK) << "a disabled button is passed over";
}

TEST_F(DialogKeys, SpacePressesTheFocusedButtonWhenItComesUp) {
    Focus(IDC_CHECK);
    EXPECT_EQ(Press(VK_SPACE), Pressed(IDC_CHECK));
    EXPECT_TRUE(dialog_->IsChecked(IDC_CHECK));
    Focus(IDC_APPLY);
    EXPECT_EQ(Press(VK_SPACE), Pressed(IDC_APPLY));
}

TEST_F(DialogKeys, MarkedLettersPressButtonsAndLeadFromLabelsToTheirFields) {
    dialog_->AltKey('n');
    EXPECT_EQ(dialog_->FocusedId(), IDC_NAME);
    dialog_.TakeNotifications();
    dialog_->AltKey('p');
    EXPECT_NE(dialog_.TakeNotifications().find(Pressed(IDC_APPLY)), std::string::npos);
    dialog_->AltKey('g');
    EXPECT_EQ(dialog_.TakeNotifications(), "") << "a disabled button";
    dialog_->AltKey('c');
    EXPECT_TRUE(dialog_->IsChecked(IDC_CHECK));
    dialog_->AltKey('b');
    EXPECT_TRUE(dialog_->IsChecked(IDC_RADIO_B));
}

}  // namespace
