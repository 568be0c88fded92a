// The dialogs that do one thing with the board themselves.
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

using GdsDump = CommandTest;
using CameraSelection = CommandTest;
using AnnexdLoader = CommandTest;
using MbeSend = CommandTest;

TEST_F(GdsDump, AsksForAllModulesAsItOpensOrForTheChosenOneByItsNumber) {
    kit::Dialog dialog = Ask(IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog");
    EXPECT_EQ(dialog.Text(IDC_GDS_MODULE), "All modules");
    dialog.Press(IDOK);
    EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_Debug(1A, 4, address) FFFFFFFF"});
    for (const auto& [name, number] : {std::pair{"Validity   ", 0u}, std::pair{"Jade       ", 9u},
                                       std::pair{"MBE        ", 25u}}) {
        dialog = Ask(IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog");
        EXPECT_EQ(dialog.Rows(IDC_GDS_MODULE), 27);
        dialog.Pick(IDC_GDS_MODULE, name);
        dialog.Press(IDOK);
        kit::ExpectNoBox();
        EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_Debug(1A, 4, address) " + WordText(number)});
    }
}

TEST_F(GdsDump, WithoutAChoiceSendsNothing) {
    const kit::Dialog dialog = Ask(IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog");
    SelectNothing(dialog, IDC_GDS_MODULE, CB_SETCURSEL);
    dialog.Press(IDOK);
    kit::ExpectNoBox();
    EXPECT_TRUE(ReceivedCalls().empty());
}

TEST_F(GdsDump, ReportsAFailureBeforeItCloses) {
    const kit::Dialog dialog = Ask(IDM_DEBUG_DUMP_GDS, "GDS Dump Dialog");
    board::FailAlways("TALVERO_DBG_CORE_TR_DUMP_GDS", VXD_INVALID_SERVICE_ID);
    dialog.Press(IDOK);
    EXPECT_TRUE(dialog.IsOpen());
    EXPECT_FALSE(kit::OnUserInterface([&] { return IsWindowEnabled(dialog.Handle()); }))
        << "the box stands over the dialog";
    kit::MeetBox("VxD Test - Warning",
                 "vdapi_Debug: TALVERO_DBG_CORE_TR_DUMP_GDS: \nVXD_INVALID_SERVICE_ID");
    kit::ExpectNoBox();
}

TEST_F(CameraSelection, TellsTheBoardAtTheClick) {
    const kit::Dialog dialog = Ask(IDM_ANALOG_CAMERA_SELECT, "Camera Selection");
    EXPECT_FALSE(dialog.IsChecked(IDC_CAMERA_PHILIPS) || dialog.IsChecked(IDC_CAMERA_VCR));
    for (const auto& [button, input] :
         {std::pair{IDC_CAMERA_PHILIPS, "1"}, std::pair{IDC_CAMERA_VCR, "2"}}) {
        EXPECT_EQ(
            ReceivedOn(dialog, button).back(),
            "vdapi_SendCommand(322, " + std::string(input) + ", 0, 0, address, address, address)");
        EXPECT_TRUE(dialog.IsChecked(button));
    }
    dialog.Key(VK_ESCAPE);
    kit::ExpectNoBox();
}

TEST_F(AnnexdLoader, LoadsOnceAndCountsAFailureAsNothing) {
    const kit::Dialog dialog = Ask(IDM_ANNEXD_DOWNLOAD, "Dialog");
    board::FailAlways("vdapi_ANNEXD_Download", VXD_CORRUPT_FILE);
    kit::RunStep([&] { SetDlgItemTextA(dialog.Handle(), IDC_ANNEXD_BYTES, "2048"); });
    EXPECT_EQ(ReceivedOn(dialog, IDC_ANNEXD_START),
              Texts{"vdapi_ANNEXD_Download(1, 800, address, address)"});
    EXPECT_EQ(dialog.Text(IDC_ANNEXD_BYTES), "0");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog.Handle()) << "failures are not reported";
    dialog.Press(IDCANCEL);
}

TEST_F(MbeSend, SendsWhatIsTypedUpToItsFieldsEndAlsoNothing) {
    const kit::Dialog dialog = Ask(IDM_MBE_SEND, "MBE SEND DEMO");
    EXPECT_EQ(dialog.FocusedId(), IDC_MBE_MESSAGE);
    const std::string beyond(205, 'x');
    for (const auto& [typed, length] :
         {std::pair{"", "0"}, {"Hello there", "B"}, {beyond.c_str(), "C7"}}) {
        board::ForgetCalls();
        dialog.Type(IDC_MBE_MESSAGE, typed);
        dialog.Key(VK_RETURN);
        EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_MBE_Write(\"" + std::string(typed).substr(0, 199) +
                                         "\", 1, " + length + ", FE)"});
    }
    dialog.Press(IDC_MBE_EXIT);
}

}  // namespace
