// The rules of list boxes and combo boxes.
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <tuple>

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
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_SETCURSEL, 3), 3);
    EXPECT_EQ(dialog_.TakeNotifications(), "");
    EXPECT_EQ(Send(IDC_LIST, LB_SETCURSEL, 4), LB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_SETCURSEL, static_cast<WPARAM>(-2)), LB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), 2) << "a row that is not there changes nothing";
    EXPECT_EQ(Send(IDC_LIST, LB_SETCURSEL, static_cast<WPARAM>(-1)), LB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_SETCURSEL, static_cast<WPARAM>(-1)), CB_ERR);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_GETTEXTLEN, 9), LB_ERR);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETITEMDATA, 9), CB_ERR);
}

TEST_F(Lists, DeletingTheSelectedRowLeavesNoSelectionAndDataGoesWithItsRow) {
    struct Case {
        int id;
        UINT add, insert, remove, setData, getData, select, selected;
    };
    for (const Case& list : {Case{IDC_LIST, LB_ADDSTRING, LB_INSERTSTRING, LB_DELETESTRING,
                                  LB_SETITEMDATA, LB_GETITEMDATA, LB_SETCURSEL, LB_GETCURSEL},
                             Case{IDC_DROP_LIST, CB_ADDSTRING, CB_INSERTSTRING, CB_DELETESTRING,
                                  CB_SETITEMDATA, CB_GETITEMDATA, CB_SETCURSEL, CB_GETCURSEL}}) {
        Fill(list.id, list.add);
        for (WPARAM row = 0; row < 4; ++row)
            Send(list.id, list.setData, row, static_cast<LPARAM>(row * 10));
        Send(list.id, list.select, 1);
        EXPECT_EQ(Send(list.id, list.remove, 1), 3) << list.id;
        EXPECT_EQ(Send(list.id, list.selected), LB_ERR) << list.id;
        EXPECT_EQ(Send(list.id, list.getData, 1), 20) << list.id;
        EXPECT_EQ(SendText(list.id, list.insert, 0, "first"), 0) << list.id;
        EXPECT_EQ(Send(list.id, list.getData, 0), 0) << list.id;
        EXPECT_EQ(Send(list.id, list.getData, 2), 20) << list.id;
    }
}

TEST_F(Lists, FindingStartsBehindTheGivenRowWrapsAndIgnoresCase) {
    Fill(IDC_LIST, LB_ADDSTRING);
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    struct Case {
        int after;
        const char* text;
        LRESULT prefix;
        LRESULT exact;
    };
    for (const Case& each :
         {Case{-1, "AP", 0, LB_ERR}, Case{0, "ap", 2, LB_ERR}, Case{2, "ap", 0, LB_ERR},
          Case{3, "BANANA", 1, 1}, Case{-1, "zebra", LB_ERR, LB_ERR}, Case{0, "apple", 0, 0}}) {
        EXPECT_EQ(SendText(IDC_LIST, LB_FINDSTRING, each.after, each.text), each.prefix)
            << each.text << " after " << each.after;
        EXPECT_EQ(SendText(IDC_LIST, LB_FINDSTRINGEXACT, each.after, each.text), each.exact)
            << each.text << " after " << each.after;
        EXPECT_EQ(SendText(IDC_DROP_LIST, CB_FINDSTRING, each.after, each.text), each.prefix)
            << each.text << " after " << each.after;
        EXPECT_EQ(SendText(IDC_DROP_LIST, CB_FINDSTRINGEXACT, each.after, each.text), each.exact)
            << each.text << " after " << each.after;
    }
    EXPECT_EQ(SendText(IDC_LIST, LB_SELECTSTRING, -1, "BAN"), 1);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), 1);
    EXPECT_EQ(SendText(IDC_LIST, LB_SELECTSTRING, -1, "zebra"), LB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), 1) << "what is not found changes nothing";
    EXPECT_EQ(SendText(IDC_DROP_LIST, CB_SELECTSTRING, 0, "ap"), 2);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETCURSEL), 2);
}

