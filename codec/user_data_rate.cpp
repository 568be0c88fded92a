#include "codec/user_data_rate.h"

#include <array>
#include <cstddef>
#include <span>

#include "res/resource.h"
#include "services/dialog_kit.h"
#include "services/settings.h"

namespace {

constexpr auto kLsdRates = std::to_array<NamedNumber>({
    {"003", 0x8000},
    {"012", 0x8001},
    {"048", 0x8002},
    {"064", 0x8003},
    {"080", 0x8004},
    {"096", 0x8005},
    {"144", 0x8006},
    {"160", 0x8007},
    {"240", 0x8008},
    {"320", 0x8009},
    {"400", 0x800A},
    {"480", 0x800B},
    {"560", 0x800C},
    {"624", 0x800D},
    {"640", 0x800E},
    {"OFF", 0x80FF},
});

constexpr auto kHsdRates = std::to_array<NamedNumber>({
    {"0640", 0x9000},
    {"1280", 0x9001},
    {"1920", 0x9002},
    {"2560", 0x9003},
    {"3200", 0x9004},
    {"3840", 0x9005},
    {"OFF ", 0x90FF},
});

constexpr auto kMlpRates = std::to_array<NamedNumber>({
    {"040", 0xA000},
    {"064", 0xA001},
    {"080", 0xA002},
    {"144", 0xA003},
    {"160", 0xA004},
    {"224", 0xA005},
    {"240", 0xA006},
    {"304", 0xA007},
    {"320", 0xA008},
    {"384", 0xA009},
    {"400", 0xA00A},
    {"464", 0xA00B},
    {"624", 0xA00C},
    {"640", 0xA00D},
    {"OFF", 0xA0FF},
});

constexpr auto kFurtherRates = std::to_array<NamedNumber>({
    {"0624", 0xB000},
    {"0640", 0xB001},
    {"1280", 0xB002},
    {"1920", 0xB003},
    {"2560", 0xB004},
    {"3200", 0xB005},
    {"3840", 0xB006},
    {"0144", 0xB007},
    {"OFF ", 0xB0FF},
});

struct RateTable {
    std::span<const NamedNumber> rows;
    const IntegerSetting* lastRow;  // where the row is remembered between runs, if it is
};

// In the order of the types.
constexpr auto kTables = std::to_array<RateTable>({
    {kLsdRates, &setting::kLsdRate},
    {kHsdRates, &setting::kHsdRate},
    {kMlpRates, &setting::kMlpRate},
    {kFurtherRates, nullptr},
});

// Kept for the whole run.
std::size_t currentType = 0;
std::size_t currentRow = 0;

void ShowRates(HWND dialog) {
    const RateTable& table = kTables[currentType];
    SendDlgItemMessageA(dialog, IDC_USER_DATA_RATE, CB_RESETCONTENT, 0, 0);
    AddComboRows(dialog, IDC_USER_DATA_RATE, table.rows);
    if (table.lastRow != nullptr) {
        currentRow = static_cast<uint16_t>(ReadSetting(*table.lastRow));
    }
    // A row beyond the list leaves it without a selection.
    SelectRow(dialog, IDC_USER_DATA_RATE, currentRow);
}

// Without a selection there is nothing to confirm yet.
void ConfirmRate(HWND dialog) {
    const auto selected = SelectedRow(dialog, IDC_USER_DATA_RATE);
    if (!selected) {
        return;
    }
    currentRow = *selected;
    if (const IntegerSetting* const lastRow = kTables[currentType].lastRow; lastRow != nullptr) {
        WriteSetting(*lastRow, *selected);
    }
    EndDialog(dialog, 1);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDOK, ConfirmRate},
    {IDCANCEL, EndWith<2>},
});

}  // namespace

INT_PTR OpenUserDataRate(HINSTANCE instance, HWND owner, uint32_t type) {
    if (type >= kTables.size()) {
        return 2;
    }
    currentType = type;
    return RunDialog(instance, IDD_USER_DATA_RATE, owner, {ShowRates, kActions});
}

uint16_t SelectedUserDataRate() {
    const std::span<const NamedNumber> rows = kTables[currentType].rows;
    return currentRow < rows.size() ? static_cast<uint16_t>(rows[currentRow].number) : 0;
}
