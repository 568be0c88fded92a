// Finding windows by what they are.
#include <algorithm>
#include <cstdint>
#include <vector>

#include "platform/core/debug_socket.h"
#include "platform/core/queue.h"
#include "platform/core/text.h"
#include "platform/core/window.h"
#include "platform/core/window_class.h"

namespace {

// Other programs' windows are not known, but for one: who listens to the debug output of all
// programs is their debug viewer, by the class that its window has on Windows.
HWND FindDebugViewer(LPCSTR className, LPCSTR title) {
    constexpr std::uint32_t kForeign = 0xF0000001;  // of no kind that a table gives out
    const bool isAskedFor = className != nullptr && !IS_INTRESOURCE(className) &&
                            vxd::EqualIgnoringCase(className, "DBWin") && title == nullptr;
    return isAskedFor && vxd::IsMonitoredElsewhere() ? vxd::ToHandle<HWND>(kForeign) : nullptr;
}

}  // namespace

HWND WINAPI FindWindowA(LPCSTR className, LPCSTR title) {
    const vxd::WindowClass* windowClass =
        className != nullptr ? vxd::FindClass(className) : nullptr;
    if (className != nullptr && windowClass == nullptr)
        return FindDebugViewer(className, title);
    for (const vxd::Window* window : vxd::TopLevelWindows()) {
        if ((className == nullptr || window->windowClass == windowClass) &&
            (title == nullptr || vxd::EqualIgnoringCase(window->text, title)))
            return window->handle;
    }
    return FindDebugViewer(className, title);
}

BOOL WINAPI EnumThreadWindows(DWORD thread, WNDENUMPROC visit, LPARAM parameter) {
    // All windows belong to the user-interface thread.
    if (!vxd::OnUserInterfaceThread() || thread != GetCurrentThreadId())
        return FALSE;
    std::vector<HWND> handles;
    for (const vxd::Window* window : vxd::TopLevelWindows())
        handles.push_back(window->handle);
    return std::all_of(handles.begin(), handles.end(), [&](HWND handle) {
        return !vxd::IsLiveWindow(handle) || visit(handle, parameter) != FALSE;
    });
}