TEST_F(Lists, NothingIsFoundByAnEmptyText) {
    Fill(IDC_LIST, LB_ADDSTRING);
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    EXPECT_EQ(SendText(IDC_LIST, LB_FINDSTRING, -1, ""), LB_ERR);
    EXPECT_EQ(SendText(IDC_LIST, LB_SELECTSTRING, -1, ""), LB_ERR);
    for (const auto& [id, add, find] :
         {std::tuple{IDC_LIST, LB_ADDSTRING, LB_FINDSTRINGEXACT},
          std::tuple{IDC_DROP_LIST, CB_ADDSTRING, CB_FINDSTRINGEXACT}}) {
        SendText(id, static_cast<UINT>(add), 0, "");
        EXPECT_EQ(SendText(id, static_cast<UINT>(find), -1, ""), LB_ERR) << "an empty row";
    }
    EXPECT_EQ(SendText(IDC_DROP_LIST, CB_SELECTSTRING, -1, ""), CB_ERR);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETCURSEL), CB_ERR);
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

TEST_F(Lists, RowsThatComeAndGoBeforeTheSelectedOneMoveTheSelection) {
    Fill(IDC_LIST, LB_ADDSTRING);
    Send(IDC_LIST, LB_SETCURSEL, 2);
    EXPECT_EQ(SendText(IDC_LIST, LB_INSERTSTRING, -1, "last"), 4);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), 2);
    EXPECT_EQ(Send(IDC_LIST, LB_DELETESTRING, 0), 4) << "rows that are left";
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), 1);
    EXPECT_EQ(SendText(IDC_LIST, LB_INSERTSTRING, 0, "first"), 0);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), 2);
    EXPECT_EQ(dialog_->Row(IDC_LIST, 2), "apricot");
    EXPECT_EQ(SendText(IDC_LIST, LB_INSERTSTRING, 9, "nowhere"), LB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_DELETESTRING, 9), LB_ERR);
    Send(IDC_LIST, LB_RESETCONTENT);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCOUNT), 0);
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), LB_ERR);
}

TEST_F(Lists, KeysAndLettersChooseRowsAndTellTheProgram) {
    Fill(IDC_LIST, LB_ADDSTRING);
    Focus(IDC_LIST);
    dialog_->Key(VK_DOWN);
    EXPECT_EQ(dialog_->SelectedRow(IDC_LIST), 0);
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_LIST, LBN_SELCHANGE));
    dialog_->Key(VK_END);
    EXPECT_EQ(dialog_->SelectedRow(IDC_LIST), 3);
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
}

TEST_F(Lists, ADisabledOneTakesNoClicks) {
    Fill(IDC_LIST, LB_ADDSTRING);
    const HWND list = dialog_->Control(IDC_LIST);
    Focus(IDC_CAPITALS);
    OnUserInterface([list] { EnableWindow(list, FALSE); });
    kit::ClickRow(list, 1);
    EXPECT_EQ(dialog_.TakeNotifications(), "");
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), LB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_SETCURSEL, 1), 1) << "but messages";
}

TEST_F(Lists, AUsersChoiceInADropDownListTellsOkThenChange) {
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    Focus(IDC_DROP_LIST);
    dialog_->Key(VK_DOWN);
    EXPECT_EQ(dialog_.TakeNotifications(),
              Code(IDC_DROP_LIST, CBN_SELENDOK) + " " + Code(IDC_DROP_LIST, CBN_SELCHANGE));
    EXPECT_EQ(dialog_->Text(IDC_DROP_LIST), "apple");
}

TEST_F(Lists, AKeyThatStaysOnTheSameRowStillTells) {
    Fill(IDC_LIST, LB_ADDSTRING);
    Send(IDC_LIST, LB_SETCURSEL, 3);
    Focus(IDC_LIST);
    dialog_->Key(VK_DOWN);
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_LIST, LBN_SELCHANGE));
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    Send(IDC_DROP_LIST, CB_SETCURSEL, 3);
    Focus(IDC_DROP_LIST);
    dialog_->Key(VK_DOWN);
    EXPECT_EQ(dialog_.TakeNotifications(),
              Code(IDC_DROP_LIST, CBN_SELENDOK) + " " + Code(IDC_DROP_LIST, CBN_SELCHANGE));
}

