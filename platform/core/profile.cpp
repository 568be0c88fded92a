// Profile files on disk.
//
// A file is never changed in place: a temporary file beside it takes its name, so that a reader, or
// a program killed at any moment, leaves or meets the old file or the new one. Who writes holds the
// lock of the folder, from reading the old text until the new one is in place; as the lock is on
// the folder itself, no lock file is left behind. A temporary file that a killed program has left
// is taken away by the next write into that folder.
#include <fcntl.h>
#include <pwd.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <cstring>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "platform/core/descriptor.h"
#include "platform/core/folder.h"
#include "platform/core/process.h"
#include "platform/core/profile_text.h"
#include "platform/win32.h"

namespace vxd {
namespace {

constexpr char kTemporaryName[] = ".vxdtest-profile.new";
constexpr mode_t kFolderMode = 0700;
constexpr mode_t kFileMode = 0600;
constexpr mode_t kModeBits = 07777;

enum class Access { kRead, kWrite };

std::string HomeFolder() {
    if (auto home = Environment("HOME"); home && !home->empty())
        return *home;
    std::array<char, 4096> texts;
    passwd entry;
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) == 0 && found != nullptr)
        return found->pw_dir;
    return {};
}

std::string SettingsFolder() {
    const auto configuration = Environment("XDG_CONFIG_HOME");
    if (configuration && configuration->starts_with('/'))
        return *configuration + "/vxdtest";
    return HomeFolder() + "/.config/vxdtest";
}

// Makes the folder and those it lies in.
void CreateFolder(const std::string& folder) {
    for (std::size_t slash = folder.find('/', 1); slash != std::string::npos;
         slash = folder.find('/', slash + 1))
        mkdir(folder.substr(0, slash).c_str(), kFolderMode);
    mkdir(folder.c_str(), kFolderMode);
}

Descriptor OpenFolder(const std::string& folder) {
    return Descriptor(open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
}

// Waits until no other open folder holds the lock; it ends with the descriptor.
bool Lock(const Descriptor& folder) {
    int result = 0;
    do {
        result = flock(folder.Get(), LOCK_EX);
    } while (result != 0 && errno == EINTR);
    return result == 0;
}

std::optional<std::string> ReadAll(const Descriptor& file, std::size_t expected) {
    std::string bytes(expected + 1, '\0');  // a whole read that is short is the file's end
    for (std::size_t length = 0;;) {
        const ssize_t count = read(file.Get(), bytes.data() + length, bytes.size() - length);
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return std::nullopt;
        length += static_cast<std::size_t>(count);
        if (length < bytes.size()) {
            bytes.resize(length);
            return bytes;
        }
        bytes.resize(2 * bytes.size());
    }
}

bool WriteAll(const Descriptor& file, std::string_view bytes) {
    while (!bytes.empty()) {
        const ssize_t count = write(file.Get(), bytes.data(), bytes.size());
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0)
            return false;
        bytes.remove_prefix(static_cast<std::size_t>(count));
    }
    return true;
}

// A profile file, opened or known to be missing.
struct Profile {
    Descriptor folder;
    std::string name;
    bool exists = false;
    struct stat status = {};
    std::string bytes;

    bool IsUtf16() const { return IsUtf16Profile(bytes); }
};

// Where a path leads: the folder, and the name in it.
struct Place {
    std::string folder;
    std::string name;
    bool inSettings = false;
};

// A bare name is one of the settings folder's.
Place PlaceOf(std::string_view path) {
    const std::size_t name = path.rfind('/') + 1;
    if (name == 0)
        return {SettingsFolder(), std::string(path), true};
    return {std::string(path.substr(0, name)), std::string(path.substr(name))};
}

std::optional<Place> FollowLink(const Descriptor& folder, const Place& link) {
    std::array<char, PATH_MAX> target;
    const ssize_t length =
        readlinkat(folder.Get(), link.name.c_str(), target.data(), target.size());
    if (length <= 0)
        return std::nullopt;
    const std::string_view path(target.data(), static_cast<std::size_t>(length));
    return path.starts_with('/') ? PlaceOf(path) : PlaceOf(link.folder + "/" + std::string(path));
}

Descriptor OpenFile(const Descriptor& folder, const std::string& name, Access access) {
    constexpr int kFlags = O_NOFOLLOW | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;
    const int flags = kFlags | (access == Access::kWrite ? O_RDWR : O_RDONLY);
    return Descriptor(openat(folder.Get(), name.c_str(), flags));
}

// Takes in what is in the file; false when it can't be read or is no regular file.
bool ReadInto(Profile& profile, const Descriptor& file) {
    if (fstat(file.Get(), &profile.status) != 0 || !S_ISREG(profile.status.st_mode))
        return false;
    auto bytes = ReadAll(file, static_cast<std::size_t>(profile.status.st_size));
    if (!bytes)
        return false;
    profile.exists = true;
    profile.bytes = std::move(*bytes);
    return true;
}

