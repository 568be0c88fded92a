// How keys move about in a dialog box.
#include <algorithm>

#include "platform/core/dialog.h"
#include "platform/core/keyboard.h"
#include "platform/core/text.h"

namespace vxd {
namespace {

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
    // Before nothing there is nothing.
    if (at < 0 && backwards)
        return nullptr;
    for (int tried = 0; tried < count; ++tried) {
        at = (at + (backwards ? count - 1 : 1)) % count;
        Window* candidate = dialog.children[static_cast<std::size_t>(at)];
        if (IsTabStop(*candidate))
            return candidate;
    }
    return nullptr;
}

// The group of a control, in its order: from a WS_GROUP to the one before the next, round the
// dialog's end. Without any WS_GROUP it is the whole dialog.
std::vector<Window*> GroupAround(const Window& dialog, int at) {
    const int count = static_cast<int>(dialog.children.size());
    const auto child = [&](int index) {
        return dialog.children[static_cast<std::size_t>((index + count) % count)];
    };
    const auto startsGroup = [&](int index) { return (child(index)->style & WS_GROUP) != 0; };
    int first = at;
    while (first > at - count && !startsGroup(first))
        --first;
    if (first == at - count)
        first = 0;
    std::vector<Window*> group{child(first)};
    for (int next = first + 1; next < first + count && !startsGroup((next + count) % count); ++next)
        group.push_back(child(next));
    return group;
}

// From nothing the first control of the dialog; before nothing there is none.
Window* NextInGroup(const Window& dialog, const Window* from, bool backwards) {
    const auto takesPart = [](Window* candidate) {
        return CanTakeFocus(*candidate) && (DialogCode(*candidate) & DLGC_STATIC) == 0;
    };
    const int start = IndexOf(dialog, from);
    if (start < 0 && backwards) {
        return nullptr;
    }
    if (start < 0) {
        const auto found = std::find_if(dialog.children.begin(), dialog.children.end(), takesPart);
        return found != dialog.children.end() ? *found : nullptr;
    }
    const std::vector<Window*> group = GroupAround(dialog, start);
    const std::size_t count = group.size();
    auto at = static_cast<std::size_t>(std::find(group.begin(), group.end(), from) - group.begin());
    for (std::size_t tried = 0; tried < count; ++tried) {
        at = (at + (backwards ? count - 1 : 1)) % count;
        if (takesPart(group[at]))
            return group[at];
    }
    return nullptr;
}

void Press(Window& button) {
    const HWND handle = button.handle;
    SetFocus(handle);
    SendMessageA(handle, BM_CLICK, 0, 0);
}

// An arrow key moves inside the group; onto a radio button that is not checked it checks it.
void MoveInGroup(Window& dialog, const Window* from, bool backwards) {
    Window* next = NextInGroup(dialog, from, backwards);
    if (next == nullptr)
        return;
    if ((DialogCode(*next) & DLGC_RADIOBUTTON) != 0 &&
        (next->style & BS_TYPEMASK) == BS_AUTORADIOBUTTON && Call(*next, BM_GETCHECK, 0, 0) == 0) {
        Press(*next);
    } else if (next != from) {
        FocusByKey(*next);
    }
}

// The controls that a letter stands for, from the one behind the focused one on.
std::vector<Window*> ControlsMarkedBy(Window& dialog, const Window* from, char letter) {
    std::vector<Window*> marked;
    const int count = static_cast<int>(dialog.children.size());
    const int start = IndexOf(dialog, from);
    for (int step = 1; step <= count; ++step) {
        Window* candidate =
            dialog.children[static_cast<std::size_t>((start + step + count) % count)];
        if (!CanTakeFocus(*candidate) || MarkedKey(candidate->text) != Lower(letter))
            continue;
        const LRESULT code = DialogCode(*candidate);
        const bool showsMark = (code & DLGC_BUTTON) != 0 ||
                               ((code & DLGC_STATIC) != 0 && (candidate->style & SS_NOPREFIX) == 0);
        if (showsMark)
            marked.push_back(candidate);
    }
    return marked;
}

// A letter of one control presses a button and leads from a label to the next tab stop. A letter
// that several share moves the focus among them; of the buttons it presses the default one alone.
void FollowLetter(Window& dialog, Window& marked, bool shared) {
    const LRESULT code = DialogCode(marked);
    if ((code & DLGC_BUTTON) == 0) {
        if (Window* next = NextTabStop(dialog, &marked, false); next != nullptr)
            FocusByKey(*next);
    } else if (shared && (code & DLGC_DEFPUSHBUTTON) == 0) {
        FocusByKey(marked);
    } else {
        Press(marked);
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
    const int id = HIWORD(answer) == DC_HASDEFID ? static_cast<SHORT>(LOWORD(answer)) : IDOK;
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
            // In a dialog without stops it stays where it is.
            if (Window* next = NextTabStop(dialog, focus, IsShiftDown()); next != nullptr) {
                FocusByKey(*next);
            } else if (focus != nullptr) {
                FocusByKey(*focus);
            }
            return true;
        case VK_LEFT:
        case VK_UP:
        case VK_RIGHT:
        case VK_DOWN:
            if ((wants & DLGC_WANTARROWS) != 0)
                return false;
            MoveInGroup(dialog, focus, message.wParam == VK_LEFT || message.wParam == VK_UP);
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
    // Captions mark plain letters alone.
    if (message.wParam >= 0x80)
        return false;
    const std::vector<Window*> marked =
        ControlsMarkedBy(dialog, focus, static_cast<char>(message.wParam));
    if (marked.empty())
        return false;
    FollowLetter(dialog, *marked.front(), marked.size() > 1);
    return true;
}

}  // namespace

std::vector<Window*> GroupOf(const Window& control) {
    if (control.parent == nullptr)
        return {};
    std::vector<Window*> group = GroupAround(*control.parent, IndexOf(*control.parent, &control));
    std::erase_if(group, [](const Window* each) { return !CanTakeFocus(*each); });
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
    if (message == WM_SYSKEYDOWN)
        return character != 0;
    // Windows of the program's own classes get all keys and need not be asked.
    const bool builtIn = control != nullptr && control->control != nullptr;
    const LRESULT wants = builtIn ? DialogCode(*control, &asked) : 0;
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
            return character > ' ' && (wants & DLGC_WANTCHARS) == 0;
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
    const Window* start = FindWindowOf(control);
    const Window* next = vxd::NextTabStop(*dialog, start, previous != FALSE);
    // Among controls without a stop the search comes back to where it began.
    if (next == nullptr && vxd::IndexOf(*dialog, start) >= 0)
        next = start;
    return next != nullptr ? next->handle : nullptr;
}

HWND WINAPI GetNextDlgGroupItem(HWND handle, HWND control, BOOL previous) {
    const Window* dialog = FindWindowOf(handle);
    if (dialog == nullptr)
        return nullptr;
    const Window* next = vxd::NextInGroup(*dialog, FindWindowOf(control), previous != FALSE);
    return next != nullptr ? next->handle : nullptr;
}
