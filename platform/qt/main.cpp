// The start of the program on a desktop that Qt serves.
#include <QApplication>

#include "platform/qt/qt_screen.h"
#include "platform/win32.h"

int main(int argc, char** argv) {
    // The utility has nothing to restore, and asking the session manager takes time.
    qunsetenv("SESSION_MANAGER");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    // Never destroyed: other threads may still wake it while the process ends.
    auto& screen = *new vxd::QtScreen;
    vxd::InstallScreen(screen);
    char commandLine[] = "";
    const int exitCode = WinMain(GetModuleHandleA(nullptr), nullptr, commandLine, SW_SHOWNORMAL);
    screen.Retire();
    return exitCode;
}
