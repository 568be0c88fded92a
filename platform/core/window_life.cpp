// From CreateWindowEx to the end.
#include <algorithm>

#include "platform/core/activation.h"
#include "platform/core/device_context.h"
#include "platform/core/dialog.h"
#include "platform/core/icon.h"
#include "platform/core/menu.h"
#include "platform/core/placement.h"
#include "platform/core/queue.h"
#include "platform/core/window_class.h"

namespace vxd {
namespace {

WidgetKind KindOf(const Window& window) {
    if (window.control != nullptr)
        return window.control->Kind();
    if (window.dialog != nullptr)
        return WidgetKind::kDialog;
    return window.IsChild() ? WidgetKind::kSurface : WidgetKind::kWindow;
}

void ShowOnScreen(Window& window) {
    WidgetSetup setup;
    setup.id = window.Number();
    setup.kind = KindOf(window);
    setup.parent = window.parent != nullptr ? window.parent->Number() : 0;
    setup.owner = HandleNumber(window.owner);
    setup.style = window.style;
    setup.rect = window.rect;
    setup.text = window.text;
    setup.enabled = window.IsEnabled();
    window.widget = &CurrentScreen().Create(setup);
    if (const Pixels* icon = IconPixels(window.icon); icon != nullptr && !window.IsChild())
        window.widget->SetIcon(*icon);
    if ((window.exStyle & WS_EX_TOPMOST) != 0)
        window.widget->SetTopmost(true);
    if (window.control != nullptr)
        window.control->Shown();
}

// Takes a window off the screen. With it go those inside it and those it owns, which may be on
// their way out themselves.
void LoseWidgets(Window& window) {
    window.widget = &NoWidget();
    for (Window* child : window.children)
        LoseWidgets(*child);
    for (Window* each : TopLevelWindows()) {
        if (each->owner == window.handle)
            LoseWidgets(*each);
    }
}

void DestroyOnScreen(Window& window) {
    LoseWidgets(window);
    CurrentScreen().Destroy(window.Number());
}

// Takes a window and all in it out of the world, children first.
void Bury(Window& window) {
    const std::vector<Window*> children = window.children;
    for (Window* child : children)
        Bury(*child);
    Call(window, WM_NCDESTROY, 0, 0);
    ForgetMessagesOf(window.handle);
    if (window.parent != nullptr)
        std::erase(window.parent->children, &window);
    std::erase(TheDesk().topLevel, &window);
    if (!window.IsChild() && window.menu != nullptr)
        DestroyMenu(window.menu);
    EndOwnContext(window);
    TheDesk().windows.Remove(window.Number());
}

// Any callback may destroy any window, so windows are looked up again after each.
void TellDestruction(HWND handle) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return;
    window->destroying = true;
    EndPopupOf(handle);
    Call(*window, WM_DESTROY, 0, 0);
    window = FindWindowOf(handle);
    if (window == nullptr)
        return;
    std::vector<HWND> children;
    for (const Window* child : window->children)
        children.push_back(child->handle);
    for (const HWND child : children)
        TellDestruction(child);
}

// Whether the window is being destroyed, by itself or with a parent.
bool IsGoing(const Window& window) {
    const Window* at = &window;
    while (at != nullptr && !at->destroying)
        at = at->parent;
    return at != nullptr;
}

void DestroyOwned(HWND owner) {
    for (;;) {
        const auto& order = TheDesk().topLevel;
        const auto owned = std::find_if(order.begin(), order.end(), [owner](const Window* window) {
            return window->owner == owner && !window->destroying;
        });
        if (owned == order.end())
            return;
        DestroyWindow((*owned)->handle);
    }
}

}  // namespace
}  // namespace vxd

using vxd::FindWindowOf;
using vxd::TheDesk;
using vxd::ToHandle;
using vxd::Window;

HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x,
                            int y, int width, int height, HWND parentHandle, HMENU menu,
                            HINSTANCE instance, LPVOID parameter) {
    vxd::RegisterBuiltInClasses();
    const vxd::WindowClass* windowClass = vxd::FindClass(className);
    if (windowClass == nullptr || !vxd::ClaimUserInterfaceThread())
        return nullptr;
    const bool child = (style & WS_CHILD) != 0;
    Window* parent = FindWindowOf(parentHandle);
    if (child && (parent == nullptr || vxd::IsGoing(*parent)))
        return nullptr;

    auto made = std::make_unique<Window>();
    Window& window = *made;
    window.windowClass = windowClass;
    window.procedure = windowClass->procedure;
    window.instance = instance;
    window.style = style & ~static_cast<DWORD>(WS_VISIBLE);
    if ((style & (WS_CHILD | WS_POPUP)) == 0)
        window.style |= WS_CAPTION;
    window.exStyle = exStyle;
    window.text = title != nullptr && !IS_INTRESOURCE(title) ? title : "";
    window.icon = windowClass->icon;
    if (windowClass->name == vxd::kDialogClass)
        window.dialog = std::make_unique<vxd::DialogState>();
    const std::uint32_t number = TheDesk().windows.Add(std::move(made));
    if (number == 0)
        return nullptr;
    window.handle = ToHandle<HWND>(number);
    const HWND handle = window.handle;
    if (child) {
        window.id = static_cast<int>(reinterpret_cast<INT_PTR>(menu));
        window.parent = parent;
        parent->children.push_back(&window);
    } else {
        window.owner = parent != nullptr ? vxd::TopLevelOf(*parent).handle : nullptr;
        TheDesk().topLevel.insert(TheDesk().topLevel.begin(), &window);
    }
    if (windowClass->makeControl != nullptr)
        window.control = windowClass->makeControl(window);
    if ((windowClass->style & CS_OWNDC) != 0)
        vxd::MakeOwnContext(window);

    CREATESTRUCTA creation{};
    creation.lpCreateParams = parameter;
    creation.hInstance = instance;
    creation.hMenu = menu;
    creation.hwndParent = parentHandle;
    creation.x = x;
    creation.y = y;
    creation.cx = width;
    creation.cy = height;
    creation.style = static_cast<LONG>(style);
    creation.lpszName = title;
    creation.lpszClass = className;
    creation.dwExStyle = exStyle;
    window.rect = vxd::InitialRect(x, y, width, height, child);
    vxd::SizeLimits limits;
    if (vxd::HasSizeLimits(window)) {
        limits = vxd::LimitsOf(window);
        if (FindWindowOf(handle) == nullptr)
            return nullptr;
        limits.Bound(window.rect);
    }
    const auto abandon = [handle] {
        if (Window* abandoned = FindWindowOf(handle); abandoned != nullptr)
            vxd::Bury(*abandoned);
        return nullptr;
    };
    if (vxd::Call(window, WM_NCCREATE, 0, reinterpret_cast<LPARAM>(&creation)) == 0 ||
        FindWindowOf(handle) == nullptr)
        return abandon();
    vxd::ShowOnScreen(window);
    if (vxd::HasSizeLimits(window))
        window.widget->SetSizeLimits(limits.least, limits.most);
    if (!child) {
        if (menu == nullptr && (windowClass->menuNumber != 0 || !windowClass->menuName.empty())) {
            menu = LoadMenuA(instance, windowClass->menuNumber != 0
                                           ? MAKEINTRESOURCEA(windowClass->menuNumber)
                                           : windowClass->menuName.c_str());
        }
        if (menu != nullptr)
            SetMenu(handle, menu);
    }
    const LRESULT created = vxd::Call(window, WM_CREATE, 0, reinterpret_cast<LPARAM>(&creation));
    if (FindWindowOf(handle) == nullptr)
        return nullptr;
    if (created == -1) {
        vxd::DestroyOnScreen(window);
        return abandon();
    }
    window.placed = true;
    // Overlapped windows hear of their first place when they are shown.
    if ((style & (WS_CHILD | WS_POPUP)) != 0) {
        vxd::SendPlacement(window, true, true);
    } else {
        window.placementDue = true;
    }
    if (FindWindowOf(handle) != nullptr && (style & WS_VISIBLE) != 0)
        ShowWindow(handle, SW_SHOW);
    return FindWindowOf(handle) != nullptr ? handle : nullptr;
}

BOOL WINAPI DestroyWindow(HWND handle) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr || window->destroying || !vxd::OnUserInterfaceThread())
        return FALSE;
    window->destroying = true;
    if (!window->IsChild())
        vxd::DestroyOwned(handle);
    // Only children are told that they are hidden.
    if (window->IsChild()) {
        ShowWindow(handle, SW_HIDE);
    } else {
        vxd::TakeFromScreen(*window);
    }
    vxd::LeaveFocus(handle, nullptr);
    vxd::TellDestruction(handle);
    if (window = FindWindowOf(handle); window != nullptr) {
        vxd::DestroyOnScreen(*window);
        vxd::Bury(*window);
    }
    return TRUE;
}
