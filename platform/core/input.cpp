// What a person did, on its way from the screen into the message queue.
#include "platform/core/activation.h"
#include "platform/core/dialog.h"
#include "platform/core/key_message.h"
#include "platform/core/menu.h"
#include "platform/core/paint.h"
#include "platform/core/placement.h"
#include "platform/core/queue.h"
#include "platform/core/window.h"
#include "platform/screen.h"

namespace vxd::input {
namespace {

// Runs on the window, if it still exists when its turn comes.
template <typename Action>
void Queue(WidgetId id, Action action) {
    QueueInput([id, action = std::move(action)] {
        if (Window* window = FindWindowOf(ToHandle<HWND>(id)); window != nullptr)
            action(*window);
    });
}

// The same for a control that takes input.
template <typename Action>
void QueueForControl(WidgetId id, Action action) {
    Queue(id, [action = std::move(action)](Window& window) {
        if (window.control != nullptr && window.IsEnabled() && TopLevelOf(window).IsEnabled())
            action(*window.control);
    });
}

}  // namespace

void Clicked(WidgetId button) {
    QueueForControl(button, [](Control& control) { control.OnClicked(); });
}

void Edited(WidgetId edit, const std::string& text, int selectionStart, int selectionEnd) {
    QueueForControl(
        edit, [=](Control& control) { control.OnEdited(text, selectionStart, selectionEnd); });
}

void SelectionMoved(WidgetId edit, int start, int end) {
    QueueForControl(edit, [=](Control& control) { control.OnSelectionMoved(start, end); });
}

void RowChosen(WidgetId list, int row) {
    QueueForControl(list, [row](Control& control) { control.OnRowChosen(row); });
}

void RowDoubleClicked(WidgetId list, int row) {
    QueueForControl(list, [row](Control& control) { control.OnRowDoubleClicked(row); });
}

void Dropped(WidgetId combo, bool dropped) {
    QueueForControl(combo, [dropped](Control& control) { control.OnDropped(dropped); });
}

void Scrolled(WidgetId bar, std::uint32_t code, int position) {
    QueueForControl(bar, [=](Control& control) { control.OnScrolled(code, position); });
}

void Focused(WidgetId id) {
    Queue(id, [id](Window& window) {
        SetFocus(window.handle);
        if (const Window* focused = FindWindowOf(ToHandle<HWND>(id)); focused != nullptr)
            DefaultButtonFollows(*focused);
    });
}

void Activated(WidgetId window, bool active) {
    Queue(window, [active](Window& changed) {
        if (active)
            ActivatedByDesktop(&changed);
        else if (GetActiveWindow() == changed.handle)
            ActivatedByDesktop(nullptr);
    });
}

void CloseRequested(WidgetId window) {
    const HWND handle = ToHandle<HWND>(window);
    Queue(window, [handle](Window& closing) {
        if (closing.IsEnabled())
            PostMessageA(handle, WM_SYSCOMMAND, SC_CLOSE, 0);
    });
}

void Placed(WidgetId window, const Rect& rect) {
    Queue(window, [rect](Window& placed) {
        const Rect before = std::exchange(placed.rect, rect);
        if (before != rect)
            PlacedByScreen(placed, before);
    });
}

void Uncovered(WidgetId id, const Rect& area) {
    Queue(id, [area](Window& window) {
        const RECT lost{area.x, area.y, area.x + area.width, area.y + area.height};
        InvalidateRect(window.handle, &lost, TRUE);
    });
}

void MenuOpened(WidgetId window, int position) {
    Queue(window, [position](Window& opened) {
        if (const HMENU popup = PopupAt(opened.handle, position); popup != nullptr)
            SendMessageA(opened.handle, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup),
                         position);
    });
}

void MenuChosen(WidgetId window, std::uint32_t command) {
    QueueInputMessage(ToHandle<HWND>(window), WM_COMMAND, command, 0);
}

void MenuEnded(std::uint32_t command) {
    QueueInput([command] { PopupEnded(command); });
}

void Mouse(WidgetId id, std::uint32_t message, Point where) {
    QueueInputMessage(ToHandle<HWND>(id), message, 0, MAKELPARAM(where.x, where.y));
}

bool KeyPressed(WidgetId id, const KeyPress& key) {
    Window* window = FindWindowOf(ToHandle<HWND>(id));
    if (window == nullptr)
        return false;
    const bool system = key.alt || (key.virtualKey == VK_F10 && !key.control);
    const UINT message = system ? WM_SYSKEYDOWN : WM_KEYDOWN;
    // Only plain letters are marked in captions.
    const char letter = key.character < 0x80 ? static_cast<char>(key.character) : '\0';
    const bool forDialog = IsDialogKey(*window, message, key.virtualKey, letter);
    // Windows of the program's own classes get all keys; a control's own widget handles the rest.
    if (!forDialog && window->control != nullptr && !window->control->TakesKey(key.virtualKey))
        return false;
    QueueInput([key] { SetModifiers(key.shift, key.control, key.alt); });
    QueueInputMessage(window->handle, message, key.virtualKey, KeyDetails(key.character));
    QueueInputMessage(window->handle, system ? WM_SYSKEYUP : WM_KEYUP, key.virtualKey, 0);
    return true;
}

}  // namespace vxd::input
