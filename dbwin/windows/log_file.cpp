#include "dbwin/log_file.h"

#include <cerrno>
#include <cstring>
#include <utility>

#include "dbwin/line_file.h"

namespace dbwin {
namespace {

std::string Reason(const std::string& path, int failure) {
    return failure == 0 ? "" : path + ": " + std::strerror(failure);
}

}  // namespace

struct LogFile::Writer {
    LineFile file;
};

LogFile::LogFile(std::string path, std::string& error) : path_(std::move(path)) {
    const int file = LineFile::Open(path_);
    if (file < 0) {
        error = Reason(path_, errno);
        return;
    }
    writer_.reset(new Writer{LineFile(file)});
}

LogFile::~LogFile() = default;

std::string LogFile::Write(std::string_view lines) {
    return Reason(path_, writer_->file.Write(lines));
}

void LogFile::SyncNowAndThen() {
    writer_->file.SyncNowAndThen();
}

std::string LogFile::Finish() {
    return Reason(path_, writer_->file.Sync());
}

}  // namespace dbwin
