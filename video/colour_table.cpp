#include "video/colour_table.h"

#include <array>
#include <optional>
#include <string>
#include <vector>

#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

// Characters of the value field that count, with the terminator.
constexpr std::size_t kValueField = 16;

const ColourTable& TableOf(HWND dialog) {
    return *StateOf<const ColourTable*>(dialog);
}

template <typename... Arguments>
void Run(HWND dialog, const NamedOperation<Arguments...>& operation, Arguments... arguments) {
    ReportFailure(dialog, operation.run(arguments...), operation.name);
}

std::optional<uint32_t> ChosenEntry(HWND dialog) {
    const auto row = SelectedRow(dialog, IDC_COLOURS_ENTRY);
    return row ? std::optional(static_cast<uint32_t>(TableOf(dialog).firstEntry) + *row)
               : std::nullopt;
}

uint32_t ChosenOrFirstEntry(HWND dialog) {
    return ChosenEntry(dialog).value_or(static_cast<uint32_t>(TableOf(dialog).firstEntry));
}

void ShowColour(HWND dialog, uint32_t entry) {
    ShowField(dialog, IDC_COLOURS_VALUE, "0x%08lX",
              static_cast<unsigned long>(TableOf(dialog).colours[entry]));
}

// A colour that can't be read counts as 0.
void ReadEntry(HWND dialog) {
    const ColourTable& table = TableOf(dialog);
    if (const auto entry = ChosenEntry(dialog)) {
        uint32_t colour = 0;
        Run(dialog, table.readEntry, *entry, &colour);
        table.colours[*entry] = colour;
        ShowColour(dialog, *entry);
    }
}

void WriteEntry(HWND dialog) {
    const ColourTable& table = TableOf(dialog);
    if (const auto entry = ChosenEntry(dialog)) {
        const uint32_t colour =
            ParseHexLongAfterPrefix(FieldText(dialog, IDC_COLOURS_VALUE, kValueField));
        table.colours[*entry] = colour;
        Run(dialog, table.writeEntry, *entry, colour);
    }
}

void ReadAll(HWND dialog) {
    const ColourTable& table = TableOf(dialog);
    if (table.readsAllAtOpening || ChosenEntry(dialog)) {
        Run(dialog, table.readAll, table.colours.data());
        ShowColour(dialog, ChosenOrFirstEntry(dialog));
    }
}

void WriteAll(HWND dialog) {
    const ColourTable& table = TableOf(dialog);
    Run<const uint32_t*>(dialog, table.writeAll, table.colours.data());
}

void FillList(HWND dialog, const ColourTable& table) {
    const auto entries = static_cast<int>(table.colours.size());
    for (int entry = table.firstEntry; entry < entries; ++entry) {
        SendDlgItemMessageA(dialog, IDC_COLOURS_ENTRY, CB_ADDSTRING, 0,
                            reinterpret_cast<LPARAM>(std::to_string(entry).c_str()));
    }
}

// Nothing where the entry that is remembered is none of the list's.
void ChooseRememberedEntry(HWND dialog, const ColourTable& table) {
    const int entry = ReadSetting(table.initialEntry);
    if (entry >= table.firstEntry && entry < static_cast<int>(table.colours.size())) {
        SendDlgItemMessageA(dialog, IDC_COLOURS_ENTRY, CB_SETCURSEL,
                            static_cast<WPARAM>(entry - table.firstEntry), 0);
    }
}

void Open(HWND dialog) {
    const ColourTable& table = TableOf(dialog);
    FillList(dialog, table);
    ReadAll(dialog);
    ChooseRememberedEntry(dialog, table);
    ReadEntry(dialog);
}

// All together, so that the end of the program leaves no table of two times.
void Store(HWND dialog) {
    const ColourTable& table = TableOf(dialog);
    std::vector<SettingText> values;
    const auto entries = static_cast<int>(table.colours.size());
    for (int entry = table.firstEntry; entry < entries; ++entry) {
        const uint32_t colour = table.colours[static_cast<std::size_t>(entry)];
        values.push_back(TextOf(table.red[entry], static_cast<uint8_t>(colour)));
        values.push_back(TextOf(table.green[entry], static_cast<uint8_t>(colour >> 8)));
        values.push_back(TextOf(table.blue[entry], static_cast<uint8_t>(colour >> 16)));
    }
    values.push_back(TextOf(table.initialEntry, static_cast<int>(ChosenOrFirstEntry(dialog))));
    WriteSettings(values);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_COLOURS_ENTRY, ReadEntry, CBN_SELCHANGE},
    {IDC_COLOURS_UPDATE, WriteEntry},
    {IDC_COLOURS_READ_ALL, ReadAll},
    {IDC_COLOURS_WRITE_ALL, WriteAll},
    {IDOK, Accept<Store>},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR RunColourTable(HINSTANCE instance, HWND owner, const ColourTable& table) {
    const ColourTable* state = &table;
    return RunDialog(instance, table.dialog, owner, {Open, kActions}, &state);
}
