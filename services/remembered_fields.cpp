#include "services/remembered_fields.h"

#include <cstdint>
#include <string>
#include <vector>

#include "services/dialog_kit.h"
#include "services/number_field.h"

void RecallHexFields(HWND dialog, std::span<const RememberedHexField> fields) {
    for (const RememberedHexField& field : fields) {
        ShowField(dialog, field.id, "0x%02hX", static_cast<uint16_t>(ReadSetting(field.setting)));
    }
}

void RememberHexFields(HWND dialog, std::span<const RememberedHexField> fields) {
    std::vector<SettingText> values;
    for (const auto& [id, setting] : fields) {
        const auto number = static_cast<uint16_t>(ReadHexShort(dialog, id));
        values.push_back({{setting.file, setting.section, setting.key, "", setting.number},
                          std::to_string(number)});
    }
    WriteSettings(values);
}
