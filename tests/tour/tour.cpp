#include "tests/tour/tour.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QWidget>
#include <filesystem>

#include "platform/qt/snapshot.h"
#include "res/resource.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace tour {
namespace {

std::string& Folder() {
    static std::string folder;
    return folder;
}

// Opens the first popup of the menu bar as Alt and its letter do.
void OpenFirstMenu() {
    kit::RunStep([] {
        for (const QWidget* window : QApplication::topLevelWidgets()) {
            if (auto* bar = window->findChild<QMenuBar*>(); bar != nullptr && window->isVisible()) {
                bar->setFocus();
                bar->setActiveAction(bar->actions().front());
                return;
            }
        }
    });
    kit::RunStep([] { QApplication::processEvents(); });
}

void CloseMenu() {
    kit::RunStep([] {
        if (QWidget* menu = QApplication::activePopupWidget(); menu != nullptr)
            menu->close();
    });
}

void ShowMainWindow(const kit::Utility& utility) {
    // As large as it can be dragged, so that the menu bar lies in one row.
    kit::RunStep([&utility] {
        SetWindowPos(utility.Window(), nullptr, 0, 0, 900, 180, SWP_NOMOVE | SWP_NOZORDER);
    });
    TakePicture("main-window");
    OpenFirstMenu();
    TakePicture("menu");
    CloseMenu();
}

void SendRawCommand(const kit::Utility& utility) {
    utility.Choose(IDM_FILE_SEND_RAW_COMMAND);
    const kit::Dialog dialog = kit::WaitForDialog("Send Raw Command");
    dialog.Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_GET_VER");
    dialog.Press(IDC_RAW_SEND);
    TakePicture("send-raw-command");
    dialog.Press(IDOK);
}

void About(const kit::Utility& utility) {
    utility.Choose(IDM_HELP_ABOUT);
    const kit::Dialog dialog = kit::WaitForDialog("About  VxD Test  Utility");
    TakePicture("about");
    dialog.Press(IDOK);
}

// The stops, in order. Every dialog has one.
constexpr void (*kStops[])(const kit::Utility&) = {ShowMainWindow, SendRawCommand, About};

TEST(Tour, WalksThroughTheUtilityAndTakesItsPictures) {
    const kit::Utility utility;
    for (const auto stop : kStops) {
        stop(utility);
        kit::ExpectNoBox();
    }
}

}  // namespace

void SetPictureFolder(const std::string& folder) {
    Folder() = folder;
}

void TakePicture(const std::string& name) {
    const std::filesystem::path path = std::filesystem::path(Folder()) / (name + ".png");
    std::filesystem::create_directories(Folder());
    EXPECT_TRUE(kit::OnUserInterface([&path] {
        // What waits to be painted belongs in the picture.
        UpdateWindow(FindWindowA("VxDTest", nullptr));
        return vxd::qt::SaveDesktopPicture(path.string());
    })) << path;
}

}  // namespace tour
