#include "services/remembered_fields.h"

#include <cstdint>
#include <vector>

#include "services/dialog_kit.h"
#include "services/number_field.h"

void RecallHexFields(HWND dialog, std::span<const RememberedHexField> fields) {
    for (const RememberedHexField& field : fields) {
        ShowField(dialog, field.id, "0x%02hX", static_cast<uint16_t>(ReadSetting(field.setting)));
    }
}

void RememberHexFields(HWND dialog, std::span<const RememberedHexField> fields,
                       std::vector<SettingText> values) {
    for (const auto& [id, setting] : fields) {
        values.push_back(TextOf(setting, static_cast<uint16_t>(ReadHexShort(dialog, id))));
    }
    WriteSettings(values);
}
