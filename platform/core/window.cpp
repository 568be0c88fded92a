#include "platform/core/window.h"

#include <algorithm>
#include <cstring>
#include <map>

#include "platform/core/dialog.h"
#include "platform/core/icon.h"
#include "platform/core/menu.h"
#include "platform/core/paint.h"
#include "platform/core/queue.h"
#include "platform/core/text.h"

namespace vxd {
namespace {

// What there is once in the process.
struct Desk {
    HandleTable<Window, HandleKind::kWindow> windows;
    std::vector<Window*> topLevel;
    std::vector<std::unique_ptr<WindowClass>> classes;
    HWND focus = nullptr;
    HWND active = nullptr;
};

// Never destroyed: other threads may still post while the process ends.
Desk& TheDesk() {
    static Desk& desk = *new Desk;
    return desk;
}

constexpr ATOM kFirstAtom = 0xC000;
// Part of the work area that a window gets whose size is left to the system.
constexpr int kDefaultSizeNumerator = 3;
constexpr int kDefaultSizeDenominator = 4;

const WindowClass* FindClass(LPCSTR name) {
    for (const auto& windowClass : TheDesk().classes) {
        if (IS_INTRESOURCE(name) ? windowClass->atom == reinterpret_cast<ULONG_PTR>(name)
                                 : EqualIgnoringCase(windowClass->name, name))
            return windowClass.get();
    }
    return nullptr;
}

const WindowClass* AddClass(std::unique_ptr<WindowClass> windowClass) {
    auto& classes = TheDesk().classes;
    windowClass->atom = static_cast<ATOM>(kFirstAtom + classes.size());
    classes.push_back(std::move(windowClass));
    return classes.back().get();
}

bool HasSizableFrame(const Window& window) {
    return !window.IsChild() && (window.style & WS_THICKFRAME) != 0;
}

// Asks the program how large the window may become; tells the screen and gives the limit.
Size MaximumSize(Window& window) {
    const Rect area = CurrentScreen().WorkArea();
    MINMAXINFO info{};
    info.ptMaxSize = {area.width, area.height};
    info.ptMaxTrackSize = {area.width, area.height};
    Call(window, WM_GETMINMAXINFO, 0, reinterpret_cast<LPARAM>(&info));
    return {info.ptMaxTrackSize.x, info.ptMaxTrackSize.y};
}

Rect InitialRect(int x, int y, int width, int height, bool child) {
    Rect rect{x, y, width, height};
    if (child)
        return rect;
    const Rect area = CurrentScreen().WorkArea();
    if (x == CW_USEDEFAULT)
        rect.x = area.x, rect.y = area.y;
    if (width == CW_USEDEFAULT) {
        rect.width = area.width * kDefaultSizeNumerator / kDefaultSizeDenominator;
        rect.height = area.height * kDefaultSizeNumerator / kDefaultSizeDenominator;
    }
    return rect;
}

WidgetKind KindOf(const Window& window) {
    if (window.control != nullptr)
        return window.control->Kind();
    if (window.dialog != nullptr)
        return WidgetKind::kDialog;
    return window.IsChild() ? WidgetKind::kSurface : WidgetKind::kWindow;
}

void ShowOnScreen(Window& window) {
    WidgetSetup setup;
    setup.id = window.Widget();
    setup.kind = KindOf(window);
    setup.parent = window.parent != nullptr ? window.parent->Widget() : 0;
    setup.owner = HandleNumber(window.owner);
    setup.style = window.style;
    setup.rect = window.rect;
    setup.text = window.text;
    setup.enabled = window.IsEnabled();
    CurrentScreen().Create(setup);
    if (const Pixels* icon = IconPixels(window.icon); icon != nullptr && !window.IsChild())
        CurrentScreen().SetIcon(setup.id, *icon);
    if ((window.exStyle & WS_EX_TOPMOST) != 0)
        CurrentScreen().SetTopmost(setup.id, true);
    if (window.control != nullptr)
        window.control->Shown();
}

void SendPlacement(Window& window, bool moved, bool sized) {
    const HWND handle = window.handle;
    if (sized) {
        const Size client = ClientSize(window);
        Call(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(client.width, client.height));
    }
    if (Window* still = FindWindowOf(handle); still != nullptr && moved) {
        const Point origin =
            still->IsChild() ? Point{still->rect.x, still->rect.y} : ClientOrigin(*still);
        Call(*still, WM_MOVE, 0, MAKELPARAM(origin.x, origin.y));
    }
}

void MoveToFront(Window& window) {
    auto& order = TheDesk().topLevel;
    std::erase(order, &window);
    order.insert(order.begin(), &window);
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
    TheDesk().windows.Remove(window.Widget());
}

// Any callback may destroy any window, so windows are looked up again after each.
void TellDestruction(HWND handle) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return;
    window->destroying = true;
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

// The window that becomes active when another one goes: its owner, else the frontmost one.
Window* Successor(const Window& going) {
    if (Window* owner = FindWindowOf(going.owner); owner != nullptr && owner->IsVisible())
        return owner;
    for (Window* window : TheDesk().topLevel) {
        if (window != &going && window->IsVisible() && window->IsEnabled() && !window->destroying)
            return window;
    }
    return nullptr;
}

bool HasFocusInside(const Window& window) {
    const Window* focus = FindWindowOf(TheDesk().focus);
    return focus != nullptr && IsInside(*focus, window);
}

// Takes the focus from a window and all in it. Its heir may refuse it.
void LeaveFocus(HWND handle, HWND heir) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr || !HasFocusInside(*window))
        return;
    SetFocus(heir);
    if (window = FindWindowOf(handle); window != nullptr && HasFocusInside(*window))
        SetFocus(nullptr);
}

