// What a person did, on its way from the screen into the message queue.
#include "platform/core/input.h"

#include <memory>
#include <utility>
#include <vector>

#include "platform/core/activation.h"
#include "platform/core/dialog.h"
#include "platform/core/edited_text.h"
#include "platform/core/file_dialog.h"
#include "platform/core/key_message.h"
#include "platform/core/keyboard.h"
#include "platform/core/menu.h"
#include "platform/core/paint.h"
#include "platform/core/placement.h"
#include "platform/core/queue.h"
#include "platform/core/window.h"

namespace vxd {
namespace {

// Something that a person did to a widget and that waits for its turn.
struct PendingRow {
    WidgetId list = 0;
    int row = -1;  // -1 once it is gone
};

struct PendingSelection {
    WidgetId edit = 0;
    bool overtaken = false;  // the screen shows another selection by now
};

struct PendingEdit {
    WidgetId edit = 0;
    std::string before;
    std::string after;
    bool overtaken = false;  // the screen shows another text by now
};

// What waits is owned by its entry in the queue, however that ends.
template <typename Pending>
class Waiting {
  public:
    std::shared_ptr<Pending> Add(Pending pending) {
        auto added = std::make_shared<Pending>(std::move(pending));
        std::erase_if(all_, [](const auto& each) { return each.expired(); });
        all_.push_back(added);
        return added;
    }

    // Those of a widget, the oldest first.
    std::vector<std::shared_ptr<Pending>> Of(WidgetId id, WidgetId Pending::*member) const {
        std::vector<std::shared_ptr<Pending>> found;
        for (const auto& each : all_) {
            if (auto pending = each.lock(); pending != nullptr && (*pending).*member == id)
                found.push_back(std::move(pending));
        }
        return found;
    }

  private:
    std::vector<std::weak_ptr<Pending>> all_;
};

Waiting<PendingRow> theRows;
Waiting<PendingEdit> theEdits;
Waiting<PendingSelection> theSelections;

}  // namespace

void FollowInsertedRow(WidgetId list, int row) {
    for (const auto& pending : theRows.Of(list, &PendingRow::list)) {
        if (pending->row >= row)
            ++pending->row;
    }
}

void FollowRemovedRow(WidgetId list, int row) {
    for (const auto& pending : theRows.Of(list, &PendingRow::list)) {
        if (pending->row == row) {
            pending->row = -1;
        } else if (pending->row > row) {
            --pending->row;
        }
    }
}

void FollowClearedRows(WidgetId list) {
    for (const auto& pending : theRows.Of(list, &PendingRow::list))
        pending->row = -1;
}

void FollowShownText(WidgetId edit) {
    for (const auto& pending : theEdits.Of(edit, &PendingEdit::edit))
        pending->overtaken = true;
    FollowShownSelection(edit);
}

void FollowShownSelection(WidgetId edit) {
    for (const auto& pending : theSelections.Of(edit, &PendingSelection::edit))
        pending->overtaken = true;
}

}  // namespace vxd

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

void ShowState(WidgetId id) {
    if (const Window* window = FindWindowOf(ToHandle<HWND>(id)); window != nullptr) {
        window->control->ShowState();
    }
}

// The same for a control that takes input. The screen has followed the person already; where that
// counts for nothing it is told how things stand.
template <typename Action>
void QueueForControl(WidgetId id, Action action) {
    Queue(id, [action = std::move(action)](Window& window) {
        if (window.control == nullptr) {
            return;
        }
        if (window.IsEnabled() && TopLevelOf(window).IsEnabled()) {
            action(*window.control);
        } else {
            window.control->ShowState();
        }
    });
}

// The same for a row of a list, if it is still there.
void QueueForRow(WidgetId list, int row, void (BuiltInControl::*action)(int row)) {
    QueueForControl(list, [pending = theRows.Add({list, row}), action](BuiltInControl& control) {
        if (pending->row >= 0) {
            (control.*action)(pending->row);
        } else {
            control.ShowState();
        }
    });
}

}  // namespace

void Clicked(WidgetId button) {
    QueueForControl(button, [](BuiltInControl& control) { control.OnClicked(); });
}

bool Waits() {
    return InputWaits();
}

void Edited(WidgetId edit, const std::string& text, int selectionStart, int selectionEnd) {
    const Window* window = FindWindowOf(ToHandle<HWND>(edit));
    if (window == nullptr || window->control == nullptr)
        return;
    const auto earlier = theEdits.Of(edit, &PendingEdit::edit);
    const auto pending = theEdits.Add(
        {edit, earlier.empty() ? window->control->EditedText() : earlier.back()->after, text});
    QueueForControl(edit, [=](BuiltInControl& control) {
        if (!pending->overtaken) {
            control.OnEdited(text, selectionStart, selectionEnd);
            return;
        }
        const EditedText edited = Rebased(pending->before, text, control.EditedText());
        control.OnEdited(edited.text, edited.caret, edited.caret);
        ShowState(edit);
    });
}

void SelectionMoved(WidgetId edit, int start, int end) {
    // A person's move is the later one, even where the program's is shown by now.
    QueueForControl(edit, [=, pending = theSelections.Add({edit})](BuiltInControl& control) {
        control.OnSelectionMoved(start, end);
        if (pending->overtaken) {
            control.ShowState();
        }
    });
}

