#include "services/dialog_kit.h"

#include <cstdarg>
#include <cstdio>
#include <vector>

namespace {

constexpr std::size_t kFieldBuffer = 256;

struct OpenDialog {
    const DialogRules& rules;
    void* state;
};

// Null until the dialog is initialised.
OpenDialog* OpenDialogOf(HWND dialog) {
    return reinterpret_cast<OpenDialog*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

bool Answer(HWND dialog, int id, int code) {
    const OpenDialog* open = OpenDialogOf(dialog);
    if (open == nullptr)
        return false;
    for (const DialogAction& action : open->rules.actions) {
        if (action.id == id && action.code == code) {
            action.run(dialog);
            return true;
        }
    }
    return open->rules.otherwise != nullptr && open->rules.otherwise(dialog, id, code);
}

INT_PTR CALLBACK DialogProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_INITDIALOG:
            SetWindowLongPtrA(dialog, DWLP_USER, lParam);
            if (const auto open = OpenDialogOf(dialog)->rules.open; open != nullptr)
                open(dialog);
            return TRUE;
        case WM_COMMAND:
            return Answer(dialog, LOWORD(wParam), HIWORD(wParam));
        default:
            return FALSE;
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

uint32_t SelectedNumber(HWND dialog, int id) {
    const LRESULT selected = SendDlgItemMessageA(dialog, id, CB_GETCURSEL, 0, 0);
    const WPARAM row = selected == CB_ERR ? 0 : static_cast<WPARAM>(selected);
    return static_cast<uint32_t>(SendDlgItemMessageA(dialog, id, CB_GETITEMDATA, row, 0));
}