void SetVisible(Window& window, bool visible) {
    window.style =
        visible ? window.style | WS_VISIBLE : window.style & ~static_cast<DWORD>(WS_VISIBLE);
    CurrentScreen().SetVisible(window.Widget(), visible);
}

}  // namespace

Window* FindWindowOf(HWND handle) {
    return TheDesk().windows.Find(HandleNumber(handle));
}

bool IsLiveWindow(HWND handle) {
    return FindWindowOf(handle) != nullptr;
}

const std::vector<Window*>& TopLevelWindows() {
    return TheDesk().topLevel;
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

Point ClientOrigin(const Window& window) {
    Point origin{0, 0};
    for (const Window* at = &window; at != nullptr; at = at->parent) {
        origin.x += at->rect.x;
        origin.y += at->rect.y + at->menuHeight;
    }
    return origin;
}

void Place(Window& window, const Rect& wanted) {
    Rect rect = wanted;
    if (HasSizableFrame(window)) {
        const HWND handle = window.handle;
        const Size maximum = MaximumSize(window);
        if (!IsLiveWindow(handle))
            return;
        CurrentScreen().SetMaximumSize(window.Widget(), maximum);
        rect.width = std::min(rect.width, maximum.width);
        rect.height = std::min(rect.height, maximum.height);
    }
    if (rect == window.rect)
        return;
    const Rect before = window.rect;
    window.rect = rect;
    CurrentScreen().SetRect(window.Widget(), rect);
    PlacedByScreen(window, before);
}

void PlacedByScreen(Window& window, const Rect& before) {
    if (!window.IsChild() && window.menu != nullptr)
        window.menuHeight = CurrentScreen().MenuBarHeight(window.Widget(), window.rect.width);
    const bool moved = before.x != window.rect.x || before.y != window.rect.y;
    const bool sized = before.width != window.rect.width || before.height != window.rect.height;
    if (sized)
        ClientResized(window);
    if (window.placed)
        SendPlacement(window, moved, sized);
}

void MenuBarChanged(Window& window) {
    const int before = window.menuHeight;
    window.menuHeight = window.menu != nullptr
                            ? CurrentScreen().MenuBarHeight(window.Widget(), window.rect.width)
                            : 0;
    if (window.menuHeight == before)
        return;
    ClientResized(window);
    if (window.placed)
        SendPlacement(window, true, true);
}

void TakeFromScreen(Window& window) {
    if (window.IsVisible())
        SetVisible(window, false);
    if (TheDesk().active == window.handle)
        Activate(Successor(window));
}

HWND FocusedWindow() {
    return TheDesk().focus;
}

void Activate(Window* window) {
    Desk& desk = TheDesk();
    const HWND next = window != nullptr ? window->handle : nullptr;
    if (desk.active == next)
        return;
    const HWND previous = desk.active;
    desk.active = next;
    if (Window* old = FindWindowOf(previous); old != nullptr)
        Call(*old, WM_ACTIVATE, WA_INACTIVE, reinterpret_cast<LPARAM>(next));
    Window* still = FindWindowOf(next);
    if (still == nullptr || desk.active != next) {
        if (next == nullptr)
            SetFocus(nullptr);
        return;
    }
    MoveToFront(*still);
    CurrentScreen().Raise(still->Widget());
    Call(*still, WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(previous));
}

LRESULT Call(Window& window, UINT message, WPARAM wParam, LPARAM lParam) {
    return window.procedure(window.handle, message, wParam, lParam);
}

void Notify(Window& control, int code) {
    if (control.parent != nullptr)
        Call(*control.parent, WM_COMMAND, MAKEWPARAM(control.id, code),
             reinterpret_cast<LPARAM>(control.handle));
}

int CopyText(const std::string& text, LPSTR destination, int capacity) {
    if (destination == nullptr || capacity <= 0)
        return 0;
    const std::size_t length = WholeCharacters(text, static_cast<std::size_t>(capacity) - 1);
    std::memcpy(destination, text.data(), length);
    destination[length] = '\0';
    return static_cast<int>(length);
}

void RegisterControl(const char* name, std::unique_ptr<Control> (*make)(Window& window)) {
    auto windowClass = std::make_unique<WindowClass>();
    windowClass->name = name;
    windowClass->procedure = ControlProcedure;
    windowClass->makeControl = make;
    AddClass(std::move(windowClass));
}

LRESULT CALLBACK ControlProcedure(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr || window->control == nullptr)
        return DefWindowProcA(handle, message, wParam, lParam);
    return window->control->Handle(message, wParam, lParam);
}

