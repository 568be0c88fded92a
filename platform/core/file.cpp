// What the system knows of files, and how it spells their names.
#include <fcntl.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "platform/core/descriptor.h"
#include "platform/core/folder.h"
#include "platform/win32.h"

namespace vxd {
namespace {

// Asks about the file that the path leads to; about a link itself where it leads to none.
bool Ask(int folder, const char* path, struct statx& status) {
    constexpr unsigned kWanted = STATX_BASIC_STATS | STATX_BTIME;
    return statx(folder, path, AT_STATX_SYNC_AS_STAT, kWanted, &status) == 0 ||
           statx(folder, path, AT_STATX_SYNC_AS_STAT | AT_SYMLINK_NOFOLLOW, kWanted, &status) == 0;
}

bool AskIgnoringCase(std::string_view path, struct statx& status) {
    const std::size_t name = path.rfind('/') + 1;
    const std::string folderPath = name == 0 ? "." : std::string(path.substr(0, name));
    const Descriptor folder(open(folderPath.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder) {
        return false;
    }
    const auto found = FindIgnoringCase(folder.Get(), path.substr(name));
    return found && Ask(folder.Get(), found->c_str(), status);
}

// Win32 counts from the year 1601 on.
FILETIME FileTimeOf(const struct statx_timestamp& time) {
    constexpr std::int64_t kSecondsBefore1970 = 11644473600;
    constexpr std::int64_t kUnitsPerSecond = 10000000;
    constexpr std::int64_t kNanosecondsPerUnit = 100;
    const auto units = static_cast<std::uint64_t>(
        (time.tv_sec + kSecondsBefore1970) * kUnitsPerSecond + time.tv_nsec / kNanosecondsPerUnit);
    return {static_cast<DWORD>(units), static_cast<DWORD>(units >> 32)};
}

DWORD AttributesOf(const struct statx& status) {
    if (S_ISLNK(status.stx_mode)) {
        return FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_REPARSE_POINT;
    }
    const DWORD kind = S_ISDIR(status.stx_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    const bool readOnly = (status.stx_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
    return readOnly ? kind | FILE_ATTRIBUTE_READONLY : kind;
}

WIN32_FILE_ATTRIBUTE_DATA Describe(const struct statx& status) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    data.dwFileAttributes = AttributesOf(status);
    if (status.stx_mask & STATX_BTIME) {
        data.ftCreationTime = FileTimeOf(status.stx_btime);
    }
    data.ftLastAccessTime = FileTimeOf(status.stx_atime);
    data.ftLastWriteTime = FileTimeOf(status.stx_mtime);
    if (!S_ISDIR(status.stx_mode)) {
        data.nFileSizeHigh = static_cast<DWORD>(status.stx_size >> 32);
        data.nFileSizeLow = static_cast<DWORD>(status.stx_size);
    }
    return data;
}

bool Exists(const std::string& path) {
    struct statx status;
    return Ask(AT_FDCWD, path.c_str(), status);
}

// `before` is the spelled part of a path, `rest` what is still to be spelled. A folder that does
// not lead to the end of the path gives way to another one whose name differs in case.
std::optional<std::string> Spell(std::string before, std::string_view rest) {
    const std::size_t separators = std::min(rest.find_first_not_of('/'), rest.size());
    before += rest.substr(0, separators);
    rest.remove_prefix(separators);
    if (rest.empty()) {
        return before;
    }
    const std::string_view name = rest.substr(0, rest.find('/'));
    rest.remove_prefix(name.size());
    const std::string exact = before + std::string(name);
    if (Exists(exact)) {
        if (auto spelled = Spell(exact, rest)) {
            return spelled;
        }
    }
    const char* const folderPath = before.empty() ? "." : before.c_str();
    const Descriptor folder(open(folderPath, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder) {
        return std::nullopt;
    }
    for (const std::string& other : NamesIgnoringCase(folder.Get(), name)) {
        if (other == name || !Exists(before + other)) {
            continue;
        }
        if (auto spelled = Spell(before + other, rest)) {
            return spelled;
        }
    }
    return std::nullopt;
}

// What functions give that fill in a path: its length, or the capacity that it takes.
DWORD GivePath(std::string_view path, LPSTR destination, DWORD capacity) {
    if (destination == nullptr || path.size() >= capacity) {
        return static_cast<DWORD>(path.size() + 1);
    }
    *std::copy(path.begin(), path.end(), destination) = '\0';
    return static_cast<DWORD>(path.size());
}

}  // namespace
}  // namespace vxd

DWORD WINAPI GetLongPathNameA(LPCSTR path, LPSTR spelled, DWORD capacity) {
    if (path == nullptr || *path == '\0') {
        return 0;
    }
    const auto found = vxd::Spell({}, path);
    return found ? vxd::GivePath(*found, spelled, capacity) : 0;
}

UINT WINAPI GetSystemDirectoryA(LPSTR folder, UINT capacity) {
    return vxd::GivePath("/", folder, capacity);
}

BOOL WINAPI GetFileAttributesExA(LPCSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID attributes) {
    if (path == nullptr || level != GetFileExInfoStandard || attributes == nullptr) {
        return FALSE;
    }
    struct statx status;
    if (!vxd::Ask(AT_FDCWD, path, status) && !vxd::AskIgnoringCase(path, status)) {
        return FALSE;
    }
    *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(attributes) = vxd::Describe(status);
    return TRUE;
}
