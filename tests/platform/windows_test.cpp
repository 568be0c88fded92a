// Windows: what they are told from their making to their end, focus, size, order.
#include "tests/platform/plain_window.h"

namespace {

// What windows of the class "Life" are told, each with the first letter of its title.
std::string theLife;

std::string TakeLife() {
    return std::exchange(theLife, {});
}

LRESULT CALLBACK LivingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    static const std::map<UINT, std::string> kNames = {
        {WM_NCCREATE, "nccreate"},  {WM_CREATE, "create"},       {WM_SHOWWINDOW, "show"},
        {WM_SIZE, "size"},          {WM_MOVE, "move"},           {WM_SETFOCUS, "setfocus"},
        {WM_ENABLE, "enable"},      {WM_KILLFOCUS, "killfocus"}, {WM_DESTROY, "destroy"},
        {WM_NCDESTROY, "ncdestroy"}};
    if (const auto name = kNames.find(message); name != kNames.end()) {
        std::array<char, 2> title{};
        if (message == WM_NCCREATE) {
            title[0] = *reinterpret_cast<const CREATESTRUCTA*>(lParam)->lpszName;
        } else {
            GetWindowTextA(window, title.data(), static_cast<int>(title.size()));
        }
        theLife += (theLife.empty() ? "" : " ") + std::string(title.data()) + ":" + name->second;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

HWND MakeLiving(const char* title, DWORD style, HWND parent = nullptr) {
    kit::RegisterWindowClass("Life", LivingProcedure);
    return CreateWindowExA(0, "Life", title, style, 20, 20, 160, 120, parent, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

// A window with two children, all of them shown.
struct Family {
    HWND parent = MakeLiving("P", WS_OVERLAPPEDWINDOW);
    HWND first = MakeLiving("1", WS_CHILD | WS_VISIBLE, parent);
    HWND second = MakeLiving("2", WS_CHILD | WS_VISIBLE, parent);

    Family() { ShowWindow(parent, SW_SHOW); }
};

PROGRAM_TEST(Windows, AreToldOfTheirMakingShowingAndEndInOrder) {
    const HWND parent = MakeLiving("P", WS_OVERLAPPEDWINDOW);
    EXPECT_EQ(TakeLife(), "P:nccreate P:create");
    ShowWindow(parent, SW_SHOW);
    EXPECT_EQ(TakeLife(), "P:show P:setfocus P:size P:move");
    MakeLiving("C", WS_CHILD | WS_VISIBLE, parent);
    EXPECT_EQ(TakeLife(), "C:nccreate C:create C:size C:move C:show");
    SetWindowPos(parent, nullptr, 0, 0, 180, 140, SWP_NOMOVE | SWP_NOZORDER);
    EXPECT_EQ(TakeLife(), "P:size");
    SetWindowPos(parent, nullptr, 40, 40, 0, 0, SWP_NOSIZE | SWP_NOZORDER);
    EXPECT_EQ(TakeLife(), "P:move");
    SetWindowPos(parent, nullptr, 40, 40, 180, 140, SWP_NOZORDER);
    EXPECT_EQ(TakeLife(), "") << "nothing changes";
    DestroyWindow(parent);
    EXPECT_EQ(TakeLife(), "P:killfocus P:destroy C:destroy C:ncdestroy P:ncdestroy");
}

PROGRAM_TEST(Windows, TheFocusLeavesOneBeforeTheOtherTakesIt) {
    const auto [parent, first, second] = Family();
    SetFocus(first);
    TakeLife();
    EXPECT_EQ(SetFocus(second), first);
    EXPECT_EQ(TakeLife(), "1:killfocus 2:setfocus");
    EXPECT_EQ(GetFocus(), second);
    SetFocus(second);
    EXPECT_EQ(TakeLife(), "") << "it has it";
    EnableWindow(first, FALSE);
    EnableWindow(first, FALSE);
    EXPECT_EQ(TakeLife(), "1:enable") << "once";
    SetFocus(first);
    EXPECT_EQ(TakeLife(), "") << "a disabled window takes none";
    EXPECT_EQ(SetFocus(nullptr), second);
    EXPECT_EQ(TakeLife(), "2:killfocus");
    EXPECT_EQ(GetFocus(), nullptr);
}

PROGRAM_TEST(Windows, HidingOrDestroyingTheFocusedOneGivesTheFocusToItsParent) {
    const auto [parent, first, second] = Family();
    SetFocus(first);
    ShowWindow(first, SW_HIDE);
    EXPECT_EQ(GetFocus(), parent);
    SetFocus(second);
    DestroyWindow(second);
    EXPECT_EQ(GetFocus(), parent);
}

PROGRAM_TEST(Windows, OwnedOnesGoWithTheirOwner) {
    const HWND owner = MakeLiving("O", WS_OVERLAPPEDWINDOW);
    const HWND other = MakeLiving("W", WS_OVERLAPPEDWINDOW);
    const HWND owned = MakeLiving("1", WS_POPUP, owner);
    const HWND ownedByOwned = MakeLiving("2", WS_POPUP, owned);
    EXPECT_EQ(GetWindow(owned, GW_OWNER), owner);
    DestroyWindow(owner);
    EXPECT_FALSE(IsWindow(owned) || IsWindow(ownedByOwned));
    EXPECT_TRUE(IsWindow(other));
}

// The size that a window gets when it is asked for another one.
std::pair<LONG, LONG> Resized(HWND window, int width, int height) {
    SetWindowPos(window, nullptr, 0, 0, width, height, SWP_NOMOVE | SWP_NOZORDER);
    RECT rect;
    GetWindowRect(window, &rect);
    return {rect.right - rect.left, rect.bottom - rect.top};
}

PROGRAM_TEST(Windows, OverlappedOnesHaveACaptionAndAreNoSmallerThanItsFrame) {
    const HWND overlapped = MakeLiving("W", WS_OVERLAPPED);
    EXPECT_EQ(GetWindowLongPtrA(overlapped, GWL_STYLE) & WS_CAPTION, WS_CAPTION);
    EXPECT_EQ(Resized(overlapped, 2, 2), (std::pair<LONG, LONG>(112, 27)));
    EXPECT_EQ(Resized(MakeLiving("W", WS_POPUP), 2, 2), (std::pair<LONG, LONG>(2, 2)));
}

PROGRAM_TEST(Windows, KeepTheStyleAndTheDataThatTheProgramGivesThem) {
    const HWND window = MakeLiving("P", WS_OVERLAPPEDWINDOW);
    const HWND child = MakeLiving("C", WS_CHILD | WS_VISIBLE, window);
    EXPECT_EQ(GetWindowLongPtrA(window, GWLP_USERDATA), 0);
    EXPECT_EQ(SetWindowLongPtrA(window, GWLP_USERDATA, 1234), 0);
    EXPECT_EQ(SetWindowLongPtrA(window, GWLP_USERDATA, -1), 1234);
    EXPECT_EQ(GetWindowLongPtrA(window, GWLP_USERDATA), -1);
    const LONG_PTR style = GetWindowLongPtrA(child, GWL_STYLE);
    EXPECT_EQ(SetWindowLongPtrA(child, GWL_STYLE, style | WS_TABSTOP | WS_DISABLED), style);
    EXPECT_EQ(GetWindowLongPtrA(child, GWL_STYLE), style | WS_TABSTOP | WS_DISABLED);
    EXPECT_FALSE(IsWindowEnabled(child));
}

LRESULT CALLBACK LimitingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_GETMINMAXINFO)
        return DefWindowProcA(window, message, wParam, lParam);
    reinterpret_cast<MINMAXINFO*>(lParam)->ptMaxTrackSize = {300, 120};
    return 0;
}

PROGRAM_TEST(Windows, TheProgramsLimitBoundsTheSize) {
    ASSERT_NE(kit::RegisterWindowClass("Limited", LimitingProcedure), 0);
    EXPECT_EQ(kit::RegisterWindowClass("Limited", LimitingProcedure), 0)
        << "a class is registered once";
    const HWND window = CreateWindowExA(0, "Limited", "", WS_OVERLAPPEDWINDOW, 0, 0, CW_USEDEFAULT,
                                        0, nullptr, nullptr, GetModuleHandleA(nullptr), nullptr);
    EXPECT_EQ(Resized(window, 2000, 2000), (std::pair<LONG, LONG>(300, 120)));
    EXPECT_EQ(Resized(window, 150, 80).first, 150) << "smaller is free";
}

}  // namespace
