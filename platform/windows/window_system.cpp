#include "platform/window_system.h"

#include "platform/win32.h"

// Wine's kernel library has one function more than Windows', for whoever asks.
WindowSystem CurrentWindowSystem() {
    const HMODULE kernel = GetModuleHandleA("ntdll.dll");
    return GetProcAddress(kernel, "wine_get_version") != nullptr ? WindowSystem::kWine
                                                                 : WindowSystem::kWindows;
}