namespace {

void RegisterDialogClass() {
    auto dialogClass = std::make_unique<WindowClass>();
    dialogClass->name = kDialogClass;
    dialogClass->procedure = DefDlgProcA;
    AddClass(std::move(dialogClass));
}

}  // namespace

void RegisterBuiltInClasses() {
    if (!TheDesk().classes.empty())
        return;
    RegisterDialogClass();
    RegisterControls();
}

}  // namespace vxd

using vxd::FindWindowOf;
using vxd::HandleNumber;
using vxd::TheDesk;
using vxd::ToHandle;
using vxd::Window;

ATOM WINAPI RegisterClassA(const WNDCLASSA* given) {
    vxd::RegisterBuiltInClasses();
    if (given == nullptr || given->lpszClassName == nullptr || given->lpfnWndProc == nullptr ||
        vxd::FindClass(given->lpszClassName) != nullptr)
        return 0;
    auto windowClass = std::make_unique<vxd::WindowClass>();
    windowClass->name = given->lpszClassName;
    windowClass->procedure = given->lpfnWndProc;
    windowClass->icon = given->hIcon;
    windowClass->background = given->hbrBackground;
    if (IS_INTRESOURCE(given->lpszMenuName))
        windowClass->menuNumber = LOWORD(reinterpret_cast<ULONG_PTR>(given->lpszMenuName));
    else
        windowClass->menuName = given->lpszMenuName;
    return vxd::AddClass(std::move(windowClass))->atom;
}

