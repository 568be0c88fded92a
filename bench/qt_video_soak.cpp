// The utility's video at work on the Qt screen.
#include <QApplication>

#include "bench/video_soak.h"
#include "platform/qt/qt_screen.h"

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    auto& screen = *new vxd::QtScreen;  // for good, as the utility has it
    vxd::InstallScreen(screen);
    const int exitCode = RunVideoSoak(argc, argv);
    screen.Retire();
    return exitCode;
}
