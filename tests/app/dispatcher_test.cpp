// Commands that act without a dialog, and those that do nothing.
#include <gtest/gtest.h>

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
    EXPECT_EQ(utility.Close(), 0);
}

}  // namespace
