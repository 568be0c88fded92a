#include "platform/core/activation.h"

#include <algorithm>

#include "platform/core/placement.h"

namespace vxd {
namespace {

bool CanBeActive(const Window& window) {
    return window.IsVisible() && window.IsEnabled() && !window.destroying;
}

// The window that becomes active when another one goes: its owner, else the frontmost one. An owner
// may be disabled for another dialog's sake.
Window* Successor(const Window& going) {
    if (Window* owner = FindWindowOf(going.owner); owner != nullptr && CanBeActive(*owner))
        return owner;
    for (Window* window : TheDesk().topLevel) {
        if (window != &going && CanBeActive(*window))
            return window;
    }
    return nullptr;
}

bool ShutsOut(const Window& dialog, const Window& window) {
    return dialog.dialog != nullptr &&
           std::ranges::count(dialog.dialog->shutOut, window.handle) != 0;
}

bool IsModal(const Window& window) {
    return window.dialog != nullptr && (window.owner != nullptr || !window.dialog->shutOut.empty());
}

// The frontmost window that takes input and lies, by its owners or by what it shuts out, over the
// given one: a modal dialog, or any other where there is none.
Window* FrontOf(const Window& window) {
    const auto isOver = [&window](const Window* at) {
        while (at != nullptr && at != &window && !ShutsOut(*at, window))
            at = FindWindowOf(at->owner);
        return at != nullptr;
    };
    const auto& order = TheDesk().topLevel;
    Window* front = nullptr;
    for (Window* each : order) {
        if (!CanBeActive(*each) || !isOver(each)) {
            continue;
        }
        if (IsModal(*each)) {
            return each;
        }
        front = front != nullptr ? front : each;
    }
    return front;
}

enum class Origin { kProgram, kDesktop };

void MakeActive(Window* window, Origin origin) {
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
        // Unless the window that was left has seen to another one.
        if (next == nullptr && desk.active == nullptr) {
            SetFocus(nullptr);
        }
        return;
    }
    MoveToFront(*still);
    if (origin == Origin::kProgram)
        CurrentScreen().Raise(still->Number());
    Call(*still, WM_ACTIVATE, WA_ACTIVE, reinterpret_cast<LPARAM>(previous));
}

bool HasFocusInside(const Window& window) {
    const Window* focus = FindWindowOf(TheDesk().focus);
    return focus != nullptr && IsInside(*focus, window);
}

void SetVisible(Window& window, bool visible) {
    window.style =
        visible ? window.style | WS_VISIBLE : window.style & ~static_cast<DWORD>(WS_VISIBLE);
    window.widget->SetVisible(visible);
}

}  // namespace

void LeaveFocus(HWND handle, HWND heir) {
    const Window* window = FindWindowOf(handle);
    if (window == nullptr || !HasFocusInside(*window))
        return;
    SetFocus(heir);
    if (window = FindWindowOf(handle); window != nullptr && HasFocusInside(*window))
        SetFocus(nullptr);
}

void TakeFromScreen(Window& window) {
    if (window.IsVisible())
        SetVisible(window, false);
    if (TheDesk().active == window.handle)
        Activate(Successor(window));
}

void Activate(Window* window) {
    MakeActive(window, Origin::kProgram);
}

void ActivatedByDesktop(Window* window) {
    if (window == nullptr || window->IsEnabled())
        return MakeActive(window, Origin::kDesktop);
    Window* front = FrontOf(*window);
    if (front == nullptr)
        return;
    const HWND handle = front->handle;
    MakeActive(front, Origin::kDesktop);
    if (IsLiveWindow(handle))
        CurrentScreen().Raise(HandleNumber(handle));
}

}  // namespace vxd

using vxd::FindWindowOf;
using vxd::TheDesk;
using vxd::Window;

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
        window->style |= WS_DISABLED;
    }
    window->widget->SetEnabled(enable != FALSE);
    // What is inside a disabled window keeps the focus until it goes elsewhere.
    if (!enable && TheDesk().focus == handle)
        SetFocus(nullptr);
    if (Window* still = FindWindowOf(handle); still != nullptr)
        vxd::Call(*still, WM_ENABLE, static_cast<WPARAM>(enable != FALSE), 0);
    return wasDisabled;
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
    vxd::CurrentScreen().SetFocus(window->Number());
    vxd::Call(*window, WM_SETFOCUS, reinterpret_cast<WPARAM>(losing), 0);
    return previous;
}

HWND WINAPI GetFocus() {
    return TheDesk().focus;
}

HWND WINAPI GetActiveWindow() {
    return TheDesk().active;
}
