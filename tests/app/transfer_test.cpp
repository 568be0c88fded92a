// The dialogs that do one thing with the board themselves.
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "board/control.h"
#include "res/resource.h"
#include "tests/app/received_calls.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

class Transfer : public testing::Test {
  protected:
    kit::Dialog Open(UINT command, const char* caption) {
        utility_.Command(command);
        const kit::Dialog dialog = kit::WaitForDialog(caption);
        board::ForgetCalls();
        return dialog;
    }

    kit::Utility utility_;
};

using GdsDump = Transfer;
using CameraSelection = Transfer;
using AnnexdLoader = Transfer;
using MbeSend = Transfer;

TEST_F(GdsDump, AsksForAllModulesAsItOpensOrForTheChosenOne) {
    struct Choice {
        const char* module;
        std::string sent;
    };
    for (const Choice& choice :
         {Choice{"Core       ", "01000000"}, Choice{"MBE        ", "19000000"},
          Choice{"All modules", "FFFFFFFF"}}) {
        const kit::Dialog dialog = Open(IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog");
        EXPECT_EQ(dialog.Rows(IDC_GDS_MODULE), 27);
        EXPECT_EQ(dialog.Text(IDC_GDS_MODULE), "All modules");
        if (choice.module != dialog.Text(IDC_GDS_MODULE))
            dialog.Pick(IDC_GDS_MODULE, choice.module);
        dialog.Press(IDOK);
        EXPECT_EQ(ReceivedCalls(), std::vector{"vdapi_Debug(1A, 4, address) " + choice.sent});
        kit::ExpectNoBox();
    }
}

TEST_F(GdsDump, OffersTheModulesInTheOrderOfTheirNumbers) {
    const std::vector<std::string> modules{
        "All modules", "Validity   ", "Core       ", "Debug      ", "Pmapi      ", "Vpic       ",
        "Seq        ", "Isac       ", "Iom2       ", "Arcofi     ", "Jade       ", "Auxdev     ",
        "Vcpxi      ", "I2c        ", "Camera     ", "Eprom      ", "Acif       ", "Vidinlay   ",
        "Stream     ", "LSD        ", "HSD        ", "MLP        ", "Bt85x      ", "vcpregs    ",
        "VPP        ", "AnnexD     ", "MBE        "};
    for (std::size_t row = 1; row < modules.size(); ++row) {
        const kit::Dialog dialog = Open(IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog");
        dialog.Pick(IDC_GDS_MODULE, static_cast<int>(row));
        EXPECT_EQ(dialog.Text(IDC_GDS_MODULE), modules[row]);
        dialog.Press(IDOK);
        ASSERT_EQ(board::Calls().size(), 1u);
        EXPECT_EQ(board::Calls()[0].block,
                  (std::vector<uint8_t>{static_cast<uint8_t>(row - 1), 0, 0, 0}));
    }
}

TEST_F(GdsDump, WithoutAChoiceOrCancelledSendsNothing) {
    const kit::Dialog dialog = Open(IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog");
    kit::RunStep([&] {
        SendDlgItemMessageA(dialog.Handle(), IDC_GDS_MODULE, CB_SETCURSEL, static_cast<WPARAM>(-1),
                            0);
    });
    dialog.Press(IDOK);
    kit::ExpectNoBox();
    EXPECT_TRUE(ReceivedCalls().empty());
    Open(IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog").Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());
}

TEST_F(GdsDump, ReportsAFailureBeforeItCloses) {
    const kit::Dialog dialog = Open(IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog");
    board::FailAlways("TALVERO_DBG_CORE_TR_DUMP_GDS", VXD_INVALID_SERVICE_ID);
    dialog.Press(IDOK);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_FALSE(kit::OnUserInterface([&] { return IsWindowEnabled(dialog.Handle()); }))
        << "the box stands over the dialog";
    kit::MeetBox("VxD Test - Warning",
                 "vdapi_Debug: TALVERO_DBG_CORE_TR_DUMP_GDS: \nVXD_INVALID_SERVICE_ID");
    kit::ExpectNoBox();
}

TEST_F(CameraSelection, TellsTheBoardAtTheClickAndNotBefore) {
    utility_.Choose(IDM_ANALOG_CAMERA_SELECT);
    board::ForgetCalls();
    kit::WaitForDialog("Camera Selection").Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());
    const kit::Dialog dialog = Open(IDM_ANALOG_CAMERA_SELECT, "Camera Selection");
    EXPECT_FALSE(dialog.IsChecked(IDC_CAMERA_PHILIPS) || dialog.IsChecked(IDC_CAMERA_VCR));
    const std::vector<std::string> inputs{"1", "2"};
    const std::vector<int> buttons{IDC_CAMERA_PHILIPS, IDC_CAMERA_VCR};
    for (std::size_t input = 0; input < inputs.size(); ++input) {
        dialog.Press(buttons[input]);
        EXPECT_TRUE(dialog.IsChecked(buttons[input]));
        EXPECT_EQ(ReceivedCalls().back(),
                  "vdapi_SendCommand(322, " + inputs[input] + ", 0, 0, address, address, address)");
    }
    dialog.Key(VK_ESCAPE);
    kit::ExpectNoBox();
}

TEST_F(AnnexdLoader, LoadsOnceAndCountsAFailureAsNothing) {
    const kit::Dialog dialog = Open(IDM_ANNEXD_DOWNLOAD, "Dialog");
    EXPECT_EQ(dialog.Text(IDC_ANNEXD_BYTES), "0");
    EXPECT_TRUE(ReceivedCalls().empty());
    board::FailAlways("vdapi_ANNEXD_Download", VXD_CORRUPT_FILE);
    kit::RunStep([&] { SetDlgItemTextA(dialog.Handle(), IDC_ANNEXD_BYTES, "2048"); });
    dialog.Press(IDC_ANNEXD_START);
    EXPECT_EQ(ReceivedCalls(),
              std::vector<std::string>{"vdapi_ANNEXD_Download(1, 800, address, address)"});
    EXPECT_EQ(dialog.Text(IDC_ANNEXD_BYTES), "0");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog.Handle()) << "failures are not reported";
    dialog.Press(IDCANCEL);
}

TEST_F(MbeSend, SendsWhatIsTypedUpToItsFieldsEndAlsoNothing) {
    const kit::Dialog dialog = Open(IDM_MBE_SEND, "MBE SEND DEMO");
    EXPECT_EQ(dialog.FocusedId(), IDC_MBE_MESSAGE);
    struct Message {
        std::string typed;
        std::string sent;
    };
    for (const Message& message :
         {Message{"", "\"\", 1, 0, FE"}, Message{"Hello there", "\"Hello there\", 1, B, FE"},
          Message{std::string(205, 'x'), '"' + std::string(199, 'x') + "\", 1, C7, FE"}}) {
        board::ForgetCalls();
        dialog.Type(IDC_MBE_MESSAGE, message.typed);
        dialog.Key(VK_RETURN);
        EXPECT_EQ(ReceivedCalls(), std::vector{"vdapi_MBE_Write(" + message.sent + ")"});
    }
    dialog.Press(IDC_MBE_EXIT);
}

TEST_F(MbeSend, IsLeftByItsButtonAndNotByEscape) {
    const kit::Dialog dialog = Open(IDM_MBE_SEND, "MBE SEND DEMO");
    dialog.Key(VK_ESCAPE);
    EXPECT_TRUE(dialog.IsOpen());
    dialog.Press(IDC_MBE_EXIT);
    kit::ExpectNoBox();
    EXPECT_TRUE(ReceivedCalls().empty());
}

}  // namespace