HWND WINAPI CreateWindowExA(DWORD exStyle, LPCSTR className, LPCSTR title, DWORD style, int x,
                            int y, int width, int height, HWND parentHandle, HMENU menu,
                            HINSTANCE instance, LPVOID parameter) {
    vxd::RegisterBuiltInClasses();
    const vxd::WindowClass* windowClass = vxd::FindClass(className);
    if (windowClass == nullptr || !vxd::ClaimUserInterfaceThread())
        return nullptr;
    const bool child = (style & WS_CHILD) != 0;
    Window* parent = FindWindowOf(parentHandle);
    if (child && parent == nullptr)
        return nullptr;

    auto made = std::make_unique<Window>();
    Window& window = *made;
    window.windowClass = windowClass;
    window.procedure = windowClass->procedure;
    window.instance = instance;
    window.style = style & ~static_cast<DWORD>(WS_VISIBLE);
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
    vxd::Size maximum;
    if (vxd::HasSizableFrame(window)) {
        maximum = vxd::MaximumSize(window);
        if (FindWindowOf(handle) == nullptr)
            return nullptr;
        window.rect.width = std::min(window.rect.width, maximum.width);
        window.rect.height = std::min(window.rect.height, maximum.height);
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
    if (vxd::HasSizableFrame(window))
        vxd::CurrentScreen().SetMaximumSize(window.Widget(), maximum);
    if (!child) {
        if (menu == nullptr && (windowClass->menuNumber != 0 || !windowClass->menuName.empty()))
            menu = LoadMenuA(instance, windowClass->menuNumber != 0
                                           ? MAKEINTRESOURCEA(windowClass->menuNumber)
                                           : windowClass->menuName.c_str());
        if (menu != nullptr)
            SetMenu(handle, menu);
    }
    const LRESULT created = vxd::Call(window, WM_CREATE, 0, reinterpret_cast<LPARAM>(&creation));
    if (FindWindowOf(handle) == nullptr)
        return nullptr;
    if (created == -1) {
        vxd::CurrentScreen().Destroy(number);
        return abandon();
    }
    window.placed = true;
    // Overlapped windows hear of their first place when they are shown.
    if ((style & (WS_CHILD | WS_POPUP)) != 0)
        vxd::SendPlacement(window, true, true);
    else
        window.placementDue = true;
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
    if (window->IsChild())
        ShowWindow(handle, SW_HIDE);
    else
        vxd::TakeFromScreen(*window);
    vxd::LeaveFocus(handle, nullptr);
    vxd::TellDestruction(handle);
    if (window = FindWindowOf(handle); window != nullptr) {
        vxd::CurrentScreen().Destroy(window->Widget());
        vxd::Bury(*window);
    }
    return TRUE;
}

BOOL WINAPI IsWindow(HWND handle) {
    return vxd::IsLiveWindow(handle);
}

BOOL WINAPI ShowWindow(HWND handle, int showCommand) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return FALSE;
    const bool was = window->IsVisible();
    const bool show = showCommand != SW_HIDE;
    if (was != show) {
        vxd::Call(*window, WM_SHOWWINDOW, static_cast<WPARAM>(show), 0);
        window = FindWindowOf(handle);
        if (window == nullptr)
            return was;
        if (show && window->control == nullptr)
            InvalidateRect(handle, nullptr, TRUE);
        vxd::SetVisible(*window, show);
    }
    if (window->IsChild()) {
        if (!show)
            vxd::LeaveFocus(handle, window->parent->handle);
        return was;
    }
    if (!show) {
        vxd::TakeFromScreen(*window);
        return was;
    }
    vxd::Activate(window);
    if (window = FindWindowOf(handle);
        window != nullptr && std::exchange(window->placementDue, false))
        vxd::SendPlacement(*window, true, true);
    return was;
}

BOOL WINAPI IsWindowVisible(HWND handle) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr && vxd::IsShown(*window);
}

