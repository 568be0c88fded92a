// How the dialogs that reach the board by plain addresses take numbers from their fields.
// User-interface thread.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "platform/win32.h"
#include "services/settings.h"

// The number behind the first "0x" in a field: 0 without a digit there, nothing for 0xFFFFFFFF,
// which stands for "no number" and is also what one of more than 32 bits counts as. A field without
// "0x" gives nothing either, after a message box that says so.
std::optional<uint32_t> ReadHexField(HWND dialog, int id);

// A field whose 16-bit number is remembered between openings.
struct RememberedHexField {
    int id;
    IntegerSetting setting;
};

// Shows what is remembered with at least two digits after "0x".
void RecallHexFields(HWND dialog, std::span<const RememberedHexField> fields);
// Remembers the low 16 bits of what stands in the fields.
void RememberHexFields(HWND dialog, std::span<const RememberedHexField> fields);
