// The dialogs of the encoder's colour tables: an entry is chosen, read, changed; the whole table is
// read and written. Both are this mechanism, each with a descriptor of its own. A colour is
// 0x00BBGGRR. User-interface thread.
#pragma once

#include <cstdint>
#include <span>

#include "driver/result_code.h"
#include "platform/win32.h"
#include "services/settings.h"

// One of the driver's operations, and the name under which its failure is reported.
template <typename... Arguments>
struct NamedOperation {
    ResultCode (*run)(Arguments... arguments);
    const char* name;
};

struct ColourTable {
    int dialog;  // the template
    // The program's own copy of the whole table, which the driver fills and takes.
    std::span<uint32_t> colours;
    int firstEntry;  // that the list offers; it offers all behind it
    // Read at the opening, before an entry is chosen; else reading all wants one to be chosen.
    bool readsAllAtOpening;

    NamedOperation<uint32_t, uint32_t*> readEntry;
    NamedOperation<uint32_t, uint32_t> writeEntry;
    NamedOperation<uint32_t*> readAll;
    NamedOperation<const uint32_t*> writeAll;

    IntegerSetting initialEntry;
    // Of each entry, for other programs; they are never read.
    IntegerSetting red;
    IntegerSetting green;
    IntegerSetting blue;
};

// Runs a table's dialog modally over `owner`. Gives 1 after "&Close", which has stored the colours
// and the entry that was chosen, 0 after cancel.
INT_PTR RunColourTable(HINSTANCE instance, HWND owner, const ColourTable& table);
