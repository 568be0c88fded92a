#include "services/settings.h"

#include <string>

#include "platform/win32.h"

int ReadSetting(const IntegerSetting& setting) {
    return static_cast<int>(
        GetPrivateProfileIntA(setting.section, setting.key, setting.defaultValue, setting.file));
}

void WriteSetting(const IntegerSetting& setting, int value) {
    WritePrivateProfileStringA(setting.section, setting.key, std::to_string(value).c_str(),
                               setting.file);
}