BOOL WINAPI EnableWindow(HWND handle, BOOL enable) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return FALSE;
    const bool wasDisabled = !window->IsEnabled();
    if (wasDisabled == (enable == FALSE))
        return wasDisabled;
    if (enable) {
        window->style &= ~static_cast<DWORD>(WS_DISABLED);
    } else {
        if (const Window* focus = FindWindowOf(TheDesk().focus);
            focus != nullptr && vxd::IsInside(*focus, *window) && !window->IsChild())
            window->lastFocus = TheDesk().focus;
        window->style |= WS_DISABLED;
    }
    vxd::CurrentScreen().SetEnabled(window->Widget(), enable != FALSE);
    if (!enable)
        vxd::LeaveFocus(handle, nullptr);
    if (Window* still = FindWindowOf(handle); still != nullptr)
        vxd::Call(*still, WM_ENABLE, static_cast<WPARAM>(enable != FALSE), 0);
    return wasDisabled;
}

BOOL WINAPI IsWindowEnabled(HWND handle) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr && window->IsEnabled();
}

BOOL WINAPI SetWindowPos(HWND handle, HWND after, int x, int y, int width, int height, UINT flags) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return FALSE;
    if ((flags & SWP_NOZORDER) == 0 && !window->IsChild()) {
        const bool topmost = after == HWND_TOPMOST;
        if (topmost || after == HWND_NOTOPMOST) {
            window->exStyle = topmost ? window->exStyle | WS_EX_TOPMOST
                                      : window->exStyle & ~static_cast<DWORD>(WS_EX_TOPMOST);
            vxd::CurrentScreen().SetTopmost(window->Widget(), topmost);
        } else if (after == HWND_TOP) {
            vxd::MoveToFront(*window);
            vxd::CurrentScreen().Raise(window->Widget());
        }
    }
    vxd::Rect rect = window->rect;
    if ((flags & SWP_NOMOVE) == 0)
        rect.x = x, rect.y = y;
    if ((flags & SWP_NOSIZE) == 0)
        rect.width = width, rect.height = height;
    vxd::Place(*window, rect);
    return TRUE;
}

BOOL WINAPI GetWindowRect(HWND handle, LPRECT rect) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr || rect == nullptr)
        return FALSE;
    const vxd::Point base =
        window->parent != nullptr ? vxd::ClientOrigin(*window->parent) : vxd::Point{};
    rect->left = base.x + window->rect.x;
    rect->top = base.y + window->rect.y;
    rect->right = rect->left + window->rect.width;
    rect->bottom = rect->top + window->rect.height;
    return TRUE;
}

BOOL WINAPI GetClientRect(HWND handle, LPRECT rect) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr || rect == nullptr)
        return FALSE;
    const vxd::Size size = vxd::ClientSize(*window);
    *rect = {0, 0, size.width, size.height};
    return TRUE;
}

BOOL WINAPI ClientToScreen(HWND handle, LPPOINT point) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr || point == nullptr)
        return FALSE;
    const vxd::Point origin = vxd::ClientOrigin(*window);
    point->x += origin.x;
    point->y += origin.y;
    return TRUE;
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
    constexpr int kSlot = static_cast<int>(sizeof(LONG_PTR));
    if (window.dialog != nullptr && index >= 0 && index % kSlot == 0 &&
        index / kSlot < static_cast<int>(window.dialogData.size()))
        return &window.dialogData[static_cast<std::size_t>(index / kSlot)];
    return nullptr;
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
    LONG_PTR* place = window != nullptr ? ValueAt(*window, index) : nullptr;
    return place != nullptr ? std::exchange(*place, value) : 0;
}

HWND WINAPI FindWindowA(LPCSTR className, LPCSTR title) {
    const vxd::WindowClass* windowClass =
        className != nullptr ? vxd::FindClass(className) : nullptr;
    if (className != nullptr && windowClass == nullptr)
        return nullptr;
    for (const Window* window : vxd::TopLevelWindows()) {
        if ((className == nullptr || window->windowClass == windowClass) &&
            (title == nullptr || vxd::EqualIgnoringCase(window->text, title)))
            return window->handle;
    }
    return nullptr;
}

BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC visit, LPARAM parameter) {
    // All windows belong to the user-interface thread.
    if (!vxd::OnUserInterfaceThread() || thread != GetCurrentThreadId())
        return FALSE;
    std::vector<HWND> handles;
    for (const Window* window : vxd::TopLevelWindows())
        handles.push_back(window->handle);
    return std::all_of(handles.begin(), handles.end(), [&](HWND handle) {
        return !vxd::IsLiveWindow(handle) || visit(handle, parameter) != FALSE;
    });
}

HWND WINAPI SetFocus(HWND handle) {
    vxd::Desk& desk = TheDesk();
    const HWND previous = desk.focus;
    if (previous == handle)
        return previous;
    Window* window = FindWindowOf(handle);
    if (handle != nullptr) {
        if (window == nullptr)
            return nullptr;
        for (const Window* at = window; at != nullptr; at = at->parent) {
            if (!at->IsEnabled())
                return nullptr;
        }
        vxd::Activate(&vxd::TopLevelOf(*window));
        if (desk.focus == handle)
            return previous;
    }
    const HWND losing = std::exchange(desk.focus, handle);
    if (Window* old = FindWindowOf(losing); old != nullptr)
        vxd::Call(*old, WM_KILLFOCUS, reinterpret_cast<WPARAM>(handle), 0);
    window = FindWindowOf(handle);
    if (window == nullptr || desk.focus != handle)
        return previous;
    vxd::TopLevelOf(*window).lastFocus = handle;
    vxd::CurrentScreen().SetFocus(window->Widget());
    vxd::Call(*window, WM_SETFOCUS, reinterpret_cast<WPARAM>(losing), 0);
    return previous;
}

HWND WINAPI GetFocus() {
    return TheDesk().focus;
}

HWND WINAPI GetActiveWindow() {
    return TheDesk().active;
}

LRESULT WINAPI DefWindowProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = FindWindowOf(handle);
    if (window == nullptr)
        return 0;
    switch (message) {
        case WM_NCCREATE:
            return TRUE;
        case WM_SETTEXT:
            window->text = lParam != 0 ? reinterpret_cast<LPCSTR>(lParam) : "";
            vxd::CurrentScreen().SetText(window->Widget(), window->text);
            return TRUE;
        case WM_GETTEXT:
            return vxd::CopyText(window->text, reinterpret_cast<LPSTR>(lParam),
                                 static_cast<int>(wParam));
        case WM_GETTEXTLENGTH:
            return static_cast<LRESULT>(window->text.size());
        case WM_CLOSE:
            DestroyWindow(handle);
            return 0;
        case WM_SYSCOMMAND:
            if ((wParam & 0xFFF0) == SC_CLOSE)
                SendMessageA(handle, WM_CLOSE, 0, 0);
            return 0;
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE)
                SetFocus(handle);
            return 0;
        case WM_ERASEBKGND:
            return vxd::EraseBackground(*window, reinterpret_cast<HDC>(wParam));
        case WM_PAINT: {
            PAINTSTRUCT paint;
            BeginPaint(handle, &paint);
            EndPaint(handle, &paint);
            return 0;
        }
        case WM_RBUTTONUP: {
            POINT where{static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
            ClientToScreen(handle, &where);
            SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle),
                         MAKELPARAM(where.x, where.y));
            return 0;
        }
        case WM_CONTEXTMENU:
            if (window->parent != nullptr)
                SendMessageA(window->parent->handle, message, wParam, lParam);
            return 0;
        case WM_KEYUP:
            if (wParam == VK_APPS)
                SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), -1);
            return 0;
        case WM_SYSKEYDOWN:
            if (wParam == VK_F10 && vxd::IsShiftDown())
                SendMessageA(handle, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), -1);
            if (wParam == VK_F4 && vxd::IsAltDown())
                PostMessageA(handle, WM_SYSCOMMAND, SC_CLOSE, 0);
            return 0;
        default:
            return 0;
    }
}
