// The file to which the viewer writes lines.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace dbwin {

// Lines go behind what the file holds. It consists of whole lines whenever it is looked at and
// whatever ends the viewer: each batch is one write, and what a full disk leaves of one is taken
// back. A torn last line that is found in it, left by a loss of power, is ended first. What is
// written reaches the disk within about a second.
class LogFile {
  public:
    // On failure `error` says why, and nothing may be written.
    LogFile(const std::string& path, std::string& error);
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    // Whole lines; false where they could not be written, and nothing of them is.
    bool Write(std::string_view lines);
    // Has what was written reach the disk, where the last time is a second ago.
    void SyncNowAndThen();

  private:
    void Sync();

    int file_ = -1;
    bool isTorn_ = false;   // ends within a line
    bool isAhead_ = false;  // of the disk
    std::chrono::steady_clock::time_point lastSync_;
};

}  // namespace dbwin
