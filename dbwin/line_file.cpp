#include "dbwin/line_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#ifdef _WIN32
#include <io.h>
#else
#include <sys/file.h>
#endif

namespace dbwin {
namespace {

#ifdef _WIN32
constexpr int kFlags = O_RDWR | O_CREAT | O_APPEND | O_BINARY;
#else
constexpr int kFlags = O_RDWR | O_CREAT | O_APPEND | O_CLOEXEC;
#endif
constexpr int kMode = 0666;  // as the umask leaves it

bool IsOnDisk(int file) {
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode);
}

bool EndsWithinALine(int file) {
    char last = '\n';
    return IsOnDisk(file) && lseek(file, -1, SEEK_END) >= 0 && read(file, &last, 1) == 1 &&
           last != '\n';
}

// All of the text; false, with errno, where the rest of it can't be written.
bool WriteAll(int file, std::string_view text) {
    while (!text.empty()) {
        const auto written = write(file, text.data(), static_cast<unsigned>(text.size()));
        if (written > 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (written == 0 || errno != EINTR) {
            errno = written == 0 ? ENOSPC : errno;
            return false;
        }
    }
    return true;
}

// Keeps others who write lines from the file, where a viewer that was killed and its successor may
// write at once.
class Alone {
  public:
#ifdef _WIN32
    explicit Alone(int) {}
#else
    explicit Alone(int file) : file_(file) {
        flock(file_, LOCK_EX);
    }
    ~Alone() {
        flock(file_, LOCK_UN);
    }
    Alone(const Alone&) = delete;
    Alone& operator=(const Alone&) = delete;

  private:
    const int file_;
#endif
};

}  // namespace

int LineFile::Open(const std::string& path) {
    return open(path.c_str(), kFlags, kMode);
}

LineFile::LineFile(int file) : file_(file) {}

LineFile::~LineFile() {
    Sync();
    close(file_);
}

int LineFile::Write(std::string_view lines) {
    const Alone alone(file_);
    if (EndsWithinALine(file_) && !WriteAll(file_, "\n")) {
        return errno;
    }
    const auto before = lseek(file_, 0, SEEK_END);
    isAhead_ = true;
    if (WriteAll(file_, lines)) {
        return 0;
    }
    const int failure = errno;
    // A pipe can't be taken back.
    if (IsOnDisk(file_) && ftruncate(file_, before) != 0) {
        return errno;
    }
    return failure;
}

void LineFile::SyncNowAndThen() {
    constexpr std::chrono::seconds kOften{1};
    if (std::chrono::steady_clock::now() - lastSync_ >= kOften) {
        Sync();
    }
}

int LineFile::Sync() {
    if (isAhead_ && IsOnDisk(file_)) {
#ifdef _WIN32
        const int result = _commit(file_);
#else
        const int result = fdatasync(file_);
#endif
        syncFailure_ = result != 0 ? errno : syncFailure_;
    }
    isAhead_ = false;
    lastSync_ = std::chrono::steady_clock::now();
    return syncFailure_;
}

}  // namespace dbwin
