// The file to which the viewer writes lines.
#pragma once

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace dbwin {

// Lines go behind what the file holds, one by one, and what a full disk leaves of a batch is taken
// back. So the file consists of whole lines, but for a last one that is cut where the system killed
// the viewer in the middle of it or the power failed: such a one is ended by the next viewer before
// it adds its own. What is written reaches the disk within about a second.
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
