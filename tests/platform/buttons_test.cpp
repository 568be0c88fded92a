// Push buttons, check boxes, radio buttons and their groups.
#include "tests/kit/person.h"
#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/recorder.h"

namespace {

using kit::Code;
using kit::OnUserInterface;

class Buttons : public kit::RecordedTest {
  protected:
    Buttons() : RecordedTest(IDD_BUTTONS, "Buttons") {}

    // Those of the radio buttons that are checked.
    std::vector<int> Checked() {
        std::vector<int> checked;
        for (const int id : {IDC_LEFT, IDC_MIDDLE, IDC_RIGHT, IDC_UPPER, IDC_LOWER}) {
            if (dialog_->IsChecked(id))
                checked.push_back(id);
        }
        return checked;
    }
    // What a click makes the dialog tell.
    std::string Click(int id) {
        dialog_.TakeNotifications();
        PostMessageA(dialog_->Control(id), BM_CLICK, 0, 0);
        return dialog_.TakeNotifications();
    }
};

TEST_F(Buttons, CheckingByMessageTellsNobodyAndLeavesTheRestOfTheGroup) {
    dialog_.TakeNotifications();
    OnUserInterface([&] {
        CheckDlgButton(dialog_->Handle(), IDC_LEFT, BST_CHECKED);
        CheckDlgButton(dialog_->Handle(), IDC_MIDDLE, BST_CHECKED);
    });
    EXPECT_EQ(Checked(), (std::vector<int>{IDC_LEFT, IDC_MIDDLE}));
    EXPECT_EQ(dialog_.TakeNotifications(), "");
}

TEST_F(Buttons, AClickChecksARadioButtonAndClearsItsGroupAlone) {
    Send(IDC_LEFT, BM_SETCHECK, BST_CHECKED);
    Send(IDC_MIDDLE, BM_SETCHECK, BST_CHECKED);
    Send(IDC_LOWER, BM_SETCHECK, BST_CHECKED);
    EXPECT_EQ(Click(IDC_RIGHT), Code(IDC_RIGHT, BN_CLICKED));
    EXPECT_EQ(Checked(), (std::vector<int>{IDC_RIGHT, IDC_LOWER}));
    EXPECT_EQ(Click(IDC_RIGHT), Code(IDC_RIGHT, BN_CLICKED)) << "told again";
    EXPECT_EQ(Checked(), (std::vector<int>{IDC_RIGHT, IDC_LOWER}));
}

TEST_F(Buttons, CheckRadioButtonClearsTheNumbersOfItsRange) {
    Send(IDC_UPPER, BM_SETCHECK, BST_CHECKED);
    Send(IDC_LEFT, BM_SETCHECK, BST_CHECKED);
    dialog_->CheckRadio(IDC_LEFT, IDC_RIGHT, IDC_MIDDLE);
    EXPECT_EQ(Checked(), (std::vector<int>{IDC_MIDDLE, IDC_UPPER}));
}

TEST_F(Buttons, TabEntersAGroupAtTheButtonThatIsChecked) {
    dialog_->CheckRadio(IDC_LEFT, IDC_RIGHT, IDC_RIGHT);
    dialog_->Focus(IDC_PUSH);
    dialog_->Key(VK_TAB);
    EXPECT_EQ(dialog_->FocusedId(), IDC_RIGHT);
}

TEST_F(Buttons, AClickMovesTheFocusWhetherAPersonsOrTheProgramsOwn) {
    EXPECT_EQ(Click(IDC_PUSH), Code(IDC_PUSH, BN_CLICKED));
    EXPECT_EQ(dialog_->FocusedId(), IDC_PUSH);
    kit::ClickButton(dialog_->Control(IDC_MIDDLE));
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_MIDDLE, BN_CLICKED));
    EXPECT_EQ(dialog_->FocusedId(), IDC_MIDDLE);
    EXPECT_EQ(Checked(), std::vector<int>{IDC_MIDDLE});
}

TEST_F(Buttons, ADisabledOneTakesMessagesAndNoClicks) {
    dialog_->Enable(IDC_LEFT, false);
    dialog_.TakeNotifications();
    kit::ClickButton(dialog_->Control(IDC_LEFT));
    EXPECT_EQ(dialog_.TakeNotifications(), "");
    EXPECT_EQ(Checked(), std::vector<int>{});
    Send(IDC_LEFT, BM_SETCHECK, BST_CHECKED);
    EXPECT_EQ(Checked(), std::vector<int>{IDC_LEFT});
}

}  // namespace
