// What the dialog modules share. User-interface thread.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/win32.h"

// Runs a dialog of the program's resources; gives what it was ended with, -1 if it cannot be shown.
// The parameter comes with WM_INITDIALOG.
INT_PTR RunDialog(HINSTANCE instance, int templateId, HWND owner, DLGPROC procedure,
                  LPARAM parameter = 0);

// What a dialog keeps while it is open: its procedure hands in the parameter of WM_INITDIALOG, an
// address, and finds the state there from then on.
void KeepState(HWND dialog, LPARAM parameter);
template <typename State>
State& StateOf(HWND dialog) {
    return *reinterpret_cast<State*>(GetWindowLongPtrA(dialog, DWLP_USER));
}

// Ends a dialog that asks for a choice: OK has `accept` take it and gives 1, Cancel gives 0. False
// for any other control.
bool EndSelection(HWND dialog, int id, void (*accept)(HWND dialog));

// A field's text, cut to `capacity` - 1 characters.
std::string FieldText(HWND dialog, int id, std::size_t capacity);
// Shows a text made by snprintf's rules, of at most 255 characters.
[[gnu::format(printf, 3, 4)]] void ShowField(HWND dialog, int id, const char* format, ...);

// The checked radio button among those with ids from `first` to `last`; `first` where none is.
int CheckedButton(HWND dialog, int first, int last);

// A row of a combo box: a name, and a number that the row carries as item data.
struct NamedNumber {
    const char* name;
    uint32_t number;
};

// Appends the rows in order, as far as the box takes them.
void AddComboRows(HWND dialog, int id, std::span<const NamedNumber> rows);
// The selected row's number; the first row counts as selected where none is.
uint32_t SelectedNumber(HWND dialog, int id);
