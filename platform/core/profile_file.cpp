#include "platform/core/profile_file.h"

#include <fcntl.h>
#include <pwd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstdio>
#include <utility>

#include "platform/core/folder.h"
#include "platform/core/process.h"
#include "platform/core/profile_sync.h"

namespace vxd {
namespace {

constexpr char kTemporaryName[] = ".vxdtest-profile.new";
constexpr mode_t kFolderMode = 0700;
constexpr mode_t kFileMode = 0600;
constexpr mode_t kModeBits = 07777;

std::string HomeFolder() {
    if (auto home = Environment("HOME"); home && home->starts_with('/'))
        return *home;
    std::array<char, 4096> texts;
    passwd entry;
    passwd* found = nullptr;
    if (getpwuid_r(getuid(), &entry, texts.data(), texts.size(), &found) == 0 && found != nullptr)
        return found->pw_dir;
    return {};
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
    profile.isUnsynced = IsMarkedUnsynced(file);
    if (profile.isUnsynced && IsTorn(file, profile.status, *bytes)) {
        const Descriptor synced =
            OpenFile(profile.folder, SyncedNameOf(profile.name), Access::kRead);
        bytes = synced ? ReadAll(synced, bytes->size()) : std::nullopt;
    } else if (profile.isUnsynced) {
        SyncLater(profile.folder, profile.name);  // who marked it may have been killed
    }
    profile.bytes = std::move(bytes).value_or("");
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
    return folder && LockFolder(folder) ? std::move(folder) : Descriptor();
}

// A file or folder that nobody may write is read-only even for those whom the system lets write it.
bool IsReadOnly(const struct stat& status) {
    return (status.st_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
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

// Gives the new file the profile's name before it is on the disk. An exchange of two names, where
// the system has it, makes no file system write the data at once, as a plain rename may.
bool TakeNameUnsynced(const Profile& profile, const Descriptor& file, std::string_view bytes) {
    const int folder = profile.folder.Get();
    const char* const name = profile.name.c_str();
    const std::string synced = SyncedNameOf(profile.name);
    if (!profile.isUnsynced) {
        unlinkat(folder, synced.c_str(), 0);
        if (linkat(folder, name, folder, synced.c_str(), 0) != 0)
            return false;
    }
    if (!MarkUnsynced(file, bytes))
        return false;
    if (renameat2(folder, kTemporaryName, folder, name, RENAME_EXCHANGE) != 0) {
        RemoveMark(file);
        return false;
    }
    unlinkat(folder, kTemporaryName, 0);
    SyncLater(profile.folder, profile.name);
    return true;
}

// Gives the new file the profile's name, in one step.
bool TakeName(const Profile& profile, const Descriptor& file, std::string_view bytes) {
    if (profile.exists && MustNotWaitForDisk() && TakeNameUnsynced(profile, file, bytes))
        return true;
    const int folder = profile.folder.Get();
    if (!Sync(file) || renameat(folder, kTemporaryName, folder, profile.name.c_str()) != 0)
        return false;
    unlinkat(folder, SyncedNameOf(profile.name).c_str(), 0);
    return true;
}

}  // namespace

std::string SettingsFolder() {
    const auto configuration = Environment("XDG_CONFIG_HOME");
    if (configuration && configuration->starts_with('/'))
        return *configuration + "/vxdtest";
    return HomeFolder() + "/.config/vxdtest";
}

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

bool MayReplace(const Profile& profile) {
    struct stat folder;
    return fstat(profile.folder.Get(), &folder) == 0 && !IsReadOnly(folder) &&
           !(profile.exists && IsReadOnly(profile.status));
}

bool Replace(const Profile& profile, std::string_view bytes) {
    const Descriptor file = CreateTemporary(profile.folder);
    if (!file)
        return false;
    const bool replaced = WriteAll(file, bytes) &&
                          (!profile.exists || KeepOwnerAndMode(file, profile.status)) &&
                          TakeName(profile, file, bytes);
    if (!replaced)
        unlinkat(profile.folder.Get(), kTemporaryName, 0);
    return replaced;
}

}  // namespace vxd
