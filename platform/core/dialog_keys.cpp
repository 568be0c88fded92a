// How keys move about in a dialog box.
#include <algorithm>
#include <iterator>

#include "platform/core/dialog.h"
#include "platform/core/queue.h"
#include "platform/core/text.h"

namespace vxd {
namespace {

constexpr LRESULT kPushButtonCodes = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;

bool CanTakeFocus(const Window& control) {
    return control.IsVisible() && control.IsEnabled();
}

LRESULT DialogCode(Window& control, const MSG* message = nullptr) {
    return Call(control, WM_GETDLGCODE, message != nullptr ? message->wParam : 0,
                reinterpret_cast<LPARAM>(message));
}

int IndexOf(const Window& dialog, const Window* control) {
    const auto found = std::find(dialog.children.begin(), dialog.children.end(), control);
    return found != dialog.children.end() ? static_cast<int>(found - dialog.children.begin()) : -1;
}

bool IsTabStop(const Window& control) {
    return (control.style & WS_TABSTOP) != 0 && CanTakeFocus(control);
}

Window* NextTabStop(Window& dialog, const Window* from, bool backwards) {
    const int count = static_cast<int>(dialog.children.size());
    int at = IndexOf(dialog, from);
    if (at < 0)
        at = backwards ? 0 : -1;
    for (int tried = 0; tried < count; ++tried) {
        at = (at + (backwards ? count - 1 : 1)) % count;
        Window* candidate = dialog.children[static_cast<std::size_t>(at)];
        if (IsTabStop(*candidate))
            return candidate;
    }
    return nullptr;
}

// The group of a control: from the last WS_GROUP before it to the next one.
std::pair<int, int> GroupAround(const Window& dialog, int at) {
    const auto startsGroup = [&dialog](int index) {
        return (dialog.children[static_cast<std::size_t>(index)]->style & WS_GROUP) != 0;
    };
    int first = at;
    while (first > 0 && !startsGroup(first))
        --first;
    int end = at + 1;
    while (end < static_cast<int>(dialog.children.size()) && !startsGroup(end))
        ++end;
    return {first, end};
}

Window* NextInGroup(const Window& dialog, const Window* from, bool backwards) {
    const int start = IndexOf(dialog, from);
    if (start < 0)
        return nullptr;
    const auto [first, end] = GroupAround(dialog, start);
    const int count = end - first;
    int at = start - first;
    for (int tried = 0; tried < count; ++tried) {
        at = (at + (backwards ? count - 1 : 1)) % count;
        Window* candidate = dialog.children[static_cast<std::size_t>(first + at)];
        if (CanTakeFocus(*candidate) && (DialogCode(*candidate) & DLGC_STATIC) == 0)
            return candidate;
    }
    return nullptr;
}

void Press(Window& button) {
    const HWND handle = button.handle;
    SetFocus(handle);
    SendMessageA(handle, BM_CLICK, 0, 0);
}

// An arrow key moves inside the group; onto a radio button it also checks it.
void MoveInGroup(Window& dialog, Window& from, bool backwards) {
    Window* next = NextInGroup(dialog, &from, backwards);
    if (next == nullptr || next == &from)
        return;
    if ((DialogCode(*next) & DLGC_RADIOBUTTON) != 0 &&
        (next->style & BS_TYPEMASK) == BS_AUTORADIOBUTTON)
        Press(*next);
    else
        FocusByKey(*next);
}

// The control that a letter stands for, looked for from the focused one on.
Window* ControlMarkedBy(Window& dialog, const Window* from, char letter) {
    const int count = static_cast<int>(dialog.children.size());
    const int start = IndexOf(dialog, from);
    for (int step = 1; step <= count; ++step) {
        Window* candidate =
            dialog.children[static_cast<std::size_t>((start + step + count) % count)];
        if (!CanTakeFocus(*candidate) || MarkedKey(candidate->text) != Lower(letter))
            continue;
        const LRESULT code = DialogCode(*candidate);
        const bool showsMark = (code & (DLGC_BUTTON | DLGC_STATIC)) != 0 &&
                               ((code & DLGC_BUTTON) != 0 || (candidate->style & SS_NOPREFIX) == 0);
        if (showsMark)
            return candidate;
    }
    return nullptr;
}

// A label's letter leads to the control behind the label.
void FollowLetter(Window& dialog, Window& marked) {
    if ((DialogCode(marked) & DLGC_BUTTON) != 0) {
        if ((DialogCode(marked) & kPushButtonCodes) != 0 || (marked.style & WS_TABSTOP) != 0 ||
            (DialogCode(marked) & DLGC_RADIOBUTTON) != 0) {
            Press(marked);
            return;
        }
    }
    const int count = static_cast<int>(dialog.children.size());
    for (int at = IndexOf(dialog, &marked) + 1; at < count; ++at) {
        Window* next = dialog.children[static_cast<std::size_t>(at)];
        if ((DialogCode(*next) & DLGC_STATIC) != 0)
            continue;
        if (CanTakeFocus(*next))
            FocusByKey(*next);
        return;
    }
}

void SendCommand(const Window& dialog, int id) {
    SendMessageA(dialog.handle, WM_COMMAND, MAKEWPARAM(id, BN_CLICKED),
                 reinterpret_cast<LPARAM>(GetDlgItem(dialog.handle, id)));
}

void PressEnter(Window& dialog, Window* focus) {
    const HWND handle = dialog.handle;
    const LRESULT focused = focus != nullptr ? DialogCode(*focus) : 0;
    if ((focused & DLGC_DEFPUSHBUTTON) != 0) {
        SendCommand(dialog, focus->id);
        return;
    }
    const LRESULT answer = SendMessageA(handle, DM_GETDEFID, 0, 0);
    if (HIWORD(answer) != DC_HASDEFID) {
        SendCommand(dialog, IDOK);
        return;
    }
    const int id = static_cast<SHORT>(LOWORD(answer));
    const HWND button = GetDlgItem(handle, id);
    // An edit of several lines goes there first.
    if ((focused & DLGC_WANTALLKEYS) != 0)
        SendMessageA(handle, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(button), TRUE);
    if (const Window* still = FindWindowOf(handle);
        still != nullptr && (button == nullptr || IsWindowEnabled(button)))
        SendCommand(*still, id);
}

// Handles the key unless the focused control wants it for itself; whether it was handled.
bool HandleKeyDown(Window& dialog, Window* focus, const MSG& message) {
    const LRESULT wants = focus != nullptr ? DialogCode(*focus, &message) : 0;
    if ((wants & DLGC_WANTMESSAGE) != 0)
        return false;
    switch (message.wParam) {
        case VK_TAB:
            if ((wants & DLGC_WANTTAB) != 0)
                return false;
            if (Window* next = NextTabStop(dialog, focus, IsShiftDown()); next != nullptr)
                FocusByKey(*next);
            return true;
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
            if ((wants & DLGC_WANTARROWS) != 0 || focus == nullptr)
                return false;
            MoveInGroup(dialog, *focus, message.wParam == VK_LEFT || message.wParam == VK_UP);
            return true;
        case VK_ESCAPE: {
            const Window* cancel = FindWindowOf(GetDlgItem(dialog.handle, IDCANCEL));
            if (cancel == nullptr || cancel->IsEnabled())
                SendCommand(dialog, IDCANCEL);
            return true;
        }
        case VK_RETURN:
            PressEnter(dialog, focus);
            return true;
        default:
            return false;
    }
}

bool HandleLetter(Window& dialog, Window* focus, const MSG& message) {
    if (message.message == WM_CHAR && focus != nullptr &&
        (DialogCode(*focus, &message) & (DLGC_WANTCHARS | DLGC_WANTMESSAGE)) != 0)
        return false;
    Window* marked = ControlMarkedBy(dialog, focus, static_cast<char>(message.wParam));
    if (marked == nullptr)
        return false;
    FollowLetter(dialog, *marked);
    return true;
}

}  // namespace

std::vector<Window*> GroupOf(const Window& control) {
    std::vector<Window*> group;
    if (control.parent == nullptr)
        return group;
    const auto& all = control.parent->children;
    const auto [first, end] = GroupAround(*control.parent, IndexOf(*control.parent, &control));
    std::copy_if(all.begin() + first, all.begin() + end, std::back_inserter(group),
                 [](const Window* each) { return CanTakeFocus(*each); });
    return group;
}

bool IsDialogKey(Window& focused, UINT message, WPARAM key, char character) {
    Window& dialog = TopLevelOf(focused);
    if (dialog.dialog == nullptr)
        return false;
    Window* control = &focused != &dialog ? &focused : nullptr;
    MSG asked{};
    asked.hwnd = focused.handle;
    asked.message = message;
    asked.wParam = key;
    const LRESULT wants = control != nullptr ? DialogCode(*control, &asked) : 0;
    if (message == WM_SYSKEYDOWN)
        return character != 0 && ControlMarkedBy(dialog, control, character) != nullptr;
    if ((wants & DLGC_WANTMESSAGE) != 0)
        return false;
    switch (key) {
        case VK_TAB:
            return (wants & DLGC_WANTTAB) == 0;
        case VK_ESCAPE:
        case VK_RETURN:
            return true;
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
            return control != nullptr && (wants & DLGC_WANTARROWS) == 0;
        default:
            return character != 0 && (wants & DLGC_WANTCHARS) == 0 &&
                   ControlMarkedBy(dialog, control, character) != nullptr;
    }
}

}  // namespace vxd

