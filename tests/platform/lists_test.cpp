// The rules of list boxes and combo boxes.
#include <gtest/gtest.h>

#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/recorder.h"

namespace {

using kit::OnUserInterface;

std::string Code(int id, int code) {
    return std::to_string(id) + ":" + std::to_string(code);
}

class Lists : public testing::Test {
  protected:
    LRESULT Send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return OnUserInterface([&] {
            return SendDlgItemMessageA(dialog_.Shown().Handle(), id, message, wParam, lParam);
        });
    }
    LRESULT SendText(int id, UINT message, int wParam, const char* text) {
        return Send(id, message, static_cast<WPARAM>(wParam), reinterpret_cast<LPARAM>(text));
    }
    void Fill(int id, UINT add) {
        for (const char* row : {"apple", "Banana", "apricot", "cherry"})
            SendText(id, add, 0, row);
    }
    void Focus(int id) {
        OnUserInterface([&] { SetFocus(GetDlgItem(dialog_.Shown().Handle(), id)); });
        dialog_.TakeNotifications();
    }

    kit::RecordedDialog dialog_{IDD_LISTS, "Lists"};
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
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_SETCURSEL, static_cast<WPARAM>(-1)), CB_ERR);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETCURSEL), CB_ERR);
    EXPECT_EQ(Send(IDC_LIST, LB_GETTEXTLEN, 9), LB_ERR);
    EXPECT_EQ(Send(IDC_DROP_LIST, CB_GETITEMDATA, 9), CB_ERR);
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
    Fill(IDC_LIST, LB_ADDSTRING);
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
    }
}

TEST_F(Lists, KeysAndLettersChooseRowsAndTellTheProgram) {
    Fill(IDC_LIST, LB_ADDSTRING);
    Focus(IDC_LIST);
    dialog_.Shown().Key(VK_DOWN);
    EXPECT_EQ(dialog_.Shown().SelectedRow(IDC_LIST), 0);
    EXPECT_EQ(dialog_.TakeNotifications(), Code(IDC_LIST, LBN_SELCHANGE));
    dialog_.Shown().Key(VK_END);
    EXPECT_EQ(dialog_.Shown().SelectedRow(IDC_LIST), 3);
    dialog_.Shown().Key('B');
    EXPECT_EQ(dialog_.Shown().SelectedRow(IDC_LIST), 1);
}

TEST_F(Lists, AUsersChoiceInADropDownListTellsOkThenChange) {
    Fill(IDC_DROP_LIST, CB_ADDSTRING);
    Focus(IDC_DROP_LIST);
    dialog_.Shown().Key(VK_DOWN);
    EXPECT_EQ(dialog_.TakeNotifications(),
              Code(IDC_DROP_LIST, CBN_SELENDOK) + " " + Code(IDC_DROP_LIST, CBN_SELCHANGE));
    EXPECT_EQ(dialog_.Shown().Text(IDC_DROP_LIST), "apple");
}

TEST_F(Lists, AComboBoxsEditTakesAnyTextAndShowsTheRowThatIsSelected) {
    Fill(IDC_COMBO, CB_ADDSTRING);
    dialog_.TakeNotifications();
    OnUserInterface([&] { SetDlgItemTextA(dialog_.Shown().Handle(), IDC_COMBO, "own words"); });
    EXPECT_EQ(dialog_.TakeNotifications(), "");
    EXPECT_EQ(dialog_.Shown().Text(IDC_COMBO), "own words");
    Send(IDC_COMBO, CB_SETCURSEL, 1);
    EXPECT_EQ(dialog_.Shown().Text(IDC_COMBO), "Banana");
    Send(IDC_COMBO, CB_SETCURSEL, static_cast<WPARAM>(-1));
    EXPECT_EQ(dialog_.Shown().Text(IDC_COMBO), "");
    EXPECT_EQ(SendText(IDC_DROP_LIST, WM_SETTEXT, 0, "no edit"), CB_ERR);
}

TEST_F(Lists, ASortedListPutsRowsInOrderIgnoringCase) {
    Fill(IDC_SORTED, LB_ADDSTRING);
    std::string order;
    for (int row = 0; row < dialog_.Shown().Rows(IDC_SORTED); ++row)
        order += dialog_.Shown().Row(IDC_SORTED, row) + " ";
    EXPECT_EQ(order, "apple apricot Banana cherry ");
}

TEST_F(Lists, AnUpperCaseEditConvertsTypingAndProgramText) {
    dialog_.Shown().Type(IDC_CAPITALS, "c:/vcp");
    EXPECT_EQ(dialog_.Shown().Text(IDC_CAPITALS), "C:/VCP");
    OnUserInterface([&] { SetDlgItemTextA(dialog_.Shown().Handle(), IDC_CAPITALS, "code.bin"); });
    EXPECT_EQ(dialog_.Shown().Text(IDC_CAPITALS), "CODE.BIN");
}

}  // namespace
