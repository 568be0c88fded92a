#include "services/dialog_kit.h"

#include <cstdarg>
#include <cstdio>
#include <vector>

#include "services/diagnostics.h"

namespace {

constexpr std::size_t kFieldBuffer = 256;

struct OpenDialog {
    const DialogRules& rules;
    void* state;
    int running = 0;  // functions of the dialog's own that have not returned yet
};

class Running {
  public:
    explicit Running(OpenDialog& open) : open_(open) { ++open_.running; }
    ~Running() { --open_.running; }
    Running(const Running&) = delete;
    Running& operator=(const Running&) = delete;

  private:
    OpenDialog& open_;
};

// Null until the dialog is initialised.
OpenDialog* OpenDialogOf(HWND dialog) {
    return reinterpret_cast<OpenDialog*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

void Begin(HWND dialog, OpenDialog& open) {
    const Running running(open);
    SetWindowLongPtrA(dialog, DWLP_USER, reinterpret_cast<LONG_PTR>(&open));
    if (open.rules.open != nullptr)
        open.rules.open(dialog);
}

void End(HWND dialog, OpenDialog& open) {
    const Running running(open);
    if (open.rules.end != nullptr)
        open.rules.end(dialog);
}

bool AnswerCommand(HWND dialog, OpenDialog& open, int id, int code) {
    if (open.running > 0 && BoxIsOpen())
        return false;
    const Running running(open);
    for (const DialogAction& action : open.rules.actions) {
        if (action.id == id && action.code == code) {
            action.run(dialog);
            return true;
        }
    }
    return open.rules.otherwise != nullptr && open.rules.otherwise(dialog, id, code);
}

bool AnswerMessage(HWND dialog, OpenDialog& open, UINT message, WPARAM wParam, LPARAM lParam) {
    const Running running(open);
    for (const DialogMessage& named : open.rules.messages) {
        if (named.message == message) {
            named.run(dialog, wParam, lParam);
            return true;
        }
    }
    return false;
}

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        Begin(dialog, *reinterpret_cast<OpenDialog*>(lParam));
        return TRUE;
    }
    OpenDialog* const open = OpenDialogOf(dialog);
    if (open == nullptr)
        return FALSE;
    switch (message) {
        case WM_COMMAND:
            return AnswerCommand(dialog, *open, LOWORD(wParam), HIWORD(wParam));
        case WM_DESTROY:
            End(dialog, *open);
            return TRUE;
        default:
            return AnswerMessage(dialog, *open, message, wParam, lParam);
    }
}

}  // namespace

INT_PTR RunDialog(HINSTANCE instance, int templateId, HWND owner, const DialogRules& rules,
                  void* state) {
    OpenDialog open{rules, state};
    return DialogBoxParamA(instance, MAKEINTRESOURCEA(templateId), owner, DialogProcedure,
                           reinterpret_cast<LPARAM>(&open));
}

void* StateBehind(HWND dialog) {
    return OpenDialogOf(dialog)->state;
}

std::string FieldText(HWND dialog, int id, std::size_t capacity) {
    std::vector<char> text(capacity);
    GetDlgItemTextA(dialog, id, text.data(), static_cast<int>(capacity));
    return text.data();
}

void ShowField(HWND dialog, int id, const char* format, ...) {
    char text[kFieldBuffer];
    va_list arguments;
    va_start(arguments, format);
    std::vsnprintf(text, sizeof text, format, arguments);
    va_end(arguments);
    SetDlgItemTextA(dialog, id, text);
}

void FocusOn(HWND dialog, int id) {
    const HWND control = GetDlgItem(dialog, id);
    if (IsWindowEnabled(control))
        SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
}

int CheckedButton(HWND dialog, int first, int last) {
    for (int id = first; id <= last; ++id) {
        if (IsDlgButtonChecked(dialog, id) == BST_CHECKED)
            return id;
    }
    return first;
}

void AddComboRows(HWND dialog, int id, std::span<const NamedNumber> rows) {
    const HWND combo = GetDlgItem(dialog, id);
    for (const NamedNumber& row : rows) {
        const LRESULT position =
            SendMessageA(combo, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row.name));
        if (position == CB_ERR || position == CB_ERRSPACE)
            return;
        SendMessageA(combo, CB_SETITEMDATA, static_cast<WPARAM>(position),
                     static_cast<LPARAM>(row.number));
    }
}

void SelectRow(HWND dialog, int id, std::size_t row) {
    const auto count = static_cast<std::size_t>(SendDlgItemMessageA(dialog, id, CB_GETCOUNT, 0, 0));
    SendDlgItemMessageA(dialog, id, CB_SETCURSEL, row < count ? row : static_cast<WPARAM>(-1), 0);
}

std::optional<uint16_t> SelectedRow(HWND dialog, int id) {
    const LRESULT row = SendDlgItemMessageA(dialog, id, CB_GETCURSEL, 0, 0);
    return row == CB_ERR ? std::nullopt : std::optional(static_cast<uint16_t>(row));
}

uint32_t SelectedNumber(HWND dialog, int id) {
    const WPARAM row = SelectedRow(dialog, id).value_or(0);
    return static_cast<uint32_t>(SendDlgItemMessageA(dialog, id, CB_GETITEMDATA, row, 0));
}
