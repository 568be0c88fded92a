#include "commands/board_menu.h"

#include "commands/data_channels.h"
#include "commands/led.h"
#include "commands/tdm_routing.h"
#include "commands/window_commands.h"
#include "res/resource.h"
#include "services/application.h"
#include "services/settings.h"

namespace {

// WM_CONTEXTMENU carries this for a point when a key asked for the menu.
constexpr LPARAM kAskedByKey = -1;

int shownMenu = IDR_MENU_NEWER;

void Show(HWND window, int menu) {
    if (menu == shownMenu)
        return;
    const HMENU previous = GetMenu(window);
    if (!SetMenu(window, LoadMenuA(AppInstance, MAKEINTRESOURCEA(menu))))
        return;
    DestroyMenu(previous);
    shownMenu = menu;
    MarkAlwaysOnTop(window);
    MarkLed(window);
    MarkTdmRouting(window);
    MarkPacketized(window);
    DrawMenuBar(window);
}

void Choose(HWND window, int menu) {
    Show(window, menu);
    WriteSetting(setting::kMenu, menu);
}

bool IsInClientArea(HWND window, POINT point) {
    RECT area{};
    GetClientRect(window, &area);
    return point.x >= 0 && point.y >= 0 && point.x < area.right && point.y < area.bottom;
}

}  // namespace

void ShowRememberedMenu(HWND window) {
    Show(window, ReadSetting(setting::kMenu) == IDR_MENU_OLDER ? IDR_MENU_OLDER : IDR_MENU_NEWER);
}

void ChooseOlderMenu(HWND window) {
    Choose(window, IDR_MENU_OLDER);
}

void ChooseNewerMenu(HWND window) {
    Choose(window, IDR_MENU_NEWER);
}

bool OfferBoardMenus(HWND window, LPARAM where) {
    POINT corner{0, 0};
    ClientToScreen(window, &corner);
    POINT point{static_cast<SHORT>(LOWORD(where)), static_cast<SHORT>(HIWORD(where))};
    if (where == kAskedByKey) {
        point = corner;
    } else if (!IsInClientArea(window, {point.x - corner.x, point.y - corner.y})) {
        return false;
    }
    const HMENU menu = LoadMenuA(AppInstance, MAKEINTRESOURCEA(IDR_MENU_CONTEXT));
    CheckMenuRadioItem(GetSubMenu(menu, 0), IDM_MENU_OLDER, IDM_MENU_NEWER,
                       shownMenu == IDR_MENU_OLDER ? IDM_MENU_OLDER : IDM_MENU_NEWER, MF_BYCOMMAND);
    TrackPopupMenu(GetSubMenu(menu, 0), TPM_LEFTALIGN | TPM_RIGHTBUTTON, point.x, point.y, 0,
                   window, nullptr);
    DestroyMenu(menu);
    return true;
}
