// How dialog boxes start and end.
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
    EXPECT_EQ(dialog->FocusedId(), IDC_LINE);
    EXPECT_EQ(dialog->Send(IDC_LINE, EM_GETSEL), MAKELONG(0, 5));
}

TEST(DialogStart, AListTellsThatItTakesTheFocusAfterInitialisation) {
    RecordedDialog dialog(IDD_LISTS, "Lists");
    EXPECT_EQ(dialog.TakeNotifications(), "init:301 " + Code(IDC_LIST, LBN_SETFOCUS));
}

TEST(DialogStart, AControlThatInitialisationDisablesIsPassedOver) {
    RecordedDialog dialog(IDD_KEYS, "Keys", {.act = [](HWND window) {
                              EnableWindow(GetDlgItem(window, IDC_LINE), FALSE);
                          }});
    EXPECT_EQ(dialog->FocusedId(), IDC_PLAIN_LINES);
}

TEST(DialogStart, FocusSetInInitialisationStaysWhenItAnswersFalseAndIsToldOnce) {
    RecordedDialog dialog(IDD_KEYS, "Keys", {.answer = FALSE, .act = [](HWND window) {
                                                 SetFocus(GetDlgItem(window, IDC_NAME));
                                             }});
    EXPECT_EQ(dialog.TakeNotifications(), "init:201 " + Code(IDC_NAME, EN_SETFOCUS));
    EXPECT_EQ(dialog->FocusedId(), IDC_NAME);
}

TEST(DialogStart, ARadioButtonThatInitialisationChecksTakesTheFocus) {
    RecordedDialog dialog(IDD_CHOICE, "Choice", {.act = [](HWND window) {
                              CheckRadioButton(window, IDC_KIND_A, IDC_KIND_B, IDC_KIND_B);
                          }});
    EXPECT_EQ(dialog.TakeNotifications(), "init:" + std::to_string(IDC_KIND_A));
    EXPECT_EQ(dialog->FocusedId(), IDC_KIND_B);
}

int RunDialog(int templateId, DLGPROC procedure, LPARAM parameter = 0) {
    return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(templateId),
                                            nullptr, procedure, parameter));
}

// Ends at once; sets the bool that its parameter points to when it is shown all the same.
INT_PTR CALLBACK EndingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        SetWindowLongPtrA(window, DWLP_USER, lParam);
        EndDialog(window, 42);
    }
    if (message == WM_SHOWWINDOW && wParam != 0)
        *reinterpret_cast<bool*>(GetWindowLongPtrA(window, DWLP_USER)) = true;
    return TRUE;
}

TEST(DialogStart, EndedInInitialisationItIsNeverShown) {
    bool shown = false;
    kit::RunAsProgram([&shown] {
        EXPECT_EQ(RunDialog(IDD_BARE, EndingProcedure, reinterpret_cast<LPARAM>(&shown)), 42);
    });
    EXPECT_FALSE(shown);
}

TEST(DialogEnd, TheFocusedControlLosesTheFocusAtOnceAndTheDialogGoesAfterwards) {
    RecordedDialog dialog(IDD_KEYS, "Keys", {.life = true});
    dialog.TakeNotifications();
    const std::string told = OnUserInterface([&] {
        EndDialog(dialog->Handle(), 3);
        return dialog.TakeNotifications();
    });
    EXPECT_EQ(told, Code(IDC_LINE, EN_KILLFOCUS));
    EXPECT_EQ(dialog.Result(), 3);
    EXPECT_EQ(dialog.TakeNotifications(), "destroyed");
}

INT_PTR CALLBACK QuittingProcedure(HWND, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG)
        PostQuitMessage(7);
    return message == WM_INITDIALOG;
}

PROGRAM_TEST(DialogEnd, WmQuitEndsTheLoopAndIsPostedAgain) {
    RunDialog(IDD_BARE, QuittingProcedure);
    MSG message;
    EXPECT_FALSE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.wParam, 7u);
}

TEST(DialogEnd, TheCloseBoxSendsCancelAndTheProgramDecides) {
    RecordedDialog dialog(IDD_KEYS, "Keys");
    dialog.TakeNotifications();
    dialog->CloseBox();
    EXPECT_EQ(dialog.TakeNotifications(), "2");
    dialog.EndOn(IDCANCEL, 5);
    PostMessageA(dialog->Handle(), WM_CLOSE, 0, 0);
    EXPECT_EQ(dialog.Result(), 5);
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

INT_PTR CALLBACK OwnedProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM) {
    switch (message) {
        case WM_INITDIALOG:
            Story() += "initialised, ";
            PostMessageA(dialog, WM_APP, 0, 0);
            return TRUE;
        case WM_APP:
            Story() += IsWindowVisible(dialog) ? "shown, " : "not yet shown, ";
            return TRUE;
        case WM_SHOWWINDOW:
            if (wParam != 0)
                PostMessageA(dialog, WM_APP + 1, 0, 0);
            return FALSE;
        case WM_APP + 1:
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

// What waits when a dialog starts comes before it is shown.
PROGRAM_TEST(Owners, AreEnabledBeforeTheDialogIsHiddenAndDestroyedAndBecomeActive) {
    kit::RegisterWindowClass("Owner", OwnerProcedure);
    const HWND owner = CreateWindowExA(0, "Owner", "Owner", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100,
                                       nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    ShowWindow(owner, SW_SHOW);
    DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_BARE), owner, OwnedProcedure,
                    0);
    EXPECT_EQ(Story(),
              "owner disabled, initialised, not yet shown, shown, owner enabled, hidden, "
              "destroyed");
    EXPECT_EQ(GetActiveWindow(), owner);
}

}  // namespace
