// The codec processor's variables that were used last, as a combo box lists them: the latest first,
// each with the unit and count that it was used with. Kept in the settings between runs.
// User-interface thread.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

#include "platform/win32.h"

// Characters of a name, with the terminator.
inline constexpr std::size_t kVariableName = 128;

// How a variable was used: the row of its unit in the list of units, and how many elements.
struct VariableShape {
    uint16_t unit = 0;
    uint16_t count = 0;
};

// Appends the names of the settings up to the first that is missing, but none twice. Whether there
// was any.
bool LoadRecentVariables(HWND combo);

// Puts the list's names and shapes into the settings, each under its place. What an earlier, longer
// list has left behind stays there, behind the end or not.
void SaveRecentVariables(HWND combo);

// Whether the list has a name that begins with this one, ignoring case.
bool HasRecentVariable(HWND combo, const std::string& name);

// Puts a name at the top. The edit and the selection stay.
void InsertRecentVariable(HWND combo, const std::string& name, VariableShape shape);

// Puts a name that was used at the top and selects it. It takes the place of the first one that
// begins with it, ignoring case.
void AddRecentVariable(HWND combo, const std::string& name, VariableShape shape);

// The shape of a row of the list, which must be there.
VariableShape ShapeOfRow(HWND combo, uint16_t row);