TEST_F(Lists, KeysInAnEmptyListChooseNothing) {
    Focus(IDC_LIST);
    dialog_->Key(VK_DOWN);
    EXPECT_EQ(dialog_.TakeNotifications(), "");
    EXPECT_EQ(Send(IDC_LIST, LB_GETCURSEL), LB_ERR);
}

TEST_F(Lists, DroppingAndClosingAreTold) {
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    Focus(IDC_DROP_LIST);
    Send(IDC_DROP_LIST, CB_SHOWDROPDOWN, TRUE);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETDROPPEDSTATE), TRUE);
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_DROP_LIST, CBN_DROPDOWN));
    Send(IDC_DROP_LIST, CB_SHOWDROPDOWN, FALSE);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETDROPPEDSTATE), FALSE);
    EXPECT_NE(dialog_.TakeNotifications().find(Code(IDC_DROP_LIST, CBN_CLOSEUP)),
              std::string::npos);
}

TEST_F(Lists, TypingIntoAComboBoxIsToldAndObeysItsLimit) {
    Send(IDC_COMBO, CB_LIMITTEXT, 3);
    dialog_->Type(IDC_COMBO, "");
    dialog_.TakeNotifications();
    for (const char character : {'a', 'b', 'c', 'd'})
        OnUserInterface(
            [&] { SendMessageA(GetFocus(), WM_CHAR, static_cast<WPARAM>(character), 0); });
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
    dialog_.TakeNotifications();
    kit::Paste(dialog_->Control(IDC_COMBO), "x");
    EXPECT_EQ(dialog_->Text(IDC_COMBO), "abc");
    EXPECT_EQ(dialog_.TakeNotifications(),
              kit::ExceptOn(WindowSystem::kWine, NoSpace() + " " + Edited(),
                            "takes a text that does not fit for a lack of memory and a change",
                            std::string()));
}

TEST_F(Lists, TypingIntoAComboBoxLeavesNoRowSelected) {
    Fill(IDC_COMBO, CB_ADDSTRING);
    Send(IDC_COMBO, CB_SETCURSEL, 1);
    dialog_->Type(IDC_COMBO, "x");
    EXPECT_EQ(Send(IDC_COMBO, CB_GETCURSEL), CB_ERR);
    dialog_->Type(IDC_COMBO, "Banana");
    EXPECT_EQ(Send(IDC_COMBO, CB_GETCURSEL), CB_ERR) << "not even by a row's whole text";
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
    Send(IDC_COMBO, CB_SETCURSEL, static_cast<WPARAM>(-1));
    EXPECT_EQ(dialog_->Text(IDC_COMBO), "");
    EXPECT_EQ(SendText(IDC_DROP_LIST, WM_SETTEXT, 0, "no edit"), CB_ERR);
}

TEST_F(Lists, AnOpenListClosesWhenTheFocusGoes) {
    for (const int id : {IDC_DROP_LIST, IDC_COMBO}) {
        Fill(id, CB_ADDSTRING);
        Focus(id);
        Send(id, CB_SHOWDROPDOWN, TRUE);
        EXPECT_TRUE(Send(id, CB_GETDROPPEDSTATE)) << id;
        Focus(IDC_LIST);
        EXPECT_FALSE(Send(id, CB_GETDROPPEDSTATE)) << id;
    }
}

TEST_F(Lists, EmptyingAComboBoxEmptiesItsEdit) {
    for (const int id : {IDC_COMBO, IDC_SIMPLE}) {
        Fill(id, CB_ADDSTRING);
        Send(id, CB_SETCURSEL, 1);
        ASSERT_EQ(dialog_->Text(id), "Banana");
        Send(id, CB_RESETCONTENT);
        EXPECT_EQ(dialog_->Text(id), "") << id;
        EXPECT_EQ(dialog_->Rows(id), 0) << id;
    }
}

TEST_F(Lists, ASortedListPutsRowsInOrderIgnoringCase) {
    Fill(IDC_SORTED, LB_ADDSTRING);
    std::string order;
    for (int row = 0; row < dialog_->Rows(IDC_SORTED); ++row)
        order += dialog_->Row(IDC_SORTED, row) + " ";
    EXPECT_EQ(order, "apple apricot Banana cherry ");
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
