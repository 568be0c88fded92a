// A file behind whose end whole lines are added.
#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace dbwin {

// One thread. Failures are errno's numbers, 0 for none.
class LineFile {
  public:
    // The file's descriptor, which it is made with where there is none; -1 and errno on failure.
    static int Open(const std::string& path);

    // Takes the descriptor over.
    explicit LineFile(int file);
    ~LineFile();
    LineFile(const LineFile&) = delete;
    LineFile& operator=(const LineFile&) = delete;

    // Writes whole lines, all or none: what a full disk leaves of them is taken back. A line within
    // which the file ends is ended before. Other programs that write so are waited for.
    int Write(std::string_view lines);

    // Has what was written reach the disk, where the last time is a second ago.
    void SyncNowAndThen();
    // The same at once. Gives what went wrong at any time since the file was opened.
    int Sync();

  private:
    const int file_;
    bool isAhead_ = false;  // of the disk
    int syncFailure_ = 0;
    std::chrono::steady_clock::time_point lastSync_;
};

}  // namespace dbwin
