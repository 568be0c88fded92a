#include "dbwin/system.h"

#include <conio.h>

#include <atomic>
#include <cstdlib>
#include <thread>

#include "platform/win32.h"

namespace dbwin {
namespace {

std::atomic<bool> endIsAskedFor = false;
HANDLE allIsWritten = nullptr;  // set at the end; never closed, for a thread may wait for it then

// On a thread of the system's own. Ctrl+C pressed again ends a viewer that nobody takes lines from.
// When the terminal is closed or the session ends, the process is ended as soon as this returns.
BOOL WINAPI AskForEnd(DWORD event) {
    const bool isRepeated = endIsAskedFor.exchange(true);
    if (event == CTRL_C_EVENT || event == CTRL_BREAK_EVENT) {
        return isRepeated ? FALSE : TRUE;
    }
    WaitForSingleObject(allIsWritten, INFINITE);
    return TRUE;
}

std::string TextOf(DWORD error) {
    char text[256] = "";
    FormatMessageA(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr, error, 0,
                   text, sizeof text, nullptr);
    std::string shown = text;
    shown.erase(shown.find_last_not_of("\r\n ") + 1);
    return shown.empty() ? "error " + std::to_string(error) : shown;
}

// As a program's own start takes its command line apart.
std::string Quoted(const std::string& argument) {
    std::string quoted = "\"";
    std::size_t backslashes = 0;
    for (const char each : argument) {
        if (each == '"') {
            quoted.append(backslashes + 1, '\\');
        }
        backslashes = each == '\\' ? backslashes + 1 : 0;
        quoted += each;
    }
    quoted.append(backslashes, '\\');
    return quoted + '"';
}

}  // namespace

// The null device is none, though the C library takes it for one.
bool IsInputTerminal() {
    DWORD mode = 0;
    return GetConsoleMode(GetStdHandle(STD_INPUT_HANDLE), &mode) != FALSE;
}

bool ShowsColours() {
    const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
    const char* const refusal = std::getenv("NO_COLOR");
    DWORD mode = 0;
    return (refusal == nullptr || *refusal == '\0') && GetConsoleMode(output, &mode) &&
           SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING);
}

std::string WriteOut(std::string_view text) {
    while (!text.empty()) {
        DWORD written = 0;
        if (!WriteFile(GetStdHandle(STD_OUTPUT_HANDLE), text.data(),
                       static_cast<DWORD>(text.size()), &written, nullptr)) {
            return TextOf(GetLastError());
        }
        text.remove_prefix(written);
    }
    return {};
}

EndWatch::EndWatch() {
    SetConsoleOutputCP(CP_UTF8);
    allIsWritten = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    SetConsoleCtrlHandler(AskForEnd, TRUE);
}

EndWatch::~EndWatch() {
    SetEvent(allIsWritten);
}

bool EndIsAskedFor() {
    return endIsAskedFor;
}

struct Keys::Terminal {};

Keys::Keys(bool areTaken) : terminal_(areTaken ? std::make_unique<Terminal>() : nullptr) {}

Keys::~Keys() = default;

std::optional<char> Keys::Next() {
    if (terminal_ == nullptr || _kbhit() == 0) {
        return std::nullopt;
    }
    return static_cast<char>(_getch());
}

namespace {

// What asks programs with windows for their end gets an answer too. A session ends as soon as this
// returns; the console tells nothing of it to a program that has a window.
LRESULT CALLBACK ViewerProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_CLOSE) {
        AskForEnd(CTRL_C_EVENT);
        return 0;
    }
    if (message == WM_ENDSESSION && wParam != FALSE) {
        AskForEnd(CTRL_SHUTDOWN_EVENT);
        return 0;
    }
    return DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

// A window of the viewer's class that is never shown, on a thread that answers for it.
struct Presence::Window {
    DWORD threadId = 0;
    std::thread thread;
};

Presence::Presence() : window_(std::make_unique<Window>()) {
    const HANDLE isThere = CreateEventA(nullptr, TRUE, FALSE, nullptr);
    window_->thread = std::thread([this, isThere] {
        WNDCLASSA viewer{};
        viewer.lpfnWndProc = ViewerProc;
        viewer.hInstance = GetModuleHandleA(nullptr);
        viewer.lpszClassName = "DBWin";
        RegisterClassA(&viewer);
        CreateWindowExA(0, "DBWin", "DBWin", WS_OVERLAPPEDWINDOW, 0, 0, 0, 0, nullptr, nullptr,
                        viewer.hInstance, nullptr);
        window_->threadId = GetCurrentThreadId();
        SetEvent(isThere);
        MSG message;
        while (GetMessageA(&message, nullptr, 0, 0) > 0) {
            DispatchMessageA(&message);
        }
    });
    WaitForSingleObject(isThere, INFINITE);
    CloseHandle(isThere);
}

Presence::~Presence() {
    PostThreadMessageA(window_->threadId, WM_QUIT, 0, 0);
    window_->thread.join();
}

struct Child::Process {
    HANDLE handle;
};

Child::Child(const std::vector<std::string>& command, bool hasInput, std::string& error) {
    std::string line;
    for (const std::string& argument : command) {
        line += (line.empty() ? "" : " ") + Quoted(argument);
    }
    STARTUPINFOA start{};
    start.cb = sizeof start;
    start.dwFlags = STARTF_USESTDHANDLES;
    start.hStdInput = hasInput ? GetStdHandle(STD_INPUT_HANDLE) : nullptr;
    start.hStdOutput = GetStdHandle(STD_OUTPUT_HANDLE);
    start.hStdError = GetStdHandle(STD_ERROR_HANDLE);
    PROCESS_INFORMATION started{};
    if (!CreateProcessA(nullptr, line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr, &start,
                        &started)) {
        error = TextOf(GetLastError());
        return;
    }
    CloseHandle(started.hThread);
    process_ = std::make_unique<Process>(Process{started.hProcess});
}

Child::~Child() {
    if (process_ != nullptr) {
        CloseHandle(process_->handle);
    }
}

std::optional<int> Child::ExitCode() {
    DWORD code = 0;
    if (!exitCode_ && process_ != nullptr &&
        WaitForSingleObject(process_->handle, 0) == WAIT_OBJECT_0 &&
        GetExitCodeProcess(process_->handle, &code)) {
        exitCode_ = static_cast<int>(code);
    }
    return exitCode_;
}

}  // namespace dbwin
