// The rules of list boxes and combo boxes.
#include "tests/kit/person.h"
#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/difference.h"
#include "tests/platform/recorder.h"

namespace {

using kit::Code;
using kit::OnUserInterface;

// What a combo box tells of a change in its edit, and of a lack of memory.
std::string Edited() {
    return Code(IDC_COMBO, CBN_EDITUPDATE) + " " + Code(IDC_COMBO, CBN_EDITCHANGE);
}
std::string NoSpace() {
    constexpr WORD kErrorSpace = 0xFFFF;
    return Code(IDC_COMBO, kErrorSpace);
}

class Lists : public kit::RecordedTest {
  protected:
    Lists() : RecordedTest(IDD_LISTS, "Lists") {}

    LRESULT SendText(int id, UINT message, int wParam, const char* text) {
        return Send(id, message, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(text));
    }
    void Fill(int id, UINT add) {
        for (const char* row : {"apple", "Banana", "apricot", "cherry"})
            SendText(id, add, 0, row);
    }
};

TEST_F(Lists, SelectingByMessageNotifiesNobodyAndABadRowIsAnError) {
    Fill(IDC_LIST, LB_ADDSTRING);
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    dialog_.TakeNotifications();
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_SETCURSEL, 2), 2);
    EXPECT_EQ(Send(IDC_LIST, LB_SETCURSEL, 4), LB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), 2) << "a row that is not there changes nothing";
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_SETCURSEL, 3), 3);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_SETCURSEL, static_cast<WPARAM>(-1)), CB_ERR);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETITEMDATA, 9), CB_ERR);
    EXPECT_EQ(dialog_.TakeNotifications(), "");
}

TEST_F(Lists, DeletingTheSelectedRowLeavesNoSelectionAndDataGoesWithItsRow) {
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    for (WPARAM row = 0; row < 4; ++row)
        Send(IDC_DROP_LIST, CB_SETITEMDATA, row, static_cast<LPARAM>(row * 10));
    Send(IDC_DROP_LIST, CB_SETCURSEL, 1);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_DELETESTRING, 1), 3);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETITEMDATA, 1), 20);
    EXPECT_EQ(SendText(IDC_DROP_LIST, CB_INSERTSTRING, 0, "first"), 0);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETITEMDATA, 0), 0);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETITEMDATA, 2), 20);
}

TEST_F(Lists, FindingStartsBehindTheGivenRowWrapsAndIgnoresCase) {
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    const auto find = [this](UINT how, int after, const char* text) {
        return SendText(IDC_DROP_LIST, how, after, text);
    };
    EXPECT_EQ(find(CB_FINDSTRING, -1, "AP"), 0);
    EXPECT_EQ(find(CB_FINDSTRING, 0, "ap"), 2);
    EXPECT_EQ(find(CB_FINDSTRING, 2, "ap"), 0);
    EXPECT_EQ(find(CB_FINDSTRINGEXACT, -1, "AP"), CB_ERR);
    EXPECT_EQ(find(CB_FINDSTRINGEXACT, 3, "BANANA"), 1);
    SendText(IDC_DROP_LIST, CB_ADDSTRING, 0, "");
    EXPECT_EQ(find(CB_FINDSTRINGEXACT, -1, ""), CB_ERR) << "not even an empty row";
}

TEST_F(Lists, KeysMoveTheCaretInAComboBoxsEditAndDelete) {
    SendText(IDC_COMBO, WM_SETTEXT, 0, "abc");
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETEDITSEL), CB_ERR) << "a list without an edit";
    Focus(IDC_DROP_LIST);
    dialog_->Focus(IDC_COMBO);
    EXPECT_EQ(Send(IDC_COMBO, CB_GETEDITSEL), MAKELONG(0, 3)) << "all is selected by the focus";
    dialog_.TakeNotifications();
    dialog_->Key(VK_HOME);
    dialog_->Key(VK_RIGHT);
    EXPECT_EQ(Send(IDC_COMBO, CB_GETEDITSEL), MAKELONG(1, 1));
    dialog_->Key(VK_DELETE);
    EXPECT_EQ(dialog_->Text(IDC_COMBO), "ac");
    EXPECT_EQ(dialog_.TakeNotifications(), Edited());
    dialog_->Key(VK_END);
    dialog_->Key(VK_DELETE);
    EXPECT_EQ(dialog_.TakeNotifications(), "") << "nothing stands behind";
}

