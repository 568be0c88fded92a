#include "codec/bas_commands.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"
#include "services/remembered_fields.h"
#include "services/settings.h"

namespace {

// Characters of a decimal field that count, with the terminator.
constexpr std::size_t kField = 16;

struct NumberField {
    int id;
    IntegerSetting setting;
};

// Decimal numbers.
constexpr NumberField kCommandCount{IDC_BAS_COMMAND_COUNT, setting::kBasCommandCount};
constexpr NumberField kRepeatCount{IDC_BAS_REPEAT_COUNT, setting::kBasRepeatCount};
constexpr NumberField kLength{IDC_BAS_LENGTH, setting::kBasLength};
constexpr std::array kNumbers{kCommandCount, kRepeatCount, kLength};

// Hexadecimal bytes, in the order in which they are sent.
constexpr auto kData = std::to_array<RememberedHexField>({
    {IDC_BAS_DATA_1, setting::kBasData[1]},
    {IDC_BAS_DATA_2, setting::kBasData[2]},
    {IDC_BAS_DATA_3, setting::kBasData[3]},
    {IDC_BAS_DATA_4, setting::kBasData[4]},
    {IDC_BAS_DATA_5, setting::kBasData[5]},
    {IDC_BAS_DATA_6, setting::kBasData[6]},
});

void ShowRemembered(HWND dialog) {
    for (const NumberField& field : kNumbers) {
        const auto number = static_cast<uint16_t>(ReadSetting(field.setting));
        ShowField(dialog, field.id, "%02i", int{number});
    }
    RecallHexFields(dialog, kData);
}

int32_t NumberIn(HWND dialog, const NumberField& field) {
    return ParseDecimal(FieldText(dialog, field.id, kField));
}

void ApplyBASCall(HWND dialog) {
    std::array<uint8_t, kData.size()> data{};
    for (std::size_t i = 0; i < data.size(); ++i) {
        data[i] = static_cast<uint8_t>(ReadHexShort(dialog, kData[i].id));
    }
    const uint32_t result =
        vdapi_BAS_Write(NumberIn(dialog, kCommandCount), NumberIn(dialog, kRepeatCount),
                        data.data(), NumberIn(dialog, kLength));
    ReportFailure(dialog, CodeOf(result), "ApplyBASCall: calling vdapi_BAS_Write");
}

void RememberAndClose(HWND dialog) {
    std::vector<SettingText> numbers;
    for (const NumberField& field : kNumbers) {
        numbers.push_back(TextOf(field.setting, static_cast<uint16_t>(NumberIn(dialog, field))));
    }
    RememberHexFields(dialog, kData, numbers);
    EndDialog(dialog, 0);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_BAS_UPDATE, ApplyBASCall},
    {IDCANCEL, RememberAndClose},
});

}  // namespace

INT_PTR OpenBasCommands(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_BAS_COMMANDS, owner, {ShowRemembered, kActions});
}
