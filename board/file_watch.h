// Knows whether a file is still what was read of it, at the cost of asking the system for the
// attributes of one file.
//
// A file is taken for the same while its length and the times of its last write and its creation
// are: writing it in place changes the first or the second, putting another in its place the third
// as well where the file system tells the two apart. A file that is not there stays so while its
// folder's times are the same. File systems count time in ticks, of up to 2 seconds on FAT, so a
// file may be written twice under one time; therefore nothing counts as unchanged until that long
// after the change was first seen. What then goes unnoticed is a change that keeps the length and
// puts the times back. A link that the system does not follow here, on Linux one whose file is
// missing, never counts as unchanged.
#pragma once

#include <chrono>
#include <string>

#include "platform/win32.h"

namespace board {

class FileWatch {
  public:
    // Whether what was read of the file since the last call of this function, or before, still
    // stands in it; false for the first call and after another path. The name has no folder in it.
    bool IsUnchanged(const std::string& folder, const char* name);

    // Whether there is a file, as of that call.
    bool Exists() const { return exists_; }

  private:
    using Clock = std::chrono::steady_clock;

    bool LooksUnchanged(const std::string& folder, const char* name);

    std::string folder_;
    std::string path_;
    bool exists_ = false;
    WIN32_FILE_ATTRIBUTE_DATA attributes_{};  // the file's, or where there is none its folder's
    Clock::time_point changeSeen_;
    bool atRest_ = false;
};

}  // namespace board
