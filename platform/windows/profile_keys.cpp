#include "platform/profile_keys.h"

#include <algorithm>

#include "platform/win32.h"

bool WriteProfileKeys(const char* section, std::span<const ProfileKey> keys, const char* file) {
    return std::ranges::all_of(keys, [=](const ProfileKey& key) {
        return WritePrivateProfileStringA(section, key.name.c_str(), key.value.c_str(), file) != 0;
    });
}
