// Commands that act without a dialog, those that do nothing, and dialogs left by their buttons
// alone.
#include "app/dispatcher.h"
#include "board/control.h"
#include "res/resource.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

TEST(Dispatcher, CommandsWithoutAnActionChangeNothing) {
    const kit::Utility utility;
    board::ForgetCalls();
    for (const UINT command : {UINT{IDM_FILE_STANDBY_MODE}, 0u, 1u, 40011u, 40080u, 40230u, 50000u,
                               (UINT{BN_CLICKED} + 1) << 16 | IDM_FILE_RESET}) {
        const LRESULT result = kit::OnUserInterface(
            [&] { return SendMessageA(utility.Window(), WM_COMMAND, command, 0); });
        EXPECT_EQ(result, 0) << command;
    }
    EXPECT_TRUE(board::Calls().empty());
    kit::ExpectNoBox();
}

TEST(Dispatcher, EveryItemThatCanBeChosenHasAnActionButForTheTwelveThatNeverHadOne) {
    const kit::Utility utility;
    std::set<uint32_t> without;
    kit::RunStep([&] {
        const HINSTANCE instance = GetModuleHandleA(nullptr);
        for (const int resource : {IDR_MENU_OLDER, IDR_MENU_NEWER}) {
            const HMENU menu = LoadMenuA(instance, MAKEINTRESOURCEA(resource));
            int items = 0;
            for (uint32_t id = 1; id <= 0xFFFF; ++id) {
                const UINT state = GetMenuState(menu, id, MF_BYCOMMAND);
                if (state == ~0u || (state & (MF_POPUP | MF_GRAYED | MF_DISABLED)) != 0) {
                    continue;
                }
                ++items;
                if (!HasAction(id)) {
                    without.insert(id);
                }
            }
            EXPECT_EQ(items, resource == IDR_MENU_OLDER ? 181 : 28);
            DestroyMenu(menu);
        }
    });
    EXPECT_EQ(without, (std::set<uint32_t>{40080, 40081, 40163, 40220, 40230, 40253, 40254, 40255,
                                           40256, 40257, 40258, 40288}));
}

TEST(Dispatcher, FullResetResetsTheHardwareWhateverTheStartSays) {
    const kit::Utility utility;
    board::ForgetCalls();
    board::FailOnce("vdapi_AUXDEV_Initialize", VXD_OPERATION_ALREADY_DONE);
    board::FailOnce("vdapi_AUXDEV_HardwareReset", 33);
    utility.Choose(IDM_FILE_RESET);
    kit::MeetBox("VxD Test - Warning", "vdapi_AUXDEV_Initialize: \nVXD_OPERATION_ALREADY_DONE");
    kit::MeetBox("VxD Test - Warning", "vdapi_AUXDEV_HardwareReset: \nUnknown Error");
    utility.Command(IDM_FILE_RESET_VXD);
    ASSERT_EQ(board::Calls().size(), 3u);
    EXPECT_EQ(board::Calls()[2].operation, "vdapi_ResetVxD");
    kit::ExpectNoBox();
}

TEST(Dispatcher, ExitClosesTheUtility) {
    kit::Utility utility;
    utility.Choose(IDM_FILE_EXIT);
    EXPECT_EQ(utility.WaitForEnd(), 0);
}

TEST(Dialogs, SomeAreLeftByTheirButtonsAlone) {
    const kit::Utility utility;
    for (const auto& [command, caption, button] :
         {std::tuple{IDM_486, "Access Mem/IO Address", IDOK},
          std::tuple{IDM_USS_REGISTERS, "USS Reg", IDOK},
          std::tuple{IDM_MBE_SEND, "MBE SEND DEMO", IDC_MBE_EXIT}}) {
        utility.Command(command);
        const kit::Dialog dialog = kit::WaitForDialog(caption);
        dialog.Key(VK_ESCAPE);
        dialog.CloseBox();
        EXPECT_TRUE(dialog.IsOpen()) << caption;
        dialog.Press(button);
        kit::ExpectNoBox();
    }
}

}  // namespace
