#include "platform/core/dialog.h"

#include <algorithm>
#include <string>
#include <utility>

#include "platform/core/activation.h"
#include "platform/core/icon.h"
#include "platform/core/placement.h"
#include "platform/core/queue.h"

namespace vxd {
namespace {

// The value WM_SETFONT carries. The layer shows all dialogs in the desktop's own font.
constexpr WPARAM kDialogFont = 0x10001;

std::vector<HWND>& ModalDialogs() {
    static std::vector<HWND> dialogs;
    return dialogs;
}

int Scaled(int value, int factor, int divisor) {
    const int product = value * factor;
    return (product >= 0 ? product + divisor / 2 : product - divisor / 2) / divisor;
}

const FontMetrics& Metrics() {
    static const FontMetrics metrics = CurrentScreen().DialogFont();
    return metrics;
}

// Where a dialog of a size goes on the desktop: at its template's place inside the owner's client
// area, or in the middle of it, but never outside the work area.
Rect DialogPlace(const DialogTemplate& made, const Window* owner) {
    Rect rect = FromDialogUnits({made.x, made.y, made.width, made.height});
    const Rect area = CurrentScreen().WorkArea();
    if ((made.style & DS_CENTER) != 0) {
        rect.x = area.x + (area.width - rect.width) / 2;
        rect.y = area.y + (area.height - rect.height) / 2;
    } else if (owner != nullptr && (made.style & DS_ABSALIGN) == 0) {
        const Point origin = ClientOrigin(*owner);
        rect.x += origin.x;
        rect.y += origin.y;
    }
    rect.x = std::max(area.x, std::min(rect.x, area.x + area.width - rect.width));
    rect.y = std::max(area.y, std::min(rect.y, area.y + area.height - rect.height));
    return rect;
}

HWND MakeControl(HWND dialog, HINSTANCE instance, const DialogControl& control) {
    const Rect rect = FromDialogUnits({control.x, control.y, control.width, control.height});
    const LPCSTR title =
        control.titleNumber != 0 ? MAKEINTRESOURCEA(control.titleNumber) : control.title.c_str();
    const LPCSTR className = control.className.c_str();
    return CreateWindowExA(control.exStyle, className, title, control.style | WS_CHILD, rect.x,
                           rect.y, rect.width, rect.height, dialog,
                           reinterpret_cast<HMENU>(static_cast<INT_PTR>(control.id)), instance,
                           nullptr);
}

// The control that has the focus where nothing else says so: the first tab stop, or in a dialog
// without one the first control that can have it. Null where none can.
Window* FirstControl(const Window& dialog) {
    if (Window* stop = FindWindowOf(GetNextDlgTabItem(dialog.handle, nullptr, FALSE)))
        return stop;
    const auto able =
        std::find_if(dialog.children.begin(), dialog.children.end(),
                     [](const Window* child) { return child->IsVisible() && child->IsEnabled(); });
    return able != dialog.children.end() ? *able : nullptr;
}

// The focus goes to the control that had it when the dialog was last active, else to the first.
void RestoreFocus(Window& dialog) {
    const Window* saved = FindWindowOf(std::exchange(dialog.dialog->savedFocus, nullptr));
    const bool usable = saved != nullptr && IsInside(*saved, dialog) && saved != &dialog;
    if (usable) {
        SetFocus(saved->handle);
    } else if (Window* first = FirstControl(dialog); first != nullptr) {
        FocusByKey(*first);
    }
}

void FindDefaultButton(Window& dialog) {
    for (const Window* child : dialog.children) {
        const auto code = Call(*const_cast<Window*>(child), WM_GETDLGCODE, 0, 0);
        if ((code & DLGC_DEFPUSHBUTTON) != 0) {
            dialog.dialog->defaultId = child->id;
            return;
        }
    }
}

// Makes the dialog's window and controls; null when that fails. It is not shown yet.
HWND MakeDialog(HINSTANCE instance, const DialogTemplate& made, HWND owner, DLGPROC procedure,
                LPARAM parameter) {
    const Window* ownerWindow = FindWindowOf(owner);
    const Rect rect = DialogPlace(made, ownerWindow);
    const HWND handle =
        CreateWindowExA(made.exStyle, kDialogClass, made.title.c_str(),
                        made.style & ~static_cast<DWORD>(WS_VISIBLE | WS_CHILD), rect.x, rect.y,
                        rect.width, rect.height, owner, nullptr, instance, nullptr);
    if (handle == nullptr)
        return nullptr;
    FindWindowOf(handle)->dialogData[1] = reinterpret_cast<LONG_PTR>(procedure);
    if ((made.style & DS_SETFONT) != 0)
        SendMessageA(handle, WM_SETFONT, kDialogFont, 0);
    for (const DialogControl& control : made.controls) {
        const HWND child = MakeControl(handle, instance, control);
        if (child == nullptr) {
            DestroyWindow(handle);
            return nullptr;
        }
        if ((made.style & DS_SETFONT) != 0)
            SendMessageA(child, WM_SETFONT, kDialogFont, 0);
    }
    FindDefaultButton(*FindWindowOf(handle));

    const Window* first = FirstControl(*FindWindowOf(handle));
    const LRESULT setFocus = SendMessageA(
        handle, WM_INITDIALOG, reinterpret_cast<WPARAM>(first != nullptr ? first->handle : nullptr),
        parameter);
    Window* dialog = FindWindowOf(handle);
    if (dialog == nullptr || dialog->dialog->ended)
        return handle;
    // Initialising may have moved the stops: checking a radio button does.
    if (Window* target = setFocus != 0 ? FirstControl(*dialog) : nullptr; target != nullptr)
        FocusByKey(*target);
    return handle;
}

// Shows the dialog when everything that waited at its start has been dealt with. Timers do not
// wait: one that is always due would keep it away for ever.
void RunModalLoop(HWND handle) {
    for (bool shown = false;;) {
        const Window* dialog = FindWindowOf(handle);
        if (dialog == nullptr || dialog->dialog->ended)
            return;
        MSG message;
        if (!shown &&
            (!PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE) || message.message == WM_TIMER)) {
            shown = true;
            ShowWindow(handle, SW_SHOWNORMAL);
            continue;
        }
        if (!GetMessageA(&message, nullptr, 0, 0)) {
            // The program is to end: the loop around this one must hear of it too.
            PostQuitMessage(static_cast<int>(message.wParam));
            return;
        }
        if (!IsDialogMessageA(handle, &message)) {
            TranslateMessage(&message);
            DispatchMessageA(&message);
        }
    }
}

// Disables those of a dialog's windows that take input, and tells which they were.
std::vector<HWND> ShutOut(HWND owner, Modality modality) {
    std::vector<HWND> windows;
    for (const Window* window : TopLevelWindows()) {
        const bool isMeant =
            window->handle == owner || (modality == Modality::kAllWindows && window->IsVisible());
        if (isMeant && window->IsEnabled())
            windows.push_back(window->handle);
    }
    for (const HWND window : windows)
        EnableWindow(window, FALSE);
    return windows;
}

void LetIn(const std::vector<HWND>& windows) {
    for (const HWND window : windows)
        EnableWindow(window, TRUE);
}

}  // namespace

