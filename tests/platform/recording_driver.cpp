// An installable driver that writes down what it is told.
#include <cstdio>
#include <string>

#include "platform/win32.h"

namespace {

std::string told;
DWORD_PTR openings = 0;

void Tell(const char* what, LPARAM first, LPARAM second) {
    char line[64];
    std::snprintf(line, sizeof line, "%s %d %d; ", what, static_cast<int>(first),
                  static_cast<int>(second));
    told += line;
}

}  // namespace

extern "C" {

#ifdef _WIN32
__declspec(dllexport)
#endif
    LRESULT CALLBACK DriverProc(DWORD_PTR id, HDRVR, UINT message, LPARAM first, LPARAM second) {
    constexpr LPARAM kRefusedParameter = 13;
    switch (message) {
        case DRV_LOAD:
            Tell("load", first, second);
            return TRUE;
        case DRV_ENABLE:
            Tell("enable", first, second);
            return TRUE;
        case DRV_OPEN:
            Tell("open", first, second);
            return second == kRefusedParameter ? 0 : static_cast<LRESULT>(100 + ++openings);
        case DRV_CLOSE:
            Tell("close", first, second);
            return TRUE;
        case DRV_DISABLE:
            Tell("disable", first, second);
            return TRUE;
        case DRV_FREE:
            Tell("free", first, second);
            return TRUE;
        case DRV_USER:
            return static_cast<LRESULT>(id);
        default:
            return first * 1000 + second;
    }
}

// What the driver was told since it was asked the last time.
#ifdef _WIN32
__declspec(dllexport)
#endif
    const char* WINAPI TakeTold() {
    static std::string taken;
    taken = told;
    told.clear();
    return taken.c_str();
}
}
