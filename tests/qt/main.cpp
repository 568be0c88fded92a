#include <QApplication>

#include "platform/qt/qt_screen.h"
#include "tests/kit/user_interface.h"

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("LC_ALL", "C.UTF-8");  // a desktop's, in place of the one of a bare "C"
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    vxd::QtScreen screen;
    vxd::InstallScreen(screen);
    return kit::RunTests();
}