namespace {

void FocusByPerson(Window& window) {
    const WidgetId id = window.Number();
    if (TopLevelOf(window).IsEnabled()) {
        SetFocus(window.handle);
    }
    const Window* focused = FindWindowOf(FocusedWindow());
    if (focused == nullptr) {
        return;
    }
    if (focused->Number() == id) {
        DefaultButtonFollows(*focused);
    } else {
        // The screen has followed the person already.
        CurrentScreen().SetFocus(focused->Number());
    }
}

// A press of the mouse on a list while it takes the focus. A program may show a dialog at that, and
// the button comes up before the press has come to its end.
struct RowPress {
    WidgetId list = 0;
    std::shared_ptr<PendingRow> row;
    bool cameUp = false;
};
RowPress* thePress = nullptr;

void PressRow(Window& window, const std::shared_ptr<PendingRow>& row) {
    RowPress press{window.Number(), row};
    const HWND handle = window.handle;
    RowPress* const outer = std::exchange(thePress, &press);
    FocusByPerson(window);
    thePress = outer;
    Window* still = FindWindowOf(handle);
    if (still == nullptr || still->control == nullptr) {
        return;
    }
    const bool takesInput = still->IsEnabled() && TopLevelOf(*still).IsEnabled();
    if (!takesInput || press.row->row < 0) {
        still->control->ShowState();
    } else if (press.cameUp) {
        still->control->OnRowChosen(press.row->row);
    } else {
        still->control->OnRowPressed(press.row->row);
    }
}

}  // namespace

void RowPressed(WidgetId list, int row) {
    Queue(list,
          [pending = theRows.Add({list, row})](Window& window) { PressRow(window, pending); });
}

void RowChosen(WidgetId list, int row) {
    if (thePress != nullptr && thePress->list == list) {
        thePress->cameUp = true;
        thePress->row = theRows.Add({list, row});
        return;
    }
    QueueForRow(list, row, &BuiltInControl::OnRowChosen);
}

void RowDoubleClicked(WidgetId list, int row) {
    QueueForRow(list, row, &BuiltInControl::OnRowDoubleClicked);
}

void Dropped(WidgetId combo, bool dropped) {
    QueueForControl(combo, [dropped](BuiltInControl& control) { control.OnDropped(dropped); });
}

void Scrolled(WidgetId bar, std::uint32_t code, int position) {
    QueueForControl(bar, [=](BuiltInControl& control) { control.OnScrolled(code, position); });
}

void Focused(WidgetId id) {
    Queue(id, FocusByPerson);
}

void Activated(WidgetId window, bool active) {
    Queue(window, [active](Window& changed) {
        if (active) {
            ActivatedByDesktop(&changed);
        } else if (GetActiveWindow() == changed.handle) {
            ActivatedByDesktop(nullptr);
        }
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
        if (const HMENU popup = PopupAt(opened.handle, position);
            popup != nullptr && opened.IsEnabled()) {
            SendMessageA(opened.handle, WM_INITMENUPOPUP, reinterpret_cast<WPARAM>(popup),
                         position);
        }
    });
}

void MenuChosen(WidgetId window, std::uint32_t command) {
    QueueInputMessage(ToHandle<HWND>(window), WM_COMMAND, command, 0);
}

void MenuEnded(std::uint32_t command) {
    QueueInput([command] { PopupEnded(command); });
}

void FileChosen(const std::string& path) {
    QueueInput([path] { FileAnswered(path); });
}

void Mouse(WidgetId id, std::uint32_t message, Point where) {
    QueueInputMessage(ToHandle<HWND>(id), message, 0, MAKELPARAM(where.x, where.y));
}

void Wheel(WidgetId id, int turned, Point where) {
    const HWND window = ToHandle<HWND>(id);
    POINT onDesktop{where.x, where.y};
    ClientToScreen(window, &onDesktop);
    QueueInputMessage(window, WM_MOUSEWHEEL, MAKEWPARAM(0, turned),
                      MAKELPARAM(onDesktop.x, onDesktop.y));
}

namespace {

// The Menu key, or Shift+F10 in its place, asks a control's parents for a menu, but where the
// control's own widget has one of what can be done with its text.
bool AsksForMenu(const BuiltInControl& control, const KeyPress& key) {
    switch (control.Kind()) {
        case WidgetKind::kLineEdit:
        case WidgetKind::kTextEdit:
        case WidgetKind::kComboBox:
        case WidgetKind::kSimpleCombo:
            return false;
        default:
            return key.virtualKey == VK_APPS ||
                   (key.virtualKey == VK_F10 && key.shift && !key.control);
    }
}

bool IsSystemKey(const KeyPress& key) {
    return key.alt || (key.virtualKey == VK_F10 && !key.control);
}

}  // namespace

bool KeyPressed(WidgetId id, const KeyPress& key) {
    Window* window = FindWindowOf(ToHandle<HWND>(id));
    if (window == nullptr)
        return false;
    const UINT message = IsSystemKey(key) ? WM_SYSKEYDOWN : WM_KEYDOWN;
    // Only plain letters are marked in captions.
    const char letter = key.character < 0x80 ? static_cast<char>(key.character) : '\0';
    const bool forDialog = IsDialogKey(*window, message, key.virtualKey, letter);
    // Windows of the program's own classes get all keys; a control's own widget handles the rest.
    if (!forDialog && window->control != nullptr && !window->control->TakesKey(key.virtualKey) &&
        !AsksForMenu(*window->control, key)) {
        return false;
    }
    QueueInput([key] { SetModifiers(key.shift, key.control, key.alt); });
    QueueKeyMessage(message, key.virtualKey, KeyDetails(key.character));
    return true;
}

void KeyReleased(const KeyPress& key) {
    QueueInput([key] { SetModifiers(key.shift, key.control, key.alt); });
    QueueKeyMessage(IsSystemKey(key) ? WM_SYSKEYUP : WM_KEYUP, key.virtualKey, 0);
}

}  // namespace vxd::input
