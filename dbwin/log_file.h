// The file to which the viewer writes lines, whole whatever becomes of the viewer.
#pragma once

#include <memory>
#include <string>
#include <string_view>

namespace dbwin {

// Lines go behind what the file holds.
//
// A kill ends a program within a write: the kernel copies page by page and looks between two of
// them whether the program is to go on, so every line that lies across the border of two pages can
// be cut. So the writing is done by a process of its own, in a session of its own, which takes no
// signal for its end but that the viewer has gone, writes the whole lines that it had by then, and
// leaves out the beginning of one that it has no end of. On Windows a write that has begun is done
// to its end also when the program is ended, and the viewer writes itself.
//
// What is written reaches the disk within about a second.
class LogFile {
  public:
    // To be made before the program has a second thread. On failure `error` says why, and nothing
    // may be written.
    LogFile(std::string path, std::string& error);
    // Waits until all is on the disk.
    ~LogFile();
    LogFile(const LogFile&) = delete;
    LogFile& operator=(const LogFile&) = delete;

    // Whole lines. Empty when they are in the file; else why they are not, and nothing of them is.
    std::string Write(std::string_view lines);
    // Once in a while, whether or not there are lines.
    void SyncNowAndThen();
    // Ends the writing. Empty when all has reached the disk, else why it has not.
    std::string Finish();

  private:
    struct Writer;

    const std::string path_;
    std::unique_ptr<Writer> writer_;
};

}  // namespace dbwin
