#include "platform/core/menu.h"

#include <algorithm>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/core/handle_table.h"
#include "platform/core/placement.h"
#include "platform/core/resource.h"
#include "platform/core/text.h"
#include "platform/core/window.h"

namespace vxd {
namespace {

struct MenuItem {
    UINT id = 0;
    std::string text;
    bool separator = false;
    bool grayed = false;
    bool checked = false;
    bool radioMark = false;
    HMENU popup = nullptr;
};

struct Menu {
    std::vector<MenuItem> items;
};

HandleTable<Menu, HandleKind::kMenu>& Menus() {
    static auto& menus = *new HandleTable<Menu, HandleKind::kMenu>;
    return menus;
}

Menu* MenuOf(HMENU menu) {
    return Menus().Find(HandleNumber(menu));
}

HMENU Add(Menu menu) {
    return ToHandle<HMENU>(Menus().Add(std::make_unique<Menu>(std::move(menu))));
}

// Finds an item by position in the menu, or by command in it and in its popups.
MenuItem* ItemOf(HMENU handle, UINT item, UINT flags) {
    Menu* menu = MenuOf(handle);
    if (menu == nullptr)
        return nullptr;
    if ((flags & MF_BYPOSITION) != 0)
        return item < menu->items.size() ? &menu->items[item] : nullptr;
    for (MenuItem& candidate : menu->items) {
        if (candidate.popup != nullptr) {
            if (MenuItem* inner = ItemOf(candidate.popup, item, flags); inner != nullptr)
                return inner;
        } else if (!candidate.separator && candidate.id == item) {
            return &candidate;
        }
    }
    return nullptr;
}

bool Contains(HMENU outer, HMENU inner) {
    if (outer == inner)
        return true;
    const Menu* menu = MenuOf(outer);
    return menu != nullptr &&
           std::any_of(menu->items.begin(), menu->items.end(), [inner](const MenuItem& item) {
               return item.popup != nullptr && Contains(item.popup, inner);
           });
}

std::set<HWND>& WindowsToRefresh() {
    static std::set<HWND> windows;
    return windows;
}

void Changed(HMENU menu) {
    for (const Window* window : TopLevelWindows()) {
        if (window->menu != nullptr && Contains(window->menu, menu))
            WindowsToRefresh().insert(window->handle);
    }
}

std::vector<MenuView> ViewOf(HMENU handle) {
    std::vector<MenuView> views;
    const Menu* menu = MenuOf(handle);
    if (menu == nullptr)
        return views;
    for (const MenuItem& item : menu->items) {
        MenuView view;
        view.text = item.text;
        view.command = item.id;
        view.separator = item.separator;
        view.popup = item.popup != nullptr;
        view.enabled = !item.grayed;
        view.checked = item.checked;
        view.radioMark = item.radioMark;
        if (view.popup)
            view.children = ViewOf(item.popup);
        views.push_back(std::move(view));
    }
    return views;
}

HMENU FromTemplate(const std::vector<MenuTemplateItem>& items) {
    Menu menu;
    for (const MenuTemplateItem& given : items) {
        MenuItem item;
        item.id = given.id;
        item.text = given.text;
        item.separator = given.separator;
        item.grayed = (given.flags & (MF_GRAYED | MF_DISABLED)) != 0;
        item.checked = (given.flags & MF_CHECKED) != 0;
        if (given.popup)
            item.popup = FromTemplate(given.children);
        menu.items.push_back(std::move(item));
    }
    return Add(std::move(menu));
}

// The popup menu that is open, if any.
struct OpenPopup {
    HWND window = nullptr;
    HMENU menu = nullptr;
    int current = -1;
    std::optional<UINT> chosen;  // 0: left without a choice
};

OpenPopup* theOpenPopup = nullptr;

bool CanChoose(const MenuItem& item) {
    return !item.separator && !item.grayed && item.popup == nullptr;
}

void MoveInPopup(OpenPopup& popup, int step) {
    const Menu* menu = MenuOf(popup.menu);
    const int count = menu != nullptr ? static_cast<int>(menu->items.size()) : 0;
    for (int tried = 0; tried < count; ++tried) {
        popup.current =
            popup.current < 0 && step < 0 ? count - 1 : (popup.current + step + count) % count;
        if (!menu->items[static_cast<std::size_t>(popup.current)].separator)
            return;
    }
}

// A letter of one entry chooses it; one that several share leads from one of them to the next.
void FollowLetter(OpenPopup& popup, const Menu& menu, WPARAM letter) {
    constexpr WPARAM kBehindAscii = 0x80;  // only plain letters are marked
    if (letter == 0 || letter >= kBehindAscii) {
        return;
    }
    std::vector<int> marked;
    for (int at = 0; at < static_cast<int>(menu.items.size()); ++at) {
        const MenuItem& item = menu.items[static_cast<std::size_t>(at)];
        if (!item.separator && MarkedKey(item.text) == Lower(static_cast<char>(letter))) {
            marked.push_back(at);
        }
    }
    if (marked.empty()) {
        return;
    }
    if (marked.size() == 1) {
        const MenuItem& item = menu.items[static_cast<std::size_t>(marked.front())];
        if (CanChoose(item)) {
            popup.chosen = item.id;
        }
        return;
    }
    const auto next = std::upper_bound(marked.begin(), marked.end(), popup.current);
    popup.current = next != marked.end() ? *next : marked.front();
}

// Keys that reach an open popup as messages; a screen's own menu takes a person's keys itself.
void KeyInPopup(OpenPopup& popup, const MSG& message) {
    const Menu* menu = MenuOf(popup.menu);
    if (menu == nullptr) {
        popup.chosen = 0;
        return;
    }
    if (message.message == WM_CHAR) {
        return FollowLetter(popup, *menu, message.wParam);
    }
    switch (message.wParam) {
        case VK_DOWN:
            MoveInPopup(popup, 1);
            break;
        case VK_UP:
            MoveInPopup(popup, -1);
            break;
        case VK_ESCAPE:
            popup.chosen = 0;
            break;
        case VK_RETURN:
            if (popup.current >= 0 &&
                CanChoose(menu->items[static_cast<std::size_t>(popup.current)]))
                popup.chosen = menu->items[static_cast<std::size_t>(popup.current)].id;
            break;
        default:
            break;
    }
}

// Runs until the popup is left; 0 when nothing was chosen.
UINT TrackPopup(OpenPopup& popup) {
    while (!popup.chosen) {
        MSG message;
        if (!GetMessageA(&message, nullptr, 0, 0)) {
            PostQuitMessage(static_cast<int>(message.wParam));
            return 0;
        }
        if (message.message == WM_KEYDOWN || message.message == WM_CHAR) {
            TranslateMessage(&message);
            KeyInPopup(popup, message);
        } else {
            DispatchMessageA(&message);
        }
    }
    return *popup.chosen;
}

}  // namespace

void RefreshMenuBars() {
    if (WindowsToRefresh().empty())
        return;
    for (const HWND handle : std::exchange(WindowsToRefresh(), {})) {
        if (Window* window = FindWindowOf(handle); window != nullptr) {
            window->widget->SetMenuBar(ViewOf(window->menu));
            MenuBarChanged(*window);
        }
    }
}

void PopupEnded(std::uint32_t command) {
    if (theOpenPopup != nullptr)
        theOpenPopup->chosen = command;
}

void EndPopupOf(HWND window) {
    if (theOpenPopup == nullptr || theOpenPopup->window != window)
        return;
    theOpenPopup->chosen = 0;
    // The screen's menu may not outlive its window.
    CurrentScreen().ClosePopup();
    // Lets the menu's loop see it even when nothing else happens.
    PostMessageA(nullptr, WM_NULL, 0, 0);
}

HMENU PopupAt(HWND window, int position) {
    return GetSubMenu(GetMenu(window), position);
}

}  // namespace vxd

