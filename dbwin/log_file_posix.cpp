#include "dbwin/log_file.h"

#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/socket.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <utility>

#include "dbwin/line_file.h"
#include "dbwin/system.h"
#include "platform/core/descriptor.h"

namespace dbwin {
namespace {

// Viewer and writer talk over a pair of sockets: a length and so many bytes of whole lines, then
// errno's number for what became of them. Where no more lengths come, the last sync's number.
using Length = std::uint32_t;
using Answer = std::int32_t;

constexpr Answer kWriterIsGone = -1;
constexpr Answer kWriterIsStuck = -2;

// How many bytes came; fewer than asked for where the other side has gone.
std::size_t Receive(int channel, void* bytes, std::size_t size) {
    std::size_t done = 0;
    while (done < size) {
        const ssize_t got = recv(channel, static_cast<char*>(bytes) + done, size - done, 0);
        if (got > 0) {
            done += static_cast<std::size_t>(got);
        } else if (got == 0 || errno != EINTR) {
            break;
        }
    }
    return done;
}

bool Send(int channel, const void* bytes, std::size_t size) {
    const char* rest = static_cast<const char*>(bytes);
    while (size > 0) {
        const ssize_t sent = send(channel, rest, size, MSG_NOSIGNAL);
        if (sent < 0 && errno != EINTR) {
            return false;
        }
        rest += sent > 0 ? sent : 0;
        size -= static_cast<std::size_t>(sent > 0 ? sent : 0);
    }
    return true;
}

// A file that takes nothing, a pipe or one on a server that is away, keeps the viewer from its end
// for two seconds only.
Answer AnswerFrom(int channel) {
    constexpr int kLook = 100;
    constexpr int kLooksAtTheEnd = 20;
    pollfd writer = {channel, POLLIN, 0};
    for (int looks = 0; poll(&writer, 1, kLook) < 1;) {
        looks = EndIsAskedFor() ? looks + 1 : 0;
        if (looks > kLooksAtTheEnd) {
            return kWriterIsStuck;
        }
    }
    Answer answer = 0;
    return Receive(channel, &answer, sizeof answer) == sizeof answer ? answer : kWriterIsGone;
}

// --- The writer ---

// Nothing of the viewer's world is kept but the two descriptors, which become 0 and 1: nobody waits
// for the end of a pipe, and no folder is in use. What ends programs one by one or in groups is
// meant for the viewer; so is what asks for them by name.
void LeaveTheViewer(int channel, int file) {
    setsid();
    for (const int number : {SIGINT, SIGTERM, SIGHUP, SIGQUIT, SIGPIPE, SIGXFSZ}) {
        signal(number, SIG_IGN);
    }
    prctl(PR_SET_NAME, "trace-to-file");
    const int channelAside = fcntl(channel, F_DUPFD, 3);
    const int fileAside = fcntl(file, F_DUPFD, 3);
    dup2(channelAside, 0);
    dup2(fileAside, 1);
    closefrom(2);
    open("/dev/null", O_WRONLY);
    if (chdir("/") != 0) {
        return;  // the folder stays in use
    }
}

void WaitForMore(int channel, LineFile& file) {
    constexpr int kOften = 1000;
    pollfd more = {channel, POLLIN, 0};
    while (poll(&more, 1, kOften) == 0) {
        file.SyncNowAndThen();
    }
}

void WriteWhatComes(int channel, LineFile& file) {
    std::string lines;
    Length length = 0;
    Answer answer = 0;
    do {
        WaitForMore(channel, file);
        if (Receive(channel, &length, sizeof length) != sizeof length) {
            answer = file.Sync();
            Send(channel, &answer, sizeof answer);
            return;
        }
        lines.resize(length);
        lines.resize(Receive(channel, lines.data(), length));
        const bool viewerIsGone = lines.size() < length;
        if (viewerIsGone) {
            lines.resize(lines.rfind('\n') + 1);
        }
        answer = lines.empty() ? 0 : file.Write(lines);
        file.SyncNowAndThen();
    } while (Send(channel, &answer, sizeof answer));
}

}  // namespace

// --- The viewer's side ---

struct LogFile::Writer {
    vxd::Descriptor channel;
    pid_t process = 0;

    ~Writer() {
        channel = {};
        while (process > 0 && waitpid(process, nullptr, 0) < 0 && errno == EINTR) {
        }
    }

    // Why something was not written; empty where it was. One that is stuck goes on alone, with what
    // it has.
    std::string Reason(const std::string& path, Answer answer) {
        if (answer == kWriterIsStuck) {
            process = 0;
        }
        return answer == 0 ? ""
                           : path + ": " +
                                 (answer == kWriterIsStuck  ? "it takes nothing"
                                  : answer == kWriterIsGone ? "its writing process was ended"
                                                            : std::strerror(answer));
    }
};

LogFile::LogFile(std::string path, std::string& error) : path_(std::move(path)) {
    const vxd::Descriptor file(LineFile::Open(path_));
    std::array<int, 2> ends = {-1, -1};
    if (!file || socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0) {
        error = path_ + ": " + std::strerror(errno);
        return;
    }
    vxd::Descriptor own(ends[0]);
    const vxd::Descriptor writers(ends[1]);
    const pid_t process = fork();
    if (process < 0) {
        error = path_ + ": " + std::strerror(errno);
    } else if (process == 0) {
        LeaveTheViewer(writers.Get(), file.Get());
        {
            LineFile lineFile(1);
            WriteWhatComes(0, lineFile);
        }
        _exit(0);
    } else {
        writer_ = std::make_unique<Writer>();
        writer_->channel = std::move(own);
        writer_->process = process;
    }
}

LogFile::~LogFile() = default;

std::string LogFile::Write(std::string_view lines) {
    if (writer_->process == 0) {
        return writer_->Reason(path_, kWriterIsStuck);
    }
    const int channel = writer_->channel.Get();
    const auto length = static_cast<Length>(lines.size());
    const bool isSent =
        Send(channel, &length, sizeof length) && Send(channel, lines.data(), lines.size());
    return writer_->Reason(path_, isSent ? AnswerFrom(channel) : kWriterIsGone);
}

// The writer does so itself.
void LogFile::SyncNowAndThen() {}

std::string LogFile::Finish() {
    if (writer_->process == 0) {
        return writer_->Reason(path_, kWriterIsStuck);
    }
    shutdown(writer_->channel.Get(), SHUT_WR);
    return writer_->Reason(path_, AnswerFrom(writer_->channel.Get()));
}

}  // namespace dbwin
