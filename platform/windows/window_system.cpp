#include "platform/window_system.h"

#include "platform/win32.h"

// Wine's ntdll has one function more than Windows', for whoever asks.
WindowSystem CurrentWindowSystem() {
    const HMODULE ntdll = GetModuleHandleA("ntdll.dll");
    return GetProcAddress(ntdll, "wine_get_version") != nullptr ? WindowSystem::kWine
                                                                : WindowSystem::kWindows;
}
