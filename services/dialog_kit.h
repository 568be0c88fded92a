// What the dialog modules share. User-interface thread.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "platform/win32.h"

// What a control's notification makes a dialog do.
struct DialogAction {
    int id;
    void (*run)(HWND dialog);
    int code = BN_CLICKED;  // also the code of Enter and Escape
};

// What any other message makes a dialog do, which is all that is done about it: WM_TIMER, WM_PAINT,
// the mouse's, those that the driver posts.
struct DialogMessage {
    UINT message;
    void (*run)(HWND dialog, WPARAM wParam, LPARAM lParam);
};

// What a dialog does. What it does not name is left to Windows.
//
// While a message box that it opened itself is shown, a dialog answers no notification: the box
// takes the focus and gives it back, and what the controls tell of that would report the failure
// behind the box again and again.
struct DialogRules {
    // Fills the controls before the dialog is shown; null where the template says it all.
    void (*open)(HWND dialog) = nullptr;
    std::span<const DialogAction> actions = {};
    // Answers the notifications that `actions` does not name; whether there was an answer.
    bool (*otherwise)(HWND dialog, int id, int code) = nullptr;
    std::span<const DialogMessage> messages = {};
    // Gives back what `open` took, whichever way the dialog ends; the controls still exist.
    void (*end)(HWND dialog) = nullptr;
};

// Runs a dialog of the program's resources; gives what it was ended with, -1 if it cannot be shown.
// What the dialog keeps while it is open is the caller's.
INT_PTR RunDialog(HINSTANCE instance, int templateId, HWND owner, const DialogRules& rules,
                  void* state = nullptr);

// The state that RunDialog was given.
void* StateBehind(HWND dialog);
template <typename State>
State& StateOf(HWND dialog) {
    return *static_cast<State*>(StateBehind(dialog));
}

// Actions that end a dialog: with a result, or with 1 once it has taken the choice in its fields.
template <INT_PTR kResult>
void EndWith(HWND dialog) {
    EndDialog(dialog, kResult);
}
template <void (*kTake)(HWND dialog)>
void Accept(HWND dialog) {
    kTake(dialog);
    EndDialog(dialog, 1);
}

// A field's text, cut to `capacity` - 1 characters.
std::string FieldText(HWND dialog, int id, std::size_t capacity);
// Shows a text made by snprintf's rules, of at most 255 characters.
[[gnu::format(printf, 3, 4)]] void ShowField(HWND dialog, int id, const char* format, ...);

// Gives a control the focus as Tab does: a field's text stands ready to be typed over. One that is
// disabled is passed by.
void FocusOn(HWND dialog, int id);

// The checked radio button among those with ids from `first` to `last`; `first` where none is.
int CheckedButton(HWND dialog, int first, int last);

// A row of a combo box: a name, and a number that the row carries as item data.
struct NamedNumber {
    const char* name;
    uint32_t number;
};

// Appends the rows in order, as far as the box takes them.
void AddComboRows(HWND dialog, int id, std::span<const NamedNumber> rows);
// Selects the row of that number, counted from 0; none where there is no such row.
void SelectRow(HWND dialog, int id, std::size_t row);
// The number of the selected row, counted from 0; nothing where none is.
std::optional<uint16_t> SelectedRow(HWND dialog, int id);
// What the selected row carries; the first row counts as selected where none is.
uint32_t SelectedNumber(HWND dialog, int id);
