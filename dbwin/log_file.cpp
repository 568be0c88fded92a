#include "dbwin/log_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>

#ifdef _WIN32
#include <io.h>
#endif

namespace dbwin {
namespace {

#ifdef _WIN32
constexpr int kFlags = O_RDWR | O_CREAT | O_APPEND | O_BINARY;
#else
constexpr int kFlags = O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC;
#endif
constexpr int kMode = 0666;  // as the umask leaves it

// Whether the file ends within a line.
bool IsTorn(int file) {
    char last = '\n';
    return lseek(file, -1, SEEK_END) >= 0 && read(file, &last, 1) == 1 && last != '\n';
}

}  // namespace

LogFile::LogFile(const std::string& path, std::string& error)
    : file_(open(path.c_str(), kFlags, kMode)) {
    if (file_ < 0 || (IsTorn(file_) && write(file_, "\n", 1) != 1)) {
        error = std::strerror(errno);
    }
}

LogFile::~LogFile() {
    if (file_ >= 0) {
        Sync();
        close(file_);
    }
}

bool LogFile::Write(std::string_view lines) {
    if (isTorn_ && write(file_, "\n", 1) != 1) {
        return false;
    }
    isTorn_ = false;
    const off_t before = lseek(file_, 0, SEEK_END);
    std::size_t done = 0;
    while (done < lines.size()) {
        // A system that ends the program may end a long write within it.
        const std::size_t end = std::min(lines.find('\n', done), lines.size() - 1) + 1;
        const auto written = write(file_, lines.data() + done, static_cast<unsigned>(end - done));
        if (written > 0) {
            done += static_cast<std::size_t>(written);
        } else if (written == 0 || errno != EINTR) {
            // A pipe can't be taken back: what comes next begins a line of its own.
            isTorn_ = done > 0 && ftruncate(file_, before) != 0;
            return false;
        }
    }
    isAhead_ = true;
    return true;
}

void LogFile::SyncNowAndThen() {
    constexpr std::chrono::seconds kOften{1};
    if (std::chrono::steady_clock::now() - lastSync_ >= kOften) {
        Sync();
    }
}

void LogFile::Sync() {
    if (isAhead_) {
#ifdef _WIN32
        _commit(file_);
#else
        fdatasync(file_);
#endif
        isAhead_ = false;
    }
    lastSync_ = std::chrono::steady_clock::now();
}

}  // namespace dbwin