Rect FromDialogUnits(const Rect& units) {
    const FontMetrics& font = Metrics();
    return {Scaled(units.x, font.averageCharWidth, 4), Scaled(units.y, font.height, 8),
            Scaled(units.width, font.averageCharWidth, 4), Scaled(units.height, font.height, 8)};
}

Rect ToDialogUnits(const Rect& pixels) {
    const FontMetrics& font = Metrics();
    const auto roundUp = [](int value, int divisor) { return (value + divisor - 1) / divisor; };
    return {roundUp(pixels.x * 4, font.averageCharWidth), roundUp(pixels.y * 8, font.height),
            roundUp(pixels.width * 4, font.averageCharWidth),
            roundUp(pixels.height * 8, font.height)};
}

INT_PTR RunDialogBox(HINSTANCE instance, const DialogTemplate& dialogTemplate, HWND owner,
                     DLGPROC procedure, LPARAM parameter, Modality modality) {
    Window* given = FindWindowOf(owner);
    if (owner != nullptr && given == nullptr)
        return -1;
    const HWND top = given != nullptr ? TopLevelOf(*given).handle : nullptr;
    const std::vector<HWND> shutOut = ShutOut(top, modality);
    const HWND handle = MakeDialog(instance, dialogTemplate, top, procedure, parameter);
    Window* dialog = FindWindowOf(handle);
    if (dialog == nullptr) {
        LetIn(shutOut);
        return handle == nullptr ? -1 : 0;
    }
    dialog->dialog->shutOut = shutOut;
    ModalDialogs().push_back(handle);
    RunModalLoop(handle);
    std::erase(ModalDialogs(), handle);
    dialog = FindWindowOf(handle);
    if (dialog == nullptr) {
        LetIn(shutOut);
        return 0;
    }
    const INT_PTR result = dialog->dialog->result;
    LetIn(std::exchange(dialog->dialog->shutOut, {}));
    DestroyWindow(handle);
    return result;
}

