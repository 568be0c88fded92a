// Which window is active, and how often windows are told.
#include "tests/platform/plain_window.h"

namespace {

// What windows of the class "Active" are told of activation and focus, each by its title's letter.
std::string theTale;

LRESULT CALLBACK ActiveProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    static const std::map<UINT, std::string> kNames = {
        {WM_ACTIVATE, "active"}, {WM_SETFOCUS, "setfocus"}, {WM_KILLFOCUS, "killfocus"}};
    if (const auto name = kNames.find(message); name != kNames.end()) {
        char title[2] = "";
        GetWindowTextA(window, title, sizeof title);
        const bool leaves = message == WM_ACTIVATE && LOWORD(wParam) == WA_INACTIVE;
        theTale += title + (leaves ? ":inactive" : ":" + name->second) + " ";
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

std::string TakeTale() {
    kit::Drain();
    return std::exchange(theTale, {});
}

HWND Make(const char* title, HWND owner = nullptr) {
    kit::RegisterWindowClass("Active", ActiveProcedure);
    return CreateWindowExA(0, "Active", title, WS_POPUP | WS_CAPTION | WS_VISIBLE, 40, 40, 200, 120,
                           owner, nullptr, GetModuleHandleA(nullptr), nullptr);
}

PROGRAM_TEST(Activation, IsToldOnceToEachOfTwoWindows) {
    const HWND first = Make("1");
    EXPECT_EQ(TakeTale(), "1:active 1:setfocus ");
    const HWND second = Make("2");
    EXPECT_EQ(TakeTale(), "1:inactive 2:active 1:killfocus 2:setfocus ");
    SetFocus(first);
    EXPECT_EQ(TakeTale(), "2:inactive 1:active 2:killfocus 1:setfocus ");
    SetFocus(first);
    EXPECT_EQ(TakeTale(), "") << "it is";
    DestroyWindow(first);
    EXPECT_EQ(TakeTale(), "1:inactive 2:active 1:killfocus 2:setfocus ");
    EXPECT_EQ(GetActiveWindow(), second);
}

PROGRAM_TEST(Activation, GoesFromABoxThatEndsToTheDialogBesideItWhileTheirOwnerIsDisabled) {
    const HWND owner = Make("O");
    const HWND dialog = Make("D", owner);
    const HWND box = Make("B", owner);
    EnableWindow(owner, FALSE);
    TakeTale();
    DestroyWindow(box);
    EXPECT_EQ(GetActiveWindow(), dialog);
    EXPECT_EQ(GetFocus(), dialog);
    EXPECT_EQ(TakeTale(), "B:inactive D:active B:killfocus D:setfocus ");
    EnableWindow(owner, TRUE);
    DestroyWindow(dialog);
    EXPECT_EQ(GetActiveWindow(), owner);
}

}  // namespace
