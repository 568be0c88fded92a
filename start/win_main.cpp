// The program's entry where the loader cannot tell an engineer in a window what it misses: looks at
// the driver libraries before the utility proper, which is linked to them, is loaded.
#include "platform/win32.h"
#include "start/driver_libraries.h"

namespace {

void ReportFatalError(const char* text) {
    MessageBoxA(nullptr, text, "VxDTest - Fatal Error", MB_ICONEXCLAMATION);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR commandLine, int showCommand) {
    if (const std::string faults = FaultsOfDriverLibraries(); !faults.empty()) {
        ReportFatalError(faults.c_str());
        return 1;
    }
    const HMODULE utility = LoadLibraryA("vxdutility");
    const FARPROC entry = utility != nullptr ? GetProcAddress(utility, "WinMain") : nullptr;
    if (entry == nullptr) {
        ReportFatalError("The utility's own library vxdutility is missing or cannot be loaded.");
        return 1;
    }
    const auto run = reinterpret_cast<decltype(&WinMain)>(reinterpret_cast<void*>(entry));
    return run(instance, previous, commandLine, showCommand);
}
