#include "tests/kit/process.h"

#include "platform/win32.h"

namespace kit {
namespace {

constexpr DWORD kPatience = 30'000;

// One that programs inherit.
HANDLE Open(const std::string& file, DWORD access, DWORD disposition) {
    SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
    return CreateFileA(file.empty() ? "NUL" : file.c_str(), access,
                       FILE_SHARE_READ | FILE_SHARE_WRITE, &inherited, disposition, 0, nullptr);
}

BOOL CALLBACK EndSessionOf(HWND window, LPARAM id) {
    DWORD owner = 0;
    GetWindowThreadProcessId(window, &owner);
    if (owner == static_cast<DWORD>(id)) {
        SendMessageA(window, WM_ENDSESSION, TRUE, 0);
    }
    return TRUE;
}

}  // namespace

std::string ProgramBeside(const std::string& name) {
    char path[MAX_PATH] = "";
    GetModuleFileNameA(nullptr, path, sizeof path);
    const std::string own = path;
    return own.substr(0, own.rfind('\\') + 1) + name + ".exe";
}

struct Process::State {
    PROCESS_INFORMATION started{};
};

Process::Process(const std::string& program, const std::vector<std::string>& arguments,
                 const Streams& streams)
    : state_(std::make_unique<State>()) {
    std::string line = '"' + program + '"';
    for (const std::string& argument : arguments) {
        line += " \"" + argument + '"';
    }
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = Open(streams.input, GENERIC_READ | GENERIC_WRITE, OPEN_EXISTING);
    start.hStdOutput = Open(streams.output, GENERIC_WRITE, CREATE_ALWAYS);
    start.hStdError = Open(streams.messages, GENERIC_WRITE, CREATE_ALWAYS);
    EXPECT_TRUE(CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                               &start, &state_->started))
        << line << ": " << GetLastError();
    for (const HANDLE each : {start.hStdInput, start.hStdOutput, start.hStdError}) {
        CloseHandle(each);
    }
}

Process::~Process() {
    if (!HasEnded()) {
        Kill();
        ExitCode();
    }
    CloseHandle(state_->started.hThread);
    CloseHandle(state_->started.hProcess);
}

std::uint32_t Process::Id() const {
    return state_->started.dwProcessId;
}

bool Process::HasEnded() {
    return WaitForSingleObject(state_->started.hProcess, 0) == WAIT_OBJECT_0;
}

int Process::ExitCode() {
    DWORD code = ~0u;
    EXPECT_EQ(WaitForSingleObject(state_->started.hProcess, kPatience), WAIT_OBJECT_0);
    GetExitCodeProcess(state_->started.hProcess, &code);
    return static_cast<int>(code);
}

// The end of a session, behind which a program that has answered is ended.
void Process::AskForEnd() const {
    EnumWindows(EndSessionOf, static_cast<LPARAM>(Id()));
    TerminateProcess(state_->started.hProcess, 0);
}

void Process::Kill() const {
    EXPECT_TRUE(TerminateProcess(state_->started.hProcess, 1));
}

}  // namespace kit
