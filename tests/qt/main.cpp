#include <gtest/gtest.h>

#include <QApplication>

#include "platform/qt/qt_screen.h"
#include "tests/kit/user_interface.h"

int main(int argc, char** argv) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    testing::InitGoogleTest(&argc, argv);
    vxd::QtScreen screen;
    vxd::InstallScreen(screen);
    return kit::RunTests();
}
