// What the system knows of a file.
#include <fcntl.h>
#include <sys/stat.h>

#include <cstdint>
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
    if (!folder)
        return false;
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
    if (S_ISLNK(status.stx_mode))
        return FILE_ATTRIBUTE_ARCHIVE | FILE_ATTRIBUTE_REPARSE_POINT;
    const DWORD kind = S_ISDIR(status.stx_mode) ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
    const bool readOnly = (status.stx_mode & (S_IWUSR | S_IWGRP | S_IWOTH)) == 0;
    return readOnly ? kind | FILE_ATTRIBUTE_READONLY : kind;
}

WIN32_FILE_ATTRIBUTE_DATA Describe(const struct statx& status) {
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    data.dwFileAttributes = AttributesOf(status);
    if (status.stx_mask & STATX_BTIME)
        data.ftCreationTime = FileTimeOf(status.stx_btime);
    data.ftLastAccessTime = FileTimeOf(status.stx_atime);
    data.ftLastWriteTime = FileTimeOf(status.stx_mtime);
    if (!S_ISDIR(status.stx_mode)) {
        data.nFileSizeHigh = static_cast<DWORD>(status.stx_size >> 32);
        data.nFileSizeLow = static_cast<DWORD>(status.stx_size);
    }
    return data;
}

}  // namespace
}  // namespace vxd

BOOL WINAPI GetFileAttributesExA(LPCSTR path, GET_FILEEX_INFO_LEVELS level, LPVOID attributes) {
    if (path == nullptr || level != GetFileExInfoStandard || attributes == nullptr)
        return FALSE;
    struct statx status;
    if (!vxd::Ask(AT_FDCWD, path, status) && !vxd::AskIgnoringCase(path, status))
        return FALSE;
    *static_cast<WIN32_FILE_ATTRIBUTE_DATA*>(attributes) = vxd::Describe(status);
    return TRUE;
}
