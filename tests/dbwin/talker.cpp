// A program that writes to the debug output beside a viewer: lines of all kinds, then so many as it
// is told, numbered. Its exit code says what it has found of the viewer: 40, and 2 for the window,
// and the output mode.
#include <cstdlib>
#include <string>

#include "platform/win32.h"

namespace {

int OutputMode() {
    const HMODULE library = LoadLibraryA("DBWIN.DLL");
    const FARPROC mode = library != nullptr ? GetProcAddress(library, "GetOutputMode") : nullptr;
    return mode != nullptr ? static_cast<int>(mode()) : 0;
}

}  // namespace

int main(int count, char** arguments) {
    const int found = 40 + (FindWindowA("DBWin", nullptr) != nullptr ? 2 : 0) + OutputMode();
    OutputDebugStringA(("412*3F: [1]KORATST:\t " + std::string(600, 'x') + "\n").c_str());
    OutputDebugStringA("412*3F: [20]JADE:\t 100 % of %d %s %n\n");
    OutputDebugStringA("no prefix \xE9\xFF\n");
    const int lines = count > 1 ? std::atoi(arguments[1]) : 0;
    for (int i = 0; i < lines; ++i) {
        OutputDebugStringA(("line " + std::to_string(i) + "\n").c_str());
    }
    return found;
}
