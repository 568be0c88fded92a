#include "tests/kit/process.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

namespace kit {
namespace {

void OpenAs(int number, const std::string& file, int flags) {
    const int opened = open(file.empty() ? "/dev/null" : file.c_str(), flags, 0600);
    dup2(opened, number);
    close(opened);
}

}  // namespace

std::string ProgramBeside(const std::string& name) {
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / name;
}

struct Process::State {
    pid_t id = 0;
    std::optional<int> exitCode;

    void Look(int flags) {
        int status = 0;
        if (!exitCode && waitpid(id, &status, flags) == id) {
            exitCode = WIFSIGNALED(status) ? 128 + WTERMSIG(status) : WEXITSTATUS(status);
        }
    }
};

Process::Process(const std::string& program, const std::vector<std::string>& arguments,
                 const Streams& streams)
    : state_(std::make_unique<State>()) {
    std::vector<char*> raw = {const_cast<char*>(program.c_str())};
    for (const std::string& argument : arguments) {
        raw.push_back(const_cast<char*>(argument.c_str()));
    }
    raw.push_back(nullptr);
    state_->id = fork();
    if (state_->id == 0) {
        setsid();  // the first terminal that a session opens is its own
        OpenAs(STDIN_FILENO, streams.input, O_RDWR);
        OpenAs(STDOUT_FILENO, streams.output, O_CREAT | O_TRUNC | O_WRONLY);
        OpenAs(STDERR_FILENO, streams.messages, O_CREAT | O_TRUNC | O_WRONLY);
        execv(raw[0], raw.data());
        _exit(99);
    }
    EXPECT_GT(state_->id, 0);
}

Process::~Process() {
    if (!HasEnded()) {
        Kill();
        ExitCode();
    }
}

std::uint32_t Process::Id() const {
    return static_cast<std::uint32_t>(state_->id);
}

bool Process::HasEnded() {
    state_->Look(WNOHANG);
    return state_->exitCode.has_value();
}

int Process::ExitCode() {
    state_->Look(0);
    return state_->exitCode.value_or(-1);
}

void Process::AskForEnd() const {
    kill(state_->id, SIGTERM);
}

void Process::Kill() const {
    kill(-state_->id, SIGKILL);
}

}  // namespace kit
