#include "board/file_watch.h"

#include <utility>

namespace board {
namespace {

constexpr std::chrono::milliseconds kLongestTick{2000};
// Beyond the tick, as both are measured with a grain of their own.
constexpr std::chrono::milliseconds kMargin{100};

// All zeros where there is nothing of that path.
WIN32_FILE_ATTRIBUTE_DATA AttributesOf(const std::string& path) {
    WIN32_FILE_ATTRIBUTE_DATA attributes{};
    GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &attributes);
    return attributes;
}

bool IsSame(const FILETIME& left, const FILETIME& right) {
    return left.dwLowDateTime == right.dwLowDateTime && left.dwHighDateTime == right.dwHighDateTime;
}

// A link whose file may come, go or change while nothing changes about the link.
bool IsLink(const WIN32_FILE_ATTRIBUTE_DATA& attributes) {
    return (attributes.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

// But for the time of the last access.
bool IsSame(const WIN32_FILE_ATTRIBUTE_DATA& left, const WIN32_FILE_ATTRIBUTE_DATA& right) {
    return left.dwFileAttributes == right.dwFileAttributes &&
           IsSame(left.ftCreationTime, right.ftCreationTime) &&
           IsSame(left.ftLastWriteTime, right.ftLastWriteTime) &&
           left.nFileSizeHigh == right.nFileSizeHigh && left.nFileSizeLow == right.nFileSizeLow;
}

}  // namespace

bool FileWatch::IsUnchanged(const std::string& folder, const char* name) {
    if (!LooksUnchanged(folder, name)) {
        changeSeen_ = Clock::now();
        atRest_ = false;
        return false;
    }
    // Only what is read from the end of the tick on is sure to last.
    return std::exchange(atRest_, atRest_ || Clock::now() - changeSeen_ > kLongestTick + kMargin);
}

bool FileWatch::LooksUnchanged(const std::string& folder, const char* name) {
    if (folder != folder_ || path_.empty()) {
        folder_ = folder;
        path_ = folder + '/' + name;
        attributes_ = {};
        exists_ = false;
        atRest_ = false;
    }
    // A file that was put into the folder since has changed the folder's times.
    if (atRest_ && IsSame(attributes_, AttributesOf(exists_ ? path_ : folder_))) {
        return true;
    }
    const WIN32_FILE_ATTRIBUTE_DATA folderBefore = AttributesOf(folder_);
    const WIN32_FILE_ATTRIBUTE_DATA file = AttributesOf(path_);
    exists_ = file.dwFileAttributes != 0;
    const WIN32_FILE_ATTRIBUTE_DATA before =
        std::exchange(attributes_, exists_ ? file : folderBefore);
    return IsSame(attributes_, before) && !IsLink(attributes_);
}

}  // namespace board
