#include "services/settings.h"

#include <string_view>
#include <vector>

#include "platform/profile_keys.h"
#include "platform/win32.h"

namespace {

constexpr std::string_view kNumberPlace = "%d";

template <typename Value>
std::string KeyOf(const Setting<Value>& setting) {
    std::string key = setting.key;
    if (const std::size_t place = key.find(kNumberPlace); place != std::string::npos)
        key.replace(place, kNumberPlace.size(), std::to_string(setting.number));
    return key;
}

template <typename Value>
void Write(const Setting<Value>& setting, const std::string& text) {
    WritePrivateProfileStringA(setting.section, KeyOf(setting).c_str(), text.c_str(), setting.file);
}

}  // namespace

int ReadSetting(const IntegerSetting& setting) {
    return static_cast<int>(GetPrivateProfileIntA(setting.section, KeyOf(setting).c_str(),
                                                  setting.defaultValue, setting.file));
}

void WriteSetting(const IntegerSetting& setting, int value) {
    Write(setting, std::to_string(value));
}

std::string ReadSetting(const TextSetting& setting, std::size_t capacity) {
    std::vector<char> text(capacity);
    GetPrivateProfileStringA(setting.section, KeyOf(setting).c_str(), setting.defaultValue,
                             text.data(), static_cast<DWORD>(capacity), setting.file);
    return text.data();
}

void WriteSetting(const TextSetting& setting, const std::string& text) {
    Write(setting, text);
}

SettingText TextOf(const IntegerSetting& setting, int64_t value) {
    return {{setting.file, setting.section, setting.key, "", setting.number},
            std::to_string(value)};
}

void WriteSettings(std::span<const SettingText> values) {
    if (values.empty())
        return;
    std::vector<ProfileKey> keys;
    for (const SettingText& value : values)
        keys.push_back({KeyOf(value.setting), value.text});
    WriteProfileKeys(values.front().setting.section, keys, values.front().setting.file);
}
