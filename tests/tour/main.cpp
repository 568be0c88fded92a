// The tour: the real utility on the simulated board, walked through as a person would, with a
// picture of every dialog.
//   vxdtest_tour [FOLDER]
#include <QApplication>

#include "platform/qt/qt_screen.h"
#include "tests/kit/user_interface.h"
#include "tests/tour/tour.h"

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    // Its windows are nobody's to see but in the pictures.
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    auto& screen = *new vxd::QtScreen;  // for good, as the utility has it
    vxd::InstallScreen(screen);
    tour::SetPictureFolder(argc > 1 ? argv[1] : "tour");
    const int result = kit::RunTests();
    screen.Retire();
    return result;
}
