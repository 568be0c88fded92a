// Menus: what their templates make, their marks, and the room a bar takes.
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
    EXPECT_EQ(TextOf(bar, 0, MF_BYPOSITION), "&File");
    EXPECT_EQ(TextOf(bar, IDM_DEEP, MF_BYCOMMAND), "Deep") << "found in popups of popups";
    EXPECT_EQ(GetMenuState(bar, IDM_OPEN, MF_BYCOMMAND), UINT{MF_ENABLED});
    EXPECT_EQ(GetMenuState(bar, IDM_GREY, MF_BYCOMMAND), UINT{MF_GRAYED});
    EXPECT_EQ(GetMenuState(bar, IDM_MARKED, MF_BYCOMMAND), UINT{MF_CHECKED});
    EXPECT_EQ(GetMenuState(file, 2, MF_BYPOSITION) & MF_SEPARATOR, UINT{MF_SEPARATOR});
    EXPECT_EQ(GetMenuState(bar, 0, MF_BYPOSITION), UINT{MF_POPUP} | 5 << 8);
    EXPECT_EQ(GetMenuState(bar, 4711, MF_BYCOMMAND), kNone);
}

TEST(Menus, CheckingGivesTheMarkThatWas) {
    const HMENU bar = LoadBar();
    EXPECT_EQ(CheckMenuItem(bar, IDM_OPEN, MF_CHECKED), DWORD{MF_UNCHECKED});
    EXPECT_EQ(CheckMenuItem(bar, IDM_OPEN, MF_CHECKED), DWORD{MF_CHECKED});
    EXPECT_EQ(CheckMenuItem(bar, IDM_OPEN, MF_UNCHECKED), DWORD{MF_CHECKED});
    EXPECT_EQ(GetMenuState(bar, IDM_OPEN, MF_BYCOMMAND), UINT{MF_UNCHECKED});
}

PROGRAM_TEST(Menus, ABarTakesItsHeightFromTheClientArea) {
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
}

}  // namespace