void DefaultButtonFollows(const Window& control) {
    const Window* dialog = control.parent;
    if (dialog == nullptr || dialog->dialog == nullptr)
        return;
    constexpr LRESULT kPushButton = DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON;
    const auto isPushButton = [](const Window& window) {
        return (SendMessageA(window.handle, WM_GETDLGCODE, 0, 0) & kPushButton) != 0;
    };
    const int standing = dialog->dialog->defaultId != 0 ? dialog->dialog->defaultId : IDOK;
    const int wanted = isPushButton(control) ? control.id : standing;
    for (const Window* child : dialog->children) {
        if (isPushButton(*child)) {
            SendMessageA(child->handle, BM_SETSTYLE,
                         child->id == wanted ? BS_DEFPUSHBUTTON : BS_PUSHBUTTON, TRUE);
        }
    }
}

void FocusByKey(Window& control) {
    const HWND handle = control.handle;
    const bool selects = (Call(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) != 0;
    SetFocus(handle);
    if (selects)
        SendMessageA(handle, EM_SETSEL, 0, -1);
    if (const Window* still = FindWindowOf(handle); still != nullptr)
        DefaultButtonFollows(*still);
}

std::string DescribeModalBox() {
    const Window* dialog = ModalDialogs().empty() ? nullptr : FindWindowOf(ModalDialogs().back());
    if (dialog == nullptr)
        return {};
    std::string description = '"' + dialog->text + '"';
    for (const Window* child : dialog->children) {
        if (!child->text.empty())
            description += "\n  " + child->text;
    }
    return description;
}

}  // namespace vxd

using vxd::FindWindowOf;
using vxd::Window;

INT_PTR WINAPI DialogBoxParamA(HINSTANCE instance, LPCSTR templateName, HWND owner,
                               DLGPROC procedure, LPARAM parameter) {
    const auto data = vxd::FindResource(vxd::kResourceDialog, vxd::NameOf(templateName));
    const auto dialogTemplate = vxd::ParseDialog(data);
    return dialogTemplate
               ? vxd::RunDialogBox(instance, *dialogTemplate, owner, procedure, parameter)
               : -1;
}

BOOL WINAPI EndDialog(HWND handle, INT_PTR result) {
    Window* dialog = FindWindowOf(handle);
    if (dialog == nullptr || dialog->dialog == nullptr)
        return FALSE;
    dialog->dialog->result = result;
    dialog->dialog->ended = true;
    // The windows must be enabled before the dialog goes, or the desktop would activate another
    // program's in its place.
    vxd::LetIn(std::exchange(dialog->dialog->shutOut, {}));
    if (dialog = FindWindowOf(handle); dialog == nullptr)
        return TRUE;
    if (const Window* focus = FindWindowOf(GetFocus());
        focus != nullptr && vxd::IsInside(*focus, *dialog))
        SetFocus(handle);
    if (dialog = FindWindowOf(handle); dialog == nullptr)
        return TRUE;
    vxd::TakeFromScreen(*dialog);
    // Lets the dialog's loop see the mark even when nothing else happens.
    PostMessageA(handle, WM_NULL, 0, 0);
    return TRUE;
}