TEST_F(Lists, KeysAndLettersChooseRowsAndTellTheProgram) {
    Focus(IDC_LIST);
    dialog_->Key(VK_DOWN);
    EXPECT_EQ(dialog_.TakeNotifications(), "") << "the list is empty";
    Fill(IDC_LIST, LB_ADDSTRING);
    dialog_->Key(VK_DOWN);
    EXPECT_EQ(dialog_->SelectedRow(IDC_LIST), 0);
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_LIST, LBN_SELCHANGE));
    dialog_->Key(VK_END);
    EXPECT_EQ(dialog_->SelectedRow(IDC_LIST), 3);
    dialog_.TakeNotifications();
    dialog_->Key(VK_DOWN);
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_LIST, LBN_SELCHANGE))
        << "from the last one too";
    dialog_->Key('B');
    EXPECT_EQ(dialog_->SelectedRow(IDC_LIST), 1);
    Focus(IDC_CAPITALS);
    Focus(IDC_LIST);
    dialog_->Key('C');
    EXPECT_EQ(dialog_->SelectedRow(IDC_LIST), 3) << "not what begins with both letters";
}

TEST_F(Lists, SpaceChoosesTheRowThatKeysStandOn) {
    Fill(IDC_LIST, LB_ADDSTRING);
    Focus(IDC_LIST);
    dialog_->Key(VK_SPACE);
    EXPECT_EQ(dialog_->SelectedRow(IDC_LIST), 0);
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_LIST, LBN_SELCHANGE));
    Send(IDC_LIST, LB_SETCURSEL, 2);
    dialog_->Key(VK_SPACE);
    EXPECT_EQ(dialog_->SelectedRow(IDC_LIST), 2);
    EXPECT_EQ(dialog_.TakeNotifications(), "");
}

TEST_F(Lists, AClickTakesTheFocusAndChoosesAndADoubleClickIsTold) {
    Fill(IDC_LIST, LB_ADDSTRING);
    Focus(IDC_CAPITALS);
    const HWND list = dialog_->Control(IDC_LIST);
    const std::string chosen = Code(IDC_LIST, LBN_SELCHANGE);
    kit::ClickRow(list, 2);
    EXPECT_EQ(dialog_.TakeNotifications(),
              Code(IDC_CAPITALS, EN_KILLFOCUS) + " " + Code(IDC_LIST, LBN_SETFOCUS) + " " + chosen);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), 2);
    Send(IDC_LIST, LB_SETCURSEL, 0);
    kit::ClickRow(list, 0);
    EXPECT_EQ(dialog_.TakeNotifications(), chosen) << "also of the row that is selected already";
    kit::DoubleClickRow(list, 1);
    EXPECT_EQ(dialog_.TakeNotifications(), chosen + " " + Code(IDC_LIST, LBN_DBLCLK));
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), 1);
    OnUserInterface([list] { EnableWindow(list, FALSE); });
    dialog_.TakeNotifications();
    kit::ClickRow(list, 2);
    EXPECT_EQ(dialog_.TakeNotifications(), "") << "a disabled one takes none";
}

TEST_F(Lists, AUsersChoiceInADropDownListTellsOkThenChangeAlsoOfTheSameRow) {
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    Send(IDC_DROP_LIST, CB_SETCURSEL, 2);
    Focus(IDC_DROP_LIST);
    for (int press = 0; press < 2; ++press) {
        dialog_->Key(VK_DOWN);
        EXPECT_EQ(dialog_.TakeNotifications(),
                  Code(IDC_DROP_LIST, CBN_SELENDOK) + " " + Code(IDC_DROP_LIST, CBN_SELCHANGE));
        EXPECT_EQ(dialog_->Text(IDC_DROP_LIST), "cherry");
    }
}

TEST_F(Lists, DroppingAndClosingAreToldAndAnOpenListClosesWhenTheFocusGoes) {
    for (const int id : {IDC_DROP_LIST, IDC_COMBO}) {
        Fill(id, CB_ADDSTRING);
        Focus(id);
        Send(id, CB_SHOWDROPDOWN, TRUE);
        EXPECT_EQ(dialog_.TakeNotifications(), Code(id, CBN_DROPDOWN));
        dialog_->Focus(IDC_LIST);
        EXPECT_FALSE(Send(id, CB_GETDROPPEDSTATE)) << id;
        EXPECT_NE(dialog_.TakeNotifications().find(Code(id, CBN_CLOSEUP)), std::string::npos);
    }
}

