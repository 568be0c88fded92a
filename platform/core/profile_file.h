// Profile files on disk.
//
// A file is never changed in place: a temporary file beside it takes its name, so that a reader, or
// a program killed at any moment, leaves or meets the old file or the new one. Who writes holds the
// lock of the folder, from reading the old text until the new one is in place; as the lock is on
// the folder itself, no lock file is left behind. A temporary file that a killed program has left
// is taken away by the next write into that folder. platform/core/profile_sync.h says what a power
// cut leaves. Any thread.
#pragma once

#include <sys/stat.h>

#include <optional>
#include <string>
#include <string_view>

#include "platform/core/descriptor.h"

namespace vxd {

enum class Access { kRead, kWrite };

// A profile file as it was read, or known to be missing. One opened for writing holds its folder's
// lock.
struct Profile {
    Descriptor folder;
    std::string name;
    bool exists = false;
    bool isUnsynced = false;
    struct stat status = {};
    std::string bytes;
};

// Where files without a folder in their names live. It need not exist.
std::string SettingsFolder();

// Opens and reads the file that the path stands for: the one of exactly this name, else one whose
// name differs in case only. Symbolic links are followed by hand, so that what is locked and
// replaced is the file at their end, which need not exist. Nothing when the folder or the file
// can't be used that way, or when the lock stays with somebody else. Makes the settings folder
// where it is missing, for writing.
std::optional<Profile> OpenProfile(std::string_view path, Access access);

// False for what is read-only.
bool MayReplace(const Profile& profile);

// Puts a file with these bytes in the place of the one that was opened for writing; it keeps that
// one's mode and, where the system allows, owner. False when it could not: the old file stays.
bool Replace(const Profile& profile, std::string_view bytes);

}  // namespace vxd