// Opens the folder; for writing, makes the settings folder where it is missing and takes the lock.
Descriptor EnterFolder(const Place& place, Access access) {
    Descriptor folder = OpenFolder(place.folder);
    if (access == Access::kRead)
        return folder;
    if (!folder && errno == ENOENT && place.inSettings) {
        CreateFolder(place.folder);
        folder = OpenFolder(place.folder);
    }
    return folder && Lock(folder) ? std::move(folder) : Descriptor();
}

// Opens and reads the file that the path stands for: the one of exactly this name, else one whose
// name differs in case only. Symbolic links are followed by hand, so that what is locked and
// replaced is the file at their end, which need not exist. Nothing when the folder or the file
// can't be used that way.
std::optional<Profile> OpenProfile(std::string_view path, Access access) {
    Place place = PlaceOf(path);
    constexpr int kMaxLinks = 40;
    for (int links = 0; links <= kMaxLinks; ++links) {
        Profile profile;
        profile.folder = EnterFolder(place, access);
        if (!profile.folder)
            return std::nullopt;
        Descriptor file = OpenFile(profile.folder, place.name, access);
        if (!file && errno == ENOENT) {
            if (const auto match = FindIgnoringCase(profile.folder.Get(), place.name)) {
                place.name = *match;
                file = OpenFile(profile.folder, place.name, access);
            } else {
                profile.name = place.name;
                return profile;
            }
        }
        if (file) {
            profile.name = place.name;
            return ReadInto(profile, file) ? std::optional(std::move(profile)) : std::nullopt;
        }
        if (errno != ELOOP)
            return std::nullopt;
        const auto target = FollowLink(profile.folder, place);
        if (!target)
            return std::nullopt;
        place = *target;
    }
    return std::nullopt;
}

// A file or folder that nobody may write is read-only even for those whom the system lets write it.
bool IsReadOnly(const struct stat& status) {
    return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
}

bool MayReplace(const Profile& profile) {
    struct stat folder;
    return fstat(profile.folder.Get(), &folder) == 0 && !IsReadOnly(folder) &&
           !(profile.exists && IsReadOnly(profile.status));
}

// Makes the temporary file, in place of one that was left.
Descriptor CreateTemporary(const Descriptor& folder) {
    const auto create = [&folder] {
        return openat(folder.Get(), kTemporaryName,
                      O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, kFileMode);
    };
    int file = create();
    if (file < 0 && errno == EEXIST && unlinkat(folder.Get(), kTemporaryName, 0) == 0)
        file = create();
    return Descriptor(file);
}

// Gives the new file the owner, as far as the system lets us, and the mode of the old one.
bool KeepOwnerAndMode(const Descriptor& file, const struct stat& old) {
    struct stat status;
    if (fstat(file.Get(), &status) != 0)
        return false;
    if (status.st_uid != old.st_uid || status.st_gid != old.st_gid) {
        if (fchown(file.Get(), old.st_uid, old.st_gid) != 0 &&
            fchown(file.Get(), static_cast<uid_t>(-1), old.st_gid) != 0)
            errno = 0;  // only the owner can give it away
    }
    return status.st_mode == old.st_mode || fchmod(file.Get(), old.st_mode & kModeBits) == 0;
}

// Gives the temporary file the profile's name. A plain rename over a file makes some file systems
// write the data to the disk at once, ten times the cost of all the rest; an exchange of the two
// names, where the system has it, does not. Both are one step.
bool TakeName(const Profile& profile) {
    const int folder = profile.folder.Get();
    const char* const name = profile.name.c_str();
    if (profile.exists && renameat2(folder, kTemporaryName, folder, name, RENAME_EXCHANGE) == 0) {
        unlinkat(folder, kTemporaryName, 0);
        return true;
    }
    return renameat(folder, kTemporaryName, folder, name) == 0;
}

bool Replace(const Profile& profile, std::string_view bytes) {
    const Descriptor file = CreateTemporary(profile.folder);
    if (!file)
        return false;
    const bool replaced = WriteAll(file, bytes) &&
                          (!profile.exists || KeepOwnerAndMode(file, profile.status)) &&
                          TakeName(profile);
    if (!replaced)
        unlinkat(profile.folder.Get(), kTemporaryName, 0);
    return replaced;
}

// Applies to the file's text a function that gives the new text, or nothing where it need not
// change.
template <typename Change>
bool ChangeProfile(LPCSTR path, Change change) {
    const auto profile = OpenProfile(path, Access::kWrite);
    if (!profile || !MayReplace(*profile))
        return false;
    if (profile->IsUtf16()) {
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
    if (profile->IsUtf16())
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
    return value ? vxd::LeadingNumber(*value) : static_cast<UINT>(defaultValue);
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

UINT WINAPI GetWindowsDirectoryA(LPSTR folder, UINT capacity) {
    const std::string path = vxd::SettingsFolder();
    if (folder == nullptr || path.size() >= capacity)
        return static_cast<UINT>(path.size() + 1);
    return vxd::CopyCut(path, folder, capacity);
}