using vxd::FindWindowOf;
using vxd::MenuOf;

HMENU WINAPI LoadMenuA(HINSTANCE /*instance*/, LPCSTR name) {
    const auto data = vxd::FindResource(vxd::kResourceMenu, vxd::NameOf(name));
    const auto menu = vxd::ParseMenu(data);
    return menu ? vxd::FromTemplate(menu->items) : nullptr;
}

HMENU WINAPI CreatePopupMenu() {
    return vxd::Add({});
}

BOOL WINAPI DestroyMenu(HMENU handle) {
    const auto menu = vxd::Menus().Remove(vxd::HandleNumber(handle));
    if (menu == nullptr)
        return FALSE;
    for (const vxd::MenuItem& item : menu->items) {
        if (item.popup != nullptr)
            DestroyMenu(item.popup);
    }
    return TRUE;
}

HMENU WINAPI GetMenu(HWND handle) {
    const vxd::Window* window = FindWindowOf(handle);
    return window != nullptr && !window->IsChild() ? window->menu : nullptr;
}

BOOL WINAPI SetMenu(HWND handle, HMENU menu) {
    vxd::Window* window = FindWindowOf(handle);
    if (window == nullptr || window->IsChild())
        return FALSE;
    window->menu = menu;
    vxd::WindowsToRefresh().erase(handle);
    window->widget->SetMenuBar(vxd::ViewOf(menu));
    vxd::MenuBarChanged(*window);
    return TRUE;
}