using vxd::FindWindowOf;
using vxd::Window;

BOOL WINAPI IsDialogMessageA(HWND handle, LPMSG message) {
    Window* dialog = FindWindowOf(handle);
    Window* target = message != nullptr ? FindWindowOf(message->hwnd) : nullptr;
    if (dialog == nullptr || dialog->dialog == nullptr || target == nullptr ||
        !vxd::IsInside(*target, *dialog))
        return FALSE;
    Window* focus = target != dialog ? target : nullptr;
    switch (message->message) {
        case WM_KEYDOWN:
            if (vxd::HandleKeyDown(*dialog, focus, *message))
                return TRUE;
            break;
        case WM_CHAR:
        case WM_SYSCHAR:
            if (vxd::HandleLetter(*dialog, focus, *message))
                return TRUE;
            break;
        default:
            break;
    }
    TranslateMessage(message);
    DispatchMessageA(message);
    return TRUE;
}

HWND WINAPI GetNextDlgTabItem(HWND handle, HWND control, BOOL previous) {
    Window* dialog = FindWindowOf(handle);
    if (dialog == nullptr)
        return nullptr;
    const Window* next = vxd::NextTabStop(*dialog, FindWindowOf(control), previous != FALSE);
    return next != nullptr ? next->handle : nullptr;
}

HWND WINAPI GetNextDlgGroupItem(HWND handle, HWND control, BOOL previous) {
    const Window* dialog = FindWindowOf(handle);
    if (dialog == nullptr)
        return nullptr;
    const Window* next = vxd::NextInGroup(*dialog, FindWindowOf(control), previous != FALSE);
    return next != nullptr ? next->handle : nullptr;
}
