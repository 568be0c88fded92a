// Fields whose numbers are remembered between openings of their dialog. User-interface thread.
#pragma once

#include <span>
#include <vector>

#include "platform/win32.h"
#include "services/settings.h"

// A hexadecimal number of 16 bits behind "0x".
struct RememberedHexField {
    int id;
    IntegerSetting setting;
};

// Shows what is remembered with at least two digits after "0x".
void RecallHexFields(HWND dialog, std::span<const RememberedHexField> fields);
// Remembers the low 16 bits of what stands in the fields (ReadHexShort), behind the other values of
// their dialog that are given, all of them in one step: they are of one section.
void RememberHexFields(HWND dialog, std::span<const RememberedHexField> fields,
                       std::vector<SettingText> values = {});
