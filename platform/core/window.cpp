#include "platform/core/window.h"

#include <algorithm>
#include <cstring>

#include "platform/core/text.h"

namespace vxd {

// Never destroyed: other threads may still post while the process ends.
Desk& TheDesk() {
    static Desk& desk = *new Desk;
    return desk;
}

Window* FindWindowOf(HWND handle) {
    return TheDesk().windows.Find(HandleNumber(handle));
}

bool IsLiveWindow(HWND handle) {
    return FindWindowOf(handle) != nullptr;
}

const std::vector<Window*>& TopLevelWindows() {
    return TheDesk().topLevel;
}

void MoveToFront(Window& window) {
    auto& order = TheDesk().topLevel;
    std::erase(order, &window);
    order.insert(order.begin(), &window);
}

HWND FocusedWindow() {
    return TheDesk().focus;
}

Window& TopLevelOf(Window& window) {
    Window* top = &window;
    while (top->parent != nullptr)
        top = top->parent;
    return *top;
}

bool IsInside(const Window& window, const Window& ancestor) {
    for (const Window* at = &window; at != nullptr; at = at->parent) {
        if (at == &ancestor)
            return true;
    }
    return false;
}

bool IsShown(const Window& window) {
    for (const Window* at = &window; at != nullptr; at = at->parent) {
        if (!at->IsVisible())
            return false;
    }
    return true;
}

Size ClientSize(const Window& window) {
    return {window.rect.width, std::max(0, window.rect.height - window.menuHeight)};
}

Rect ClientRect(const Window& window) {
    const Size size = ClientSize(window);
    return {0, 0, size.width, size.height};
}

Point ClientOrigin(const Window& window) {
    Point origin{0, 0};
    for (const Window* at = &window; at != nullptr; at = at->parent) {
        origin.x += at->rect.x;
        origin.y += at->rect.y + at->menuHeight;
    }
    return origin;
}

LRESULT Call(Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    return window.procedure(window.handle, message, wParam, lParam);
}

void Notify(Window& control, int code) {
    if (control.parent != nullptr) {
        Call(*control.parent, WM_COMMAND, MAKEWPARAM(control.id, code),
             reinterpret_cast<LPARAM>(control.handle));
    }
}

int CopyText(const std::string& text, LPSTR destination, int capacity) {
    if (destination == nullptr || capacity <= 0)
        return 0;
    const std::size_t length = WholeCharacters(text, static_cast<std::size_t>(capacity) - 1);
    std::memcpy(destination, text.data(), length);
    destination[length] = '\0';
    return static_cast<int>(length);
}

}  // namespace vxd

using vxd::FindWindowOf;
using vxd::Window;

BOOL WINAPI IsWindow(HWND handle) {
    return vxd::IsLiveWindow(handle);
}

BOOL WINAPI IsWindowVisible(HWND handle) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr && vxd::IsShown(*window);
}

BOOL WINAPI IsWindowEnabled(HWND handle) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr && window->IsEnabled();
}

BOOL WINAPI SetWindowTextA(HWND handle, LPCSTR text) {
    return SendMessageA(handle, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text)) != 0;
}

int WINAPI GetWindowTextA(HWND handle, LPSTR text, int capacity) {
    if (text == nullptr || capacity <= 0)
        return 0;
    text[0] = '\0';
    return static_cast<int>(SendMessageA(handle, WM_GETTEXT, static_cast<WPARAM>(capacity),
                                         reinterpret_cast<LPARAM>(text)));
}

int WINAPI GetWindowTextLengthA(HWND handle) {
    return static_cast<int>(SendMessageA(handle, WM_GETTEXTLENGTH, 0, 0));
}

int WINAPI GetClassNameA(HWND handle, LPSTR name, int capacity) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr ? vxd::CopyText(window->windowClass->name, name, capacity) : 0;
}

HWND WINAPI GetParent(HWND handle) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return nullptr;
    return window->parent != nullptr ? window->parent->handle : window->owner;
}

HWND WINAPI GetWindow(HWND handle, UINT relation) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return nullptr;
    switch (relation) {
        case GW_OWNER:
            return window->owner;
        case GW_CHILD:
            return window->children.empty() ? nullptr : window->children.front()->handle;
        case GW_HWNDNEXT: {
            const auto& siblings =
                window->parent != nullptr ? window->parent->children : vxd::TopLevelWindows();
            const auto at = std::find(siblings.begin(), siblings.end(), window);
            return at + 1 != siblings.end() ? (*(at + 1))->handle : nullptr;
        }
        default:
            return nullptr;
    }
}

namespace {

// Where a window keeps the value of an index; null for an index it has not.
LONG_PTR* ValueAt(Window& window, int index) {
    if (index == GWLP_USERDATA)
        return &window.userData;
    constexpr int kSlot = static_cast<int>(sizeof(LONG_PTR));
    if (window.dialog != nullptr && index >= 0 && index % kSlot == 0 &&
        index / kSlot < static_cast<int>(window.dialogData.size()))
        return &window.dialogData[static_cast<std::size_t>(index / kSlot)];
    return nullptr;
}

// Gives the style that was. What a window is stays; the screen follows what it shows of the rest.
LONG_PTR SetStyle(Window& window, DWORD wanted) {
    constexpr DWORD kKind = WS_CHILD | WS_POPUP;
    const DWORD before = window.style;
    window.style = (before & kKind) | (wanted & ~kKind);
    if (((before ^ window.style) & WS_VISIBLE) != 0)
        window.widget->SetVisible(window.IsVisible());
    if (((before ^ window.style) & WS_DISABLED) != 0)
        window.widget->SetEnabled(window.IsEnabled());
    return static_cast<LONG_PTR>(before);
}

}  // namespace

LONG_PTR WINAPI GetWindowLongPtrA(HWND handle, int index) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return 0;
    switch (index) {
        case GWL_STYLE:
            return static_cast<LONG_PTR>(window->style);
        case GWL_EXSTYLE:
            return static_cast<LONG_PTR>(window->exStyle);
        case GWLP_ID:
            return window->id;
        default: {
            const LONG_PTR* value = ValueAt(*window, index);
            return value != nullptr ? *value : 0;
        }
    }
}

LONG_PTR WINAPI SetWindowLongPtrA(HWND handle, int index, LONG_PTR value) {
    Window* window = FindWindowOf(handle);
    if (window != nullptr && index == GWL_STYLE)
        return SetStyle(*window, static_cast<DWORD>(value));
    LONG_PTR* place = window != nullptr ? ValueAt(*window, index) : nullptr;
    return place != nullptr ? std::exchange(*place, value) : 0;
}
