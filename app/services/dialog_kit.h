// What the dialog modules share. User-interface thread.
#pragma once

#include <cstdint>
#include <span>
#include <string>

#include "platform/win32.h"

// Runs a dialog of the program's resources; gives what it was ended with, -1 if it cannot be shown.
INT_PTR RunDialog(HINSTANCE instance, int templateId, HWND owner, DLGPROC procedure);

// A field's text, cut to `capacity` - 1 characters.
std::string FieldText(HWND dialog, int id, std::size_t capacity);
// Shows a text made by snprintf's rules, of at most 255 characters.
[[gnu::format(printf, 3, 4)]] void ShowField(HWND dialog, int id, const char* format, ...);

// A row of a combo box: a name, and a number that the row carries as item data.
struct NamedNumber {
    const char* name;
    uint32_t number;
};

// Appends the rows in order.
void AddComboRows(HWND dialog, int id, std::span<const NamedNumber> rows);
// The selected row's number; the first row counts as selected where none is.
uint32_t SelectedNumber(HWND dialog, int id);
