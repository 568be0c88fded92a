// How dialog boxes start, take keys and end.
#include <gtest/gtest.h>

#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/recorder.h"

namespace {

using kit::OnUserInterface;
using kit::RecordedDialog;

std::string Code(int id, int code) {
    return std::to_string(id) + ":" + std::to_string(code);
}
std::string Pressed(int id) {
    return Code(id, BN_CLICKED);
}

void Focus(const RecordedDialog& dialog, int id) {
    OnUserInterface([&] { SetFocus(GetDlgItem(dialog.Shown().Handle(), id)); });
}

TEST(DialogStart, FirstTabStopTakesTheFocusAfterInitialisationWithItsTextSelected) {
    RecordedDialog dialog(IDD_KEYS, "Keys",
                          {TRUE, [](HWND window) { SetDlgItemTextA(window, IDC_LINE, "hello"); }});
    EXPECT_EQ(dialog.TakeNotifications(), "init " + Code(IDC_LINE, EN_UPDATE) + " " +
                                              Code(IDC_LINE, EN_CHANGE) + " " +
                                              Code(IDC_LINE, EN_SETFOCUS));
    EXPECT_EQ(dialog.Shown().FocusedId(), IDC_LINE);
    const auto selection = OnUserInterface(
        [&] { return SendDlgItemMessageA(dialog.Shown().Handle(), IDC_LINE, EM_GETSEL, 0, 0); });
    EXPECT_EQ(LOWORD(selection), 0);
    EXPECT_EQ(HIWORD(selection), 5);
}

TEST(DialogStart, FocusSetInInitialisationStaysWhenItAnswersFalse) {
    RecordedDialog dialog(IDD_KEYS, "Keys",
                          {FALSE, [](HWND window) { SetFocus(GetDlgItem(window, IDC_CHECK)); }});
    EXPECT_EQ(dialog.Shown().FocusedId(), IDC_CHECK);
}

TEST(DialogStart, EndedInInitialisationItIsNeverShown) {
    bool shown = false;
    const auto end =
        kit::StartProgram([&shown] {
            const auto procedure = [](HWND window, UINT message, WPARAM wParam,
                                      LPARAM lParam) -> INT_PTR {
                if (message == WM_INITDIALOG)
                    EndDialog(window, 42);
                if (message == WM_SHOWWINDOW && wParam != 0)
                    *reinterpret_cast<bool*>(GetWindowLongPtrA(window, DWLP_USER)) = true;
                if (message == WM_INITDIALOG)
                    SetWindowLongPtrA(window, DWLP_USER, lParam);
                return TRUE;
            };
            return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr),
                                                    MAKEINTRESOURCEA(IDD_BARE), nullptr, +procedure,
                                                    reinterpret_cast<LPARAM>(&shown)));
        }).get();
    EXPECT_EQ(end, 42);
    EXPECT_FALSE(shown);
}

TEST(DialogStart, AMissingTemplateGivesMinusOne) {
    const auto procedure = [](HWND, UINT, WPARAM, LPARAM) -> INT_PTR { return FALSE; };
    EXPECT_EQ(kit::StartProgram([&] {
                  return static_cast<int>(DialogBoxParamA(
                      GetModuleHandleA(nullptr), MAKEINTRESOURCEA(999), nullptr, +procedure, 0));
              }).get(),
              -1);
}

TEST(DialogEnd, WmQuitEndsTheLoopAndIsPostedAgain) {
    const auto procedure = [](HWND, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG)
            PostQuitMessage(7);
        return message == WM_INITDIALOG;
    };
    EXPECT_EQ(kit::StartProgram([&] {
                  DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_BARE), nullptr,
                                  +procedure, 0);
                  MSG message;
                  return GetMessageA(&message, nullptr, 0, 0) == 0
                             ? static_cast<int>(message.wParam)
                             : -1;
              }).get(),
              7);
}