BOOL WINAPI DrawMenuBar(HWND handle) {
    const vxd::Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return FALSE;
    vxd::Changed(window->menu);
    return TRUE;
}

HMENU WINAPI GetSubMenu(HMENU menu, int position) {
    const vxd::MenuItem* item = vxd::ItemOf(menu, static_cast<UINT>(position), MF_BYPOSITION);
    return item != nullptr ? item->popup : nullptr;
}

int WINAPI GetMenuItemCount(HMENU handle) {
    const vxd::Menu* menu = MenuOf(handle);
    return menu != nullptr ? static_cast<int>(menu->items.size()) : -1;
}

UINT WINAPI GetMenuState(HMENU menu, UINT id, UINT flags) {
    const vxd::MenuItem* item = vxd::ItemOf(menu, id, flags);
    if (item == nullptr)
        return static_cast<UINT>(-1);
    const UINT state = (item->separator ? MF_SEPARATOR : 0u) | (item->grayed ? MF_GRAYED : 0u) |
                       (item->checked ? MF_CHECKED : 0u);
    if (item->popup == nullptr)
        return state;
    // Win32 packs the number of a popup's items above its flags.
    return state | MF_POPUP | static_cast<UINT>(GetMenuItemCount(item->popup)) << 8;
}

int WINAPI GetMenuStringA(HMENU menu, UINT id, LPSTR text, int capacity, UINT flags) {
    const vxd::MenuItem* item = vxd::ItemOf(menu, id, flags);
    if (item == nullptr)
        return 0;
    return text != nullptr ? vxd::CopyText(item->text, text, capacity)
                           : static_cast<int>(item->text.size());
}

BOOL WINAPI AppendMenuA(HMENU handle, UINT flags, UINT_PTR id, LPCSTR text) {
    vxd::Menu* menu = MenuOf(handle);
    if (menu == nullptr)
        return FALSE;
    vxd::MenuItem item;
    item.separator = (flags & MF_SEPARATOR) != 0;
    item.grayed = (flags & (MF_GRAYED | MF_DISABLED)) != 0;
    item.checked = (flags & MF_CHECKED) != 0;
    if ((flags & MF_POPUP) != 0) {
        item.popup = reinterpret_cast<HMENU>(id);
    } else {
        item.id = static_cast<UINT>(id);
    }
    if (!item.separator && text != nullptr)
        item.text = text;
    menu->items.push_back(std::move(item));
    vxd::Changed(handle);
    return TRUE;
}

DWORD WINAPI CheckMenuItem(HMENU menu, UINT id, UINT check) {
    vxd::MenuItem* item = vxd::ItemOf(menu, id, check);
    if (item == nullptr)
        return static_cast<DWORD>(-1);
    const bool wanted = (check & MF_CHECKED) != 0;
    const bool was = std::exchange(item->checked, wanted);
    if (was != wanted)
        vxd::Changed(menu);
    return was ? MF_CHECKED : MF_UNCHECKED;
}

BOOL WINAPI CheckMenuRadioItem(HMENU menu, UINT first, UINT last, UINT id, UINT flags) {
    bool found = false;
    for (UINT each = first; each <= last; ++each) {
        if (vxd::MenuItem* item = vxd::ItemOf(menu, each, flags); item != nullptr) {
            item->checked = each == id;
            item->radioMark = item->checked;
            found = found || item->checked;
        }
    }
    vxd::Changed(menu);
    return found;
}

BOOL WINAPI TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int /*reserved*/, HWND handle,
                           const RECT* /*ignored*/) {
    const vxd::Window* window = FindWindowOf(handle);
    if (window == nullptr || MenuOf(menu) == nullptr || vxd::theOpenPopup != nullptr)
        return FALSE;
    SendMessageA(handle, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(menu), 0);
    if (!vxd::IsLiveWindow(handle))
        return FALSE;
    vxd::OpenPopup popup{handle, menu, -1, std::nullopt};
    vxd::theOpenPopup = &popup;
    vxd::CurrentScreen().ShowPopup(vxd::HandleNumber(handle), vxd::ViewOf(menu), {x, y});
    const UINT chosen = vxd::TrackPopup(popup);
    vxd::theOpenPopup = nullptr;
    vxd::CurrentScreen().ClosePopup();
    if ((flags & TPM_RETURNCMD) != 0)
        return static_cast<BOOL>(chosen);
    if (chosen != 0)
        PostMessageA(handle, WM_COMMAND, chosen, 0);
    return TRUE;
}
