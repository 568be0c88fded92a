// The clock, the process, its threads and its environment.
#include "platform/core/process.h"

#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <cstring>
#include <mutex>
#include <thread>

#include "platform/win32.h"

namespace vxd {
namespace {

// The C library's environment may not be read while it changes.
std::mutex environmentMutex;

}  // namespace

std::optional<std::string> Environment(const char* name) {
    std::lock_guard lock(environmentMutex);
    const char* value = std::getenv(name);
    return value != nullptr ? std::optional<std::string>(value) : std::nullopt;
}

}  // namespace vxd

DWORD WINAPI GetTickCount() {
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<DWORD>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

DWORD WINAPI GetCurrentProcessId() {
    return static_cast<DWORD>(getpid());
}

DWORD WINAPI GetCurrentThreadId() {
    return static_cast<DWORD>(gettid());
}

void WINAPI Sleep(DWORD milliseconds) {
    if (milliseconds == 0) {
        std::this_thread::yield();
    } else {
        std::this_thread::sleep_for(std::chrono::milliseconds(milliseconds));
    }
}

BOOL WINAPI SetEnvironmentVariableA(LPCSTR name, LPCSTR value) {
    if (name == nullptr || *name == '\0' || std::strchr(name, '=') != nullptr)
        return FALSE;
    std::lock_guard lock(vxd::environmentMutex);
    return (value != nullptr ? setenv(name, value, 1) : unsetenv(name)) == 0;
}
