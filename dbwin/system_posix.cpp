#include <fcntl.h>
#include <poll.h>
#include <signal.h>
#include <spawn.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cerrno>
#include <climits>
#include <cstdlib>
#include <cstring>

#include "dbwin/system.h"

extern char** environ;

namespace dbwin {
namespace {

// The signal may come to any thread.
std::atomic<bool> endIsAskedFor = false;
static_assert(std::atomic<bool>::is_always_lock_free);

extern "C" void AskForEnd(int) {
    endIsAskedFor = true;
}

// In the background the terminal is another program's.
bool IsInForeground() {
    return tcgetpgrp(STDIN_FILENO) == getpgrp();
}

}  // namespace

bool IsInputTerminal() {
    return isatty(STDIN_FILENO) != 0;
}

bool ShowsColours() {
    const char* const terminal = std::getenv("TERM");
    const char* const refusal = std::getenv("NO_COLOR");
    return isatty(STDOUT_FILENO) != 0 && (refusal == nullptr || *refusal == '\0') &&
           terminal != nullptr && std::strcmp(terminal, "dumb") != 0;
}

// In pieces that a pipe which has room takes at once, so that nobody who is slow or stands still
// keeps the viewer from its end.
std::string WriteOut(std::string_view text) {
    constexpr int kLook = 100;  // milliseconds
    constexpr int kLooksAtTheEnd = 10;
    int looks = 0;
    while (!text.empty()) {
        pollfd output = {STDOUT_FILENO, POLLOUT, 0};
        if (poll(&output, 1, kLook) < 1) {
            looks = endIsAskedFor ? looks + 1 : 0;
            if (looks > kLooksAtTheEnd) {
                return "it takes nothing";
            }
            continue;
        }
        looks = 0;
        const ssize_t written =
            write(STDOUT_FILENO, text.data(), std::min<std::size_t>(text.size(), PIPE_BUF));
        if (written >= 0) {
            text.remove_prefix(static_cast<std::size_t>(written));
        } else if (errno != EAGAIN && errno != EINTR) {
            return std::strerror(errno);
        }
    }
    return {};
}

EndWatch::EndWatch() {
    struct sigaction action = {};
    action.sa_handler = AskForEnd;
    for (const int number : {SIGINT, SIGTERM, SIGHUP}) {
        sigaction(number, &action, nullptr);
    }
    signal(SIGPIPE, SIG_IGN);
    signal(SIGXFSZ, SIG_IGN);
}

EndWatch::~EndWatch() = default;

bool EndIsAskedFor() {
    return endIsAskedFor;
}

struct Keys::Terminal {
    termios before{};
    bool isChanged = false;

    // Again when the viewer was stopped and goes on: the shell has set the terminal meanwhile.
    void Take() {
        termios wanted{};
        if (!IsInForeground() || tcgetattr(STDIN_FILENO, &wanted) != 0) {
            return;
        }
        if ((wanted.c_lflag & ICANON) != 0) {
            before = wanted;
            wanted.c_lflag &= ~static_cast<tcflag_t>(ICANON | ECHO);
            isChanged = tcsetattr(STDIN_FILENO, TCSANOW, &wanted) == 0;
        }
    }
};

Keys::Keys(bool areTaken) {
    if (areTaken) {
        terminal_ = std::make_unique<Terminal>();
        terminal_->Take();
    }
}

Keys::~Keys() {
    if (terminal_ != nullptr && terminal_->isChanged && IsInForeground()) {
        tcsetattr(STDIN_FILENO, TCSANOW, &terminal_->before);
    }
}

std::optional<char> Keys::Next() {
    if (terminal_ == nullptr || !IsInForeground()) {
        return std::nullopt;
    }
    terminal_->Take();
    pollfd input = {STDIN_FILENO, POLLIN, 0};
    char key = 0;
    if (poll(&input, 1, 0) == 1 && (input.revents & POLLIN) != 0 &&
        read(STDIN_FILENO, &key, 1) == 1) {
        return key;
    }
    return std::nullopt;
}

// The layer takes whoever listens for a viewer.
struct Presence::Window {};
Presence::Presence() = default;
Presence::~Presence() = default;

struct Child::Process {
    pid_t id;
};

Child::Child(const std::vector<std::string>& command, bool hasInput, std::string& error) {
    std::vector<char*> arguments;
    for (const std::string& argument : command) {
        arguments.push_back(const_cast<char*>(argument.c_str()));
    }
    arguments.push_back(nullptr);
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    if (!hasInput) {
        posix_spawn_file_actions_addopen(&actions, STDIN_FILENO, "/dev/null", O_RDONLY, 0);
    }
    // What the viewer ignores isn't the program's to ignore.
    posix_spawnattr_t attributes;
    posix_spawnattr_init(&attributes);
    sigset_t ignored;
    sigemptyset(&ignored);
    sigaddset(&ignored, SIGPIPE);
    sigaddset(&ignored, SIGXFSZ);
    posix_spawnattr_setsigdefault(&attributes, &ignored);
    posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
    pid_t id = 0;
    const int failure =
        posix_spawnp(&id, arguments[0], &actions, &attributes, arguments.data(), environ);
    posix_spawnattr_destroy(&attributes);
    posix_spawn_file_actions_destroy(&actions);
    if (failure != 0) {
        error = std::strerror(failure);
        return;
    }
    process_ = std::make_unique<Process>(Process{id});
}

Child::~Child() = default;

std::optional<int> Child::ExitCode() {
    constexpr int kEndedBySignal = 128;
    int status = 0;
    if (!exitCode_ && process_ != nullptr && waitpid(process_->id, &status, WNOHANG) != 0) {
        exitCode_ = WIFSIGNALED(status) ? kEndedBySignal + WTERMSIG(status) : WEXITSTATUS(status);
    }
    return exitCode_;
}

}  // namespace dbwin
