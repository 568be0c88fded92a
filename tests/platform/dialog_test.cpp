// How dialog boxes start and end.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/plain_window.h"
#include "tests/platform/recorder.h"

namespace {

using kit::Code;
using kit::OnUserInterface;
using kit::RecordedDialog;

TEST(DialogStart, FontInitialisationFocusAndShowingComeInThisOrder) {
    RecordedDialog dialog(IDD_KEYS, "Keys", {.life = true});
    EXPECT_EQ(dialog.TakeNotifications(),
              "font init:201 " + Code(IDC_LINE, EN_SETFOCUS) + " shown");
}

TEST(DialogStart, TheFirstTabStopTakesTheFocusWithItsTextSelected) {
    RecordedDialog dialog(IDD_KEYS, "Keys",
                          {.act = [](HWND window) { SetDlgItemTextA(window, IDC_LINE, "hello"); }});
    EXPECT_EQ(dialog.TakeNotifications(), "init:201 " + Code(IDC_LINE, EN_UPDATE) + " " +
                                              Code(IDC_LINE, EN_CHANGE) + " " +
                                              Code(IDC_LINE, EN_SETFOCUS));
    EXPECT_EQ(dialog.Shown().FocusedId(), IDC_LINE);
    const auto selection = OnUserInterface(
        [&] { return SendDlgItemMessageA(dialog.Shown().Handle(), IDC_LINE, EM_GETSEL, 0, 0); });
    EXPECT_EQ(LOWORD(selection), 0);
    EXPECT_EQ(HIWORD(selection), 5);
}

TEST(DialogStart, AListTellsThatItTakesTheFocusAfterInitialisation) {
    RecordedDialog dialog(IDD_LISTS, "Lists");
    EXPECT_EQ(dialog.TakeNotifications(), "init:301 " + Code(IDC_LIST, LBN_SETFOCUS));
}

TEST(DialogStart, AControlThatInitialisationDisablesIsPassedOver) {
    RecordedDialog dialog(
        IDD_KEYS, "Keys",
        {.act = [](HWND window) { EnableWindow(GetDlgItem(window, IDC_LINE), FALSE); }});
    EXPECT_EQ(dialog.Shown().FocusedId(), IDC_PLAIN_LINES);
}

TEST(DialogStart, FocusSetInInitialisationStaysWhenItAnswersFalse) {
    RecordedDialog dialog(
        IDD_KEYS, "Keys",
        {.answer = FALSE, .act = [](HWND window) { SetFocus(GetDlgItem(window, IDC_CHECK)); }});
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

TEST(DialogStart, AControlNumberedMinusOneIsFoundLikeAnyOther) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    EXPECT_EQ(dialog.Shown().Text(-1), "&Name:") << "the first of them";
    EXPECT_EQ(dialog.Shown().Control(4711), nullptr);
}

TEST(DialogEnd, TheFocusedControlLosesTheFocusAtOnceAndTheDialogGoesAfterwards) {
    RecordedDialog dialog(IDD_KEYS, "Keys", {.life = true});
    dialog.TakeNotifications();
    const std::string told = OnUserInterface([&] {
        EndDialog(dialog.Shown().Handle(), 3);
        return dialog.TakeNotifications();
    });
    EXPECT_EQ(told, Code(IDC_LINE, EN_KILLFOCUS));
    EXPECT_EQ(dialog.Result(), 3);
    EXPECT_EQ(dialog.TakeNotifications(), "destroyed");
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

TEST(DialogEnd, TheCloseBoxSendsCancelAndTheProgramDecides) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    dialog.TakeNotifications();
    dialog.Shown().CloseBox();
    EXPECT_EQ(dialog.TakeNotifications(), "2");
    dialog.EndOn(IDCANCEL, 5);
    PostMessageA(dialog.Shown().Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(dialog.Result(), 5);
}

TEST(Owners, AModalDialogDisablesItsOwnerAndTheOwnerIsEnabledWhenItEnds) {
    std::vector<bool> enabled;
    kit::RunAsProgram([&enabled] {
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
        DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_KEYS), nullptr, +outer,
                        reinterpret_cast<LPARAM>(&enabled));
    });
    EXPECT_EQ(enabled, (std::vector<bool>{false, true}));
}

// What an owner and its dialog are told, in order.
std::string& Story() {
    static std::string story;
    return story;
}

LRESULT CALLBACK OwnerProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_ENABLE)
        Story() += wParam != 0 ? "owner enabled, " : "owner disabled, ";
    return DefWindowProcA(window, message, wParam, lParam);
}

INT_PTR CALLBACK OwnedProcedure(HWND dialog, UINT message, WPARAM, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            Story() += "initialised, ";
            PostMessageA(dialog, WM_APP, 0, 0);
            return TRUE;
        case WM_APP:
            Story() += IsWindowVisible(dialog) ? "shown, " : "hidden, ";
            EndDialog(dialog, 1);
            Story() += IsWindowVisible(dialog) ? "shown, " : "hidden, ";
            return TRUE;
        case WM_DESTROY:
            Story() += "destroyed";
            return FALSE;
        default:
            return FALSE;
    }
}

TEST(Owners, AreEnabledBeforeTheDialogIsHiddenAndDestroyedAndBecomeActive) {
    kit::RunAsProgram([] {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = OwnerProcedure;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "Owner";
        RegisterClassA(&windowClass);
        const HWND owner = CreateWindowExA(0, "Owner", "Owner", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100,
                                           nullptr, nullptr, windowClass.hInstance, nullptr);
        ShowWindow(owner, SW_SHOW);
        DialogBoxParamA(windowClass.hInstance, MAKEINTRESOURCEA(IDD_BARE), owner, OwnedProcedure,
                        0);
        EXPECT_EQ(Story(),
                  "owner disabled, initialised, shown, owner enabled, hidden, destroyed");
        EXPECT_EQ(GetActiveWindow(), owner);
    });
}

}  // namespace
