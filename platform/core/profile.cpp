// Win32's functions of profile files.
#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/core/profile_file.h"
#include "platform/core/profile_text.h"
#include "platform/profile_keys.h"
#include "platform/win32.h"

namespace vxd {
namespace {

// Applies to the file's text a function that gives the new text, or nothing where it need not
// change.
template <typename Change>
bool ChangeProfile(LPCSTR path, Change change) {
    const auto profile = OpenProfile(path, Access::kWrite);
    if (!profile || !MayReplace(*profile))
        return false;
    if (IsUtf16Profile(profile->bytes)) {
        const auto text = change(TextOfUtf16Profile(profile->bytes));
        return !text || Replace(*profile, Utf16ProfileOf(*text));
    }
    const std::optional<std::string> text = change(profile->bytes);
    return !text || Replace(*profile, *text);
}

// The value of a key; nothing where there is none.
std::optional<std::string> ReadValue(LPCSTR section, LPCSTR key, LPCSTR path) {
    if (section == nullptr || key == nullptr || path == nullptr)
        return std::nullopt;
    auto profile = OpenProfile(path, Access::kRead);
    if (!profile)
        return std::nullopt;
    if (IsUtf16Profile(profile->bytes))
        profile->bytes = TextOfUtf16Profile(profile->bytes);
    const auto value = FindProfileValue(profile->bytes, section, key);
    return value ? std::optional<std::string>(*value) : std::nullopt;
}

// Copies what fits and a zero; gives the number of characters copied.
DWORD CopyCut(std::string_view from, LPSTR text, DWORD capacity) {
    if (text == nullptr || capacity == 0)
        return 0;
    from = from.substr(0, capacity - 1);
    std::memcpy(text, from.data(), from.size());
    text[from.size()] = '\0';
    return static_cast<DWORD>(from.size());
}

// A sign and decimal digits as far as they go, in 32 bits that wrap.
UINT LeadingNumber(std::string_view text) {
    const bool negative = text.starts_with('-');
    if (negative || text.starts_with('+'))
        text.remove_prefix(1);
    UINT number = 0;
    for (; !text.empty() && text[0] >= '0' && text[0] <= '9'; text.remove_prefix(1))
        number = number * 10 + static_cast<UINT>(text[0] - '0');
    return negative ? 0 - number : number;
}

// A name with a line break would change other lines.
bool IsOneLine(std::string_view name) {
    return name.find_first_of("\r\n") == std::string_view::npos;
}

}  // namespace
}  // namespace vxd

UINT WINAPI GetPrivateProfileIntA(LPCSTR section, LPCSTR key, INT defaultValue, LPCSTR file) {
    const auto value = vxd::ReadValue(section, key, file);
    const bool isThere = value.has_value() && !value->empty();
    return isThere ? vxd::LeadingNumber(*value) : static_cast<UINT>(defaultValue);
}

DWORD WINAPI GetPrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR defaultText, LPSTR text,
                                      DWORD capacity, LPCSTR file) {
    if (section == nullptr || key == nullptr)
        return vxd::CopyCut({}, text, capacity);
    if (const auto value = vxd::ReadValue(section, key, file))
        return vxd::CopyCut(*value, text, capacity);
    std::string_view otherwise = defaultText != nullptr ? defaultText : "";
    while (otherwise.ends_with(' '))
        otherwise.remove_suffix(1);
    return vxd::CopyCut(otherwise, text, capacity);
}

BOOL WINAPI WritePrivateProfileStringA(LPCSTR section, LPCSTR key, LPCSTR text, LPCSTR file) {
    if (section == nullptr || file == nullptr || !vxd::IsOneLine(section) ||
        (key != nullptr && !vxd::IsOneLine(key)))
        return FALSE;
    return vxd::ChangeProfile(file, [=](std::string_view profile) {
        if (key == nullptr)
            return vxd::DeleteProfileSection(profile, section);
        if (text == nullptr)
            return vxd::DeleteProfileKey(profile, section, key);
        return vxd::SetProfileValue(profile, section, key, text);
    });
}

bool WriteProfileKeys(const char* section, std::span<const ProfileKey> keys, const char* file) {
    const auto isOneLine = [](const ProfileKey& key) { return vxd::IsOneLine(key.name); };
    if (!vxd::IsOneLine(section) || !std::ranges::all_of(keys, isOneLine))
        return false;
    return vxd::ChangeProfile(file, [=](std::string_view profile) {
        std::optional<std::string> changed;
        for (const ProfileKey& key : keys) {
            auto text = vxd::SetProfileValue(changed ? std::string_view(*changed) : profile,
                                             section, key.name, key.value);
            if (text)
                changed = std::move(text);
        }
        return changed;
    });
}

UINT WINAPI GetWindowsDirectoryA(LPSTR folder, UINT capacity) {
    const std::string path = vxd::SettingsFolder();
    if (folder == nullptr || path.size() >= capacity)
        return static_cast<UINT>(path.size() + 1);
    return vxd::CopyCut(path, folder, capacity);
}