TEST(DialogKeys, EscapeAndTheCloseBoxSendCancelEvenWithoutACancelButton) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    dialog.TakeNotifications();
    dialog.Shown().Key(VK_ESCAPE);
    EXPECT_EQ(dialog.TakeNotifications(), Pressed(IDCANCEL));
    dialog.Shown().CloseBox();
    EXPECT_EQ(dialog.TakeNotifications(), Pressed(IDCANCEL));
    dialog.EndOn(IDCANCEL, 5);
    PostMessageA(dialog.Shown().Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(dialog.Result(), 5);
}

TEST(DialogKeys, EnterPressesTheFocusedButtonElseTheDefaultOne) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    struct Case {
        int focus;
        std::string pressed;
    };
    for (const Case& each :
         {Case{IDC_LINE, Pressed(IDOK)}, Case{IDC_APPLY, Pressed(IDC_APPLY)},
          Case{IDC_CHECK, Pressed(IDOK)}, Case{IDC_PLAIN_LINES, Pressed(IDOK)}}) {
        Focus(dialog, each.focus);
        dialog.TakeNotifications();
        dialog.Shown().Key(VK_RETURN);
        EXPECT_EQ(dialog.TakeNotifications(), each.pressed) << "focus on " << each.focus;
    }
    OnUserInterface([&] { EnableWindow(dialog.Shown().Control(IDOK), FALSE); });
    Focus(dialog, IDC_LINE);
    dialog.TakeNotifications();
    dialog.Shown().Key(VK_RETURN);
    EXPECT_EQ(dialog.TakeNotifications(), "") << "a disabled default button";
}

TEST(DialogKeys, EnterMakesALineOnlyWhereTheEditAsksForIt) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    for (const int id : {IDC_PLAIN_LINES, IDC_RETURN_LINES}) {
        dialog.Shown().Type(id, "ab");
        dialog.Shown().Key(VK_RETURN);
    }
    EXPECT_EQ(dialog.Shown().Text(IDC_PLAIN_LINES), "ab");
    EXPECT_EQ(dialog.Shown().Text(IDC_RETURN_LINES), "ab\r\n");
}

TEST(DialogKeys, TabGoesThroughTheStopsInTemplateOrderAndPassesOverDisabledOnes) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    OnUserInterface(
        [&] { CheckRadioButton(dialog.Shown().Handle(), IDC_RADIO_A, IDC_RADIO_C, IDC_RADIO_B); });
    for (const int id : {IDC_PLAIN_LINES, IDC_RETURN_LINES, IDC_RADIO_B, IDC_CHECK, IDC_NAME, IDOK,
                         IDC_APPLY, IDC_LINE}) {
        dialog.Shown().Key(VK_TAB);
        EXPECT_EQ(dialog.Shown().FocusedId(), id);
    }
}

TEST(DialogKeys, ArrowsMoveTheChoiceInsideAGroupAndAround) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    dialog.Shown().Press(IDC_RADIO_A);
    for (const int id : {IDC_RADIO_B, IDC_RADIO_C, IDC_RADIO_A}) {
        dialog.Shown().Key(VK_DOWN);
        EXPECT_EQ(dialog.Shown().FocusedId(), id);
        for (const int each : {IDC_RADIO_A, IDC_RADIO_B, IDC_RADIO_C})
            EXPECT_EQ(dialog.Shown().IsChecked(each), each == id) << "button " << each;
    }
    dialog.Shown().Key(VK_UP);
    EXPECT_TRUE(dialog.Shown().IsChecked(IDC_RADIO_C));
}

TEST(DialogKeys, MarkedLettersPressButtonsAndLeadFromLabelsToTheirFields) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    dialog.TakeNotifications();
    dialog.Shown().AltKey('n');
    EXPECT_EQ(dialog.Shown().FocusedId(), IDC_NAME);
    dialog.TakeNotifications();
    dialog.Shown().AltKey('p');
    EXPECT_NE(dialog.TakeNotifications().find(Pressed(IDC_APPLY)), std::string::npos);
    dialog.Shown().AltKey('g');
    EXPECT_EQ(dialog.TakeNotifications(), "") << "a disabled button";
    dialog.Shown().AltKey('c');
    EXPECT_TRUE(dialog.Shown().IsChecked(IDC_CHECK));
    dialog.Shown().AltKey('b');
    EXPECT_TRUE(dialog.Shown().IsChecked(IDC_RADIO_B));
}