TEST_F(Lists, TypingIntoAComboBoxIsToldAndObeysItsLimit) {
    Send(IDC_COMBO, CB_LIMITTEXT, 3);
    dialog_->Type(IDC_COMBO, "");
    dialog_.TakeNotifications();
    for (const char character : {'a', 'b', 'c', 'd'}) {
        OnUserInterface(
            [&] { SendMessageA(GetFocus(), WM_CHAR, static_cast<WPARAM>(character), 0); });
    }
    EXPECT_EQ(dialog_->Text(IDC_COMBO), "abc");
    const std::string threeTimes = Edited() + " " + Edited() + " " + Edited();
    EXPECT_EQ(dialog_.TakeNotifications(),
              kit::ExceptOn(WindowSystem::kWine, threeTimes + " " + NoSpace() + " " + Edited(),
                            "takes a text that does not fit for a lack of memory and a change",
                            threeTimes));
    EXPECT_EQ(Send(IDC_COMBO, CB_GETCURSEL), CB_ERR);
}

TEST_F(Lists, WhatIsPastedIntoAComboBoxObeysItsLimit) {
    Send(IDC_COMBO, CB_LIMITTEXT, 3);
    Focus(IDC_COMBO);
    kit::Paste(dialog_->Control(IDC_COMBO), "abcd");
    EXPECT_EQ(dialog_->Text(IDC_COMBO), "abc");
}

TEST_F(Lists, AComboBoxsEditTakesAnyTextAndShowsTheRowThatIsSelected) {
    Fill(IDC_COMBO, CB_ADDSTRING);
    dialog_.TakeNotifications();
    dialog_->SetText(IDC_COMBO, "own words");
    EXPECT_EQ(dialog_.TakeNotifications(), "");
    EXPECT_EQ(dialog_->Text(IDC_COMBO), "own words");
    Focus(IDC_COMBO);
    Send(IDC_COMBO, CB_SETCURSEL, 1);
    EXPECT_EQ(dialog_->Text(IDC_COMBO), "Banana");
    EXPECT_EQ(Send(IDC_COMBO, CB_GETEDITSEL), MAKELONG(0, 6)) << "ready to be typed over";
    dialog_->Type(IDC_COMBO, "Banana");
    EXPECT_EQ(Send(IDC_COMBO, CB_GETCURSEL), CB_ERR) << "not even a row's whole text selects it";
}

TEST_F(Lists, EmptyingAComboBoxEmptiesItsEdit) {
    Fill(IDC_COMBO, CB_ADDSTRING);
    Send(IDC_COMBO, CB_SETCURSEL, 1);
    Send(IDC_COMBO, CB_RESETCONTENT);
    EXPECT_EQ(dialog_->Text(IDC_COMBO), "");
    EXPECT_EQ(dialog_->Rows(IDC_COMBO), 0);
}

// What a combo box holds while it tells of a choice.
struct Seen {
    std::string text;
    LRESULT row = CB_ERR;
};
Seen& LastSeen() {
    static Seen seen;
    return seen;
}

INT_PTR CALLBACK LookingProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    if (message == WM_COMMAND && wParam == MAKEWPARAM(IDC_COMBO, CBN_SELCHANGE)) {
        std::array<char, 32> text{};
        GetDlgItemTextA(dialog, IDC_COMBO, text.data(), static_cast<int>(text.size()));
        LastSeen() = {text.data(), SendDlgItemMessageA(dialog, IDC_COMBO, CB_GETCURSEL, 0, 0)};
    }
    return message == WM_INITDIALOG;
}

TEST(ComboBoxes, TheEditShowsTheOldTextWhileAChoiceIsTold) {
    auto program = kit::StartProgram([] {
        return static_cast<int>(DialogBoxParamA(
            GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_LISTS), nullptr, LookingProcedure, 0));
    });
    const kit::Dialog dialog = kit::WaitForDialog("Lists");
    OnUserInterface([&] {
        const HWND combo = dialog.Control(IDC_COMBO);
        for (const char* row : {"apple", "banana"})
            SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
        SetWindowTextA(combo, "own words");
        SetFocus(combo);
    });
    dialog.Key(VK_DOWN);
    EXPECT_EQ(LastSeen().text, "own words");
    EXPECT_EQ(LastSeen().row, 0);
    EXPECT_EQ(dialog.Text(IDC_COMBO), "apple");
    OnUserInterface([&] { EndDialog(dialog.Handle(), 0); });
    program.get();
}

}  // namespace