LRESULT WINAPI DefDlgProcA(HWND handle, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* dialog = FindWindowOf(handle);
    if (dialog == nullptr || dialog->dialog == nullptr)
        return 0;
    if (const DLGPROC procedure = dialog->DialogProcedure(); procedure != nullptr) {
        dialog->dialogData[0] = 0;
        const INT_PTR handled = procedure(handle, message, wParam, lParam);
        dialog = FindWindowOf(handle);
        if (message == WM_INITDIALOG || dialog == nullptr)
            return handled;
        if (handled != 0)
            return dialog->dialogData[0];
    }
    switch (message) {
        case WM_INITDIALOG:
            return TRUE;
        case WM_ACTIVATE:
            if (LOWORD(wParam) == WA_INACTIVE) {
                if (const Window* focus = FindWindowOf(GetFocus());
                    focus != nullptr && vxd::IsInside(*focus, *dialog))
                    dialog->dialog->savedFocus = focus->handle;
            } else if (dialog->IsVisible()) {
                // Before it is shown its focus is a matter of its initialisation.
                vxd::RestoreFocus(*dialog);
            }
            return 0;
        case WM_SETFOCUS:
            if (!dialog->dialog->ended)
                vxd::RestoreFocus(*dialog);
            return 0;
        case WM_CLOSE:
            PostMessageA(handle, WM_COMMAND, IDCANCEL, 0);
            return 0;
        case WM_NEXTDLGCTL: {
            const HWND next = LOWORD(lParam) != 0
                                  ? reinterpret_cast<HWND>(wParam)
                                  : GetNextDlgTabItem(handle, GetFocus(), wParam != 0);
            if (Window* control = FindWindowOf(next != nullptr ? next : GetFocus());
                control != nullptr)
                vxd::FocusByKey(*control);
            return 0;
        }
        case DM_GETDEFID:
            return dialog->dialog->defaultId != 0 ? MAKELONG(dialog->dialog->defaultId, DC_HASDEFID)
                                                  : 0;
        case DM_SETDEFID:
            dialog->dialog->defaultId = static_cast<int>(wParam);
            if (const Window* button = FindWindowOf(GetDlgItem(handle, dialog->dialog->defaultId));
                button != nullptr)
                vxd::DefaultButtonFollows(*button);
            return TRUE;
        default:
            return DefWindowProcA(handle, message, wParam, lParam);
    }
}

HWND WINAPI GetDlgItem(HWND handle, int id) {
    const Window* dialog = FindWindowOf(handle);
    if (dialog == nullptr)
        return nullptr;
    const auto found = std::find_if(dialog->children.begin(), dialog->children.end(),
                                    [id](const Window* child) { return child->id == id; });
    return found != dialog->children.end() ? (*found)->handle : nullptr;
}

int WINAPI GetDlgCtrlID(HWND handle) {
    const Window* window = FindWindowOf(handle);
    return window != nullptr ? window->id : 0;
}

BOOL WINAPI SetDlgItemTextA(HWND dialog, int id, LPCSTR text) {
    return SetWindowTextA(GetDlgItem(dialog, id), text);
}

UINT WINAPI GetDlgItemTextA(HWND dialog, int id, LPSTR text, int capacity) {
    return static_cast<UINT>(GetWindowTextA(GetDlgItem(dialog, id), text, capacity));
}

LRESULT WINAPI SendDlgItemMessageA(HWND dialog, int id, UINT message, WPARAM wParam,
                                   LPARAM lParam) {
    return SendMessageA(GetDlgItem(dialog, id), message, wParam, lParam);
}

BOOL WINAPI CheckDlgButton(HWND dialog, int id, UINT check) {
    const HWND button = GetDlgItem(dialog, id);
    SendMessageA(button, BM_SETCHECK, check, 0);
    return button != nullptr;
}

UINT WINAPI IsDlgButtonChecked(HWND dialog, int id) {
    return static_cast<UINT>(SendDlgItemMessageA(dialog, id, BM_GETCHECK, 0, 0));
}

BOOL WINAPI CheckRadioButton(HWND handle, int first, int last, int check) {
    const Window* dialog = FindWindowOf(handle);
    if (dialog == nullptr)
        return FALSE;
    for (const Window* child : dialog->children) {
        if (child->id >= first && child->id <= last) {
            SendMessageA(child->handle, BM_SETCHECK,
                         child->id == check ? BST_CHECKED : BST_UNCHECKED, 0);
        }
    }
    return TRUE;
}