TEST(Buttons, SetCheckLeavesTheGroupAloneAndAClickClearsIt) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    const auto& shown = dialog.Shown();
    OnUserInterface([&] {
        CheckDlgButton(shown.Handle(), IDC_RADIO_A, BST_CHECKED);
        CheckDlgButton(shown.Handle(), IDC_RADIO_B, BST_CHECKED);
    });
    EXPECT_TRUE(shown.IsChecked(IDC_RADIO_A) && shown.IsChecked(IDC_RADIO_B));
    shown.Press(IDC_RADIO_C);
    EXPECT_FALSE(shown.IsChecked(IDC_RADIO_A) || shown.IsChecked(IDC_RADIO_B));
    EXPECT_TRUE(shown.IsChecked(IDC_RADIO_C));
    shown.Press(IDC_CHECK);
    shown.Press(IDC_CHECK);
    EXPECT_FALSE(shown.IsChecked(IDC_CHECK));
}

TEST(Edits, ProgramTextIgnoresTheLimitAndTypingObeysIt) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    OnUserInterface([&] {
        SendDlgItemMessageA(dialog.Shown().Handle(), IDC_LINE, EM_LIMITTEXT, 3, 0);
        SetDlgItemTextA(dialog.Shown().Handle(), IDC_LINE, "abcdef");
    });
    EXPECT_EQ(dialog.Shown().Text(IDC_LINE), "abcdef");
    dialog.TakeNotifications();
    dialog.Shown().Type(IDC_LINE, "wxyz");
    EXPECT_EQ(dialog.Shown().Text(IDC_LINE), "wxy");
    EXPECT_NE(dialog.TakeNotifications().find(Code(IDC_LINE, EN_MAXTEXT)), std::string::npos);
}

TEST(Edits, OnlyASingleLineTellsOfTextThatTheProgramSets) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    dialog.TakeNotifications();
    OnUserInterface([&] { SetDlgItemTextA(dialog.Shown().Handle(), IDC_PLAIN_LINES, "x"); });
    EXPECT_EQ(dialog.TakeNotifications(), "");
    OnUserInterface([&] { SetDlgItemTextA(dialog.Shown().Handle(), IDC_NAME, "x"); });
    EXPECT_EQ(dialog.TakeNotifications(),
              Code(IDC_NAME, EN_UPDATE) + " " + Code(IDC_NAME, EN_CHANGE));
}

TEST(Owners, AModalDialogDisablesItsOwnerAndTheOwnerIsEnabledWhenItEnds) {
    std::vector<bool> enabled;
    kit::StartProgram([&enabled] {
        const auto outer = [](HWND window, UINT message, WPARAM, LPARAM lParam) -> INT_PTR {
            const auto inner = [](HWND box, UINT innerMessage, WPARAM, LPARAM list) -> INT_PTR {
                if (innerMessage != WM_INITDIALOG)
                    return FALSE;
                auto& states = *reinterpret_cast<std::vector<bool>*>(list);
                states.push_back(IsWindowEnabled(GetParent(box)) != 0);
                EndDialog(box, 1);
                return TRUE;
            };
            if (message != WM_INITDIALOG)
                return FALSE;
            // A child given as owner stands for its dialog.
            DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_BARE),
                            GetDlgItem(window, IDC_LINE), +inner, lParam);
            reinterpret_cast<std::vector<bool>*>(lParam)->push_back(IsWindowEnabled(window) != 0);
            EndDialog(window, 0);
            return TRUE;
        };
        return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr),
                                                MAKEINTRESOURCEA(IDD_KEYS), nullptr, +outer,
                                                reinterpret_cast<LPARAM>(&enabled)));
    }).get();
    EXPECT_EQ(enabled, (std::vector<bool>{false, true}));
}

}  // namespace
