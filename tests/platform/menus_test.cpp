// Menus: what their templates make, their marks, and choosing from them.
#include <gtest/gtest.h>

#include <array>
#include <string>

#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/plain_window.h"

namespace {

constexpr UINT kNone = static_cast<UINT>(-1);

HMENU LoadBar() {
    return LoadMenuA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDR_BAR));
}

std::string TextOf(HMENU menu, UINT item, UINT flags) {
    std::array<char, 32> text{};
    GetMenuStringA(menu, item, text.data(), static_cast<int>(text.size()), flags);
    return text.data();
}

TEST(Menus, ATemplateMakesItemsWithTheirTextsAndStates) {
    const HMENU bar = LoadBar();
    ASSERT_NE(bar, nullptr);
    EXPECT_EQ(GetMenuItemCount(bar), 3);
    const HMENU file = GetSubMenu(bar, 0);
    EXPECT_EQ(GetMenuItemCount(file), 5);
    EXPECT_EQ(GetSubMenu(bar, 2), nullptr) << "a command";
    EXPECT_EQ(GetSubMenu(bar, 3), nullptr) << "behind the last";
    EXPECT_EQ(TextOf(bar, 0, MF_BYPOSITION), "&File");
    EXPECT_EQ(TextOf(bar, IDM_DEEP, MF_BYCOMMAND), "Deep") << "found in popups of popups";
    EXPECT_EQ(TextOf(bar, 4711, MF_BYCOMMAND), "");
    EXPECT_EQ(GetMenuState(bar, IDM_OPEN, MF_BYCOMMAND), UINT{MF_ENABLED});
    EXPECT_EQ(GetMenuState(bar, IDM_GREY, MF_BYCOMMAND), UINT{MF_GRAYED});
    EXPECT_EQ(GetMenuState(bar, IDM_MARKED, MF_BYCOMMAND), UINT{MF_CHECKED});
    EXPECT_EQ(GetMenuState(file, 2, MF_BYPOSITION) & MF_SEPARATOR, UINT{MF_SEPARATOR});
    EXPECT_EQ(GetMenuState(bar, 0, MF_BYPOSITION), UINT{MF_POPUP} | 5 << 8);
    EXPECT_EQ(GetMenuState(bar, 4711, MF_BYCOMMAND), kNone);
    EXPECT_TRUE(DestroyMenu(bar));
    EXPECT_FALSE(DestroyMenu(bar));
    EXPECT_EQ(GetMenuItemCount(file), -1) << "popups go with their menu";
    EXPECT_EQ(LoadMenuA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(999)), nullptr);
}

TEST(Menus, CheckingGivesTheMarkThatWas) {
    const HMENU bar = LoadBar();
    EXPECT_EQ(CheckMenuItem(bar, IDM_OPEN, MF_CHECKED), DWORD{MF_UNCHECKED});
    EXPECT_EQ(CheckMenuItem(bar, IDM_OPEN, MF_CHECKED), DWORD{MF_CHECKED});
    EXPECT_EQ(CheckMenuItem(bar, IDM_OPEN, MF_UNCHECKED), DWORD{MF_CHECKED});
    EXPECT_EQ(GetMenuState(bar, IDM_OPEN, MF_BYCOMMAND), UINT{MF_UNCHECKED});
    EXPECT_EQ(CheckMenuItem(bar, 4711, MF_CHECKED), kNone);
}

TEST(Menus, ItemsAreAppended) {
    const HMENU popup = CreatePopupMenu();
    EXPECT_EQ(GetMenuItemCount(popup), 0);
    EXPECT_TRUE(AppendMenuA(popup, MF_STRING | MF_CHECKED, 77, "&Own"));
    EXPECT_TRUE(AppendMenuA(popup, MF_SEPARATOR, 0, nullptr));
    EXPECT_EQ(GetMenuItemCount(popup), 2);
    EXPECT_EQ(TextOf(popup, 77, MF_BYCOMMAND), "&Own");
    EXPECT_EQ(GetMenuState(popup, 77, MF_BYCOMMAND), UINT{MF_CHECKED});
    EXPECT_TRUE(DestroyMenu(popup));
}

TEST(Menus, ABarTakesItsHeightFromTheClientArea) {
    kit::RunAsProgram([] {
        const HWND window = kit::MakePlainWindow();
        RECT before;
        GetClientRect(window, &before);
        EXPECT_EQ(GetMenu(window), nullptr);
        const HMENU bar = LoadBar();
        EXPECT_TRUE(SetMenu(window, bar));
        EXPECT_EQ(GetMenu(window), bar);
        RECT after;
        GetClientRect(window, &after);
        EXPECT_LT(after.bottom, before.bottom);
        EXPECT_EQ(after.right, before.right);
        EXPECT_TRUE(SetMenu(window, nullptr));
        GetClientRect(window, &after);
        EXPECT_EQ(after.bottom, before.bottom);
        EXPECT_EQ(GetMenuItemCount(bar), 3) << "a bar that is taken off lives on";
    });
}

// What the window of an open popup is told.
struct Choices {
    UINT command = 0;
    LPARAM from = -1;
    bool whileOpen = false;
    bool open = false;
    int opened = 0;
};
Choices& TheChoices() {
    static Choices choices;
    return choices;
}

LRESULT CALLBACK ChoosingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    Choices& choices = TheChoices();
    if (message == WM_INITMENUPOPUP)
        ++choices.opened;
    if (message == WM_COMMAND) {
        choices.command = static_cast<UINT>(wParam);
        choices.from = lParam;
        choices.whileOpen = choices.open;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

// Opens the first popup of the bar and has keys act on it.
void ChooseBy(std::initializer_list<WPARAM> keys) {
    kit::RunAsProgram([&] {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = ChoosingProcedure;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "Choosing";
        RegisterClassA(&windowClass);
        const HWND window = CreateWindowExA(0, "Choosing", "", WS_OVERLAPPEDWINDOW, 0, 0, 200, 100,
                                            nullptr, nullptr, windowClass.hInstance, nullptr);
        ShowWindow(window, SW_SHOW);
        for (const WPARAM key : keys)
            PostMessageA(window, WM_KEYDOWN, key, 0);
        TheChoices().open = true;
        TrackPopupMenu(GetSubMenu(LoadBar(), 0), TPM_LEFTALIGN | TPM_RIGHTBUTTON, 5, 5, 0, window,
                       nullptr);
        TheChoices().open = false;
        kit::Drain();
        EXPECT_GE(TheChoices().opened, 1);
    });
}

TEST(PopupMenus, AChoiceIsACommandThatComesWhenTheMenuIsGone) {
    ChooseBy({VK_DOWN, VK_RETURN});
    EXPECT_EQ(TheChoices().command, UINT{IDM_OPEN});
    EXPECT_EQ(TheChoices().from, 0);
    EXPECT_FALSE(TheChoices().whileOpen);
}

TEST(PopupMenus, ArrowsPassOverSeparators) {
    ChooseBy({VK_UP, VK_UP, VK_RETURN});
    EXPECT_EQ(TheChoices().command, UINT{IDM_MARKED});
}

TEST(PopupMenus, AMarkedLetterChooses) {
    ChooseBy({'K'});
    EXPECT_EQ(TheChoices().command, UINT{IDM_MARKED});
}

}  // namespace
