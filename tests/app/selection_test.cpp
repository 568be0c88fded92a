// The dialogs that ask what a command is about: what they remember, and what the board is sent.
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

#include "board/control.h"
#include "driver/kora_dll32.h"
#include "res/resource.h"
#include "tests/app/received_calls.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

class Selection : public testing::Test {
  protected:
    // Gives a command and gives the dialog that asks back.
    kit::Dialog Ask(UINT command, const char* caption) {
        board::ForgetCalls();
        utility_.Command(command);
        return kit::WaitForDialog(caption);
    }

    // A registration value as it stands in a block.
    static std::string InBlock(uint32_t value) {
        board::Call call{"", {}, {}};
        for (int shift = 0; shift < 32; shift += 8)
            call.block.push_back(static_cast<uint8_t>(value >> shift));
        return Written(call).substr(3);
    }

    kit::Utility utility_;
};

using SmallDialogs = Selection;
using SelectIrq = Selection;
using IsacDevice = Selection;
using MonitorDevice = Selection;
using SelectDevice = Selection;

TEST_F(SmallDialogs, CarryTheirControlsByNumberAndCaption) {
    using Controls = std::vector<std::pair<int, std::string>>;
    struct Shown {
        UINT command;
        const char* caption;
        Controls controls;
        int leave;
    };
    const std::pair<int, std::string> ok{1, "OK"};
    const std::pair<int, std::string> cancel{2, "Cancel"};
    const std::pair<int, std::string> chip{1019, "&Initialize ISAC Chip"};
    const Shown dialogs[] = {
        {40068,
         "Select IRQ",
         {{1016, "&VCP"},
          {1025, "&Master Abort"},
          {1021, "End Of &Frame"},
          {1022, "&Address X Boundary"},
          {1023, "&End of Read"},
          {1024, "End of &Write"},
          {1020, "I&CC"},
          {1019, "&JADE"},
          {1018, "JADE &Realtime"},
          {1017, "&Isac"},
          ok,
          cancel},
         2},
        {40074, "Initialize ISAC  ", {{1017, "&MONITOR"}, {1018, "I&SDN"}, chip, ok, cancel}, 2},
        {40075, "Select ISAC  Device", {{1017, "&MONITOR"}, {1018, "I&SDN"}, ok, cancel}, 2},
        {40082,
         "Initialize IOM2 Monitor",
         {{1020, "&ARCOFI"}, {1021, "&SBCX"}, chip, ok, cancel},
         2},
        {40083, "Select Monitor Device", {{1020, "&ARCOFI"}, {1021, "&SBCX"}, ok, cancel}, 2},
        {40065, "Select Device", {{1015, "VCP         "}, ok, cancel}, 2},
        {40096, "GDS Dump Dialog", {{1099, "All modules"}, ok, cancel}, 2},
        {40276,
         "Camera Selection",
         {{1300, "Philips camera"}, {1301, "VCR Input"}, {2, "&Close"}},
         2},
        {40195, "Dialog", {{1091, "START"}, {1093, "0"}, cancel}, 2},
        {40211, "MBE SEND DEMO", {{1094, "&Send"}, {1095, ""}, {1097, "&Exit"}}, 1097},
    };
    for (const Shown& shown : dialogs) {
        SCOPED_TRACE(shown.caption);
        const kit::Dialog dialog = Ask(shown.command, shown.caption);
        for (const auto& [id, text] : shown.controls) {
            EXPECT_NE(dialog.Control(id), nullptr) << id;
            EXPECT_EQ(dialog.Text(id), text) << id;
        }
        dialog.Press(shown.leave);
        EXPECT_TRUE(ReceivedCalls().empty()) << "opening and leaving asks the board for nothing";
    }
}

TEST_F(SelectIrq, EachBoxIsABitOfTheMask) {
    struct Box {
        int id;
        const char* sent;
    };
    for (const Box& box : {Box{1016, "01000000"}, Box{1025, "02000000"}, Box{1021, "04000000"},
                           Box{1022, "08000000"}, Box{1023, "10000000"}, Box{1024, "20000000"},
                           Box{1020, "40000000"}, Box{1019, "80000000"}, Box{1018, "00010000"},
                           Box{1017, "00020000"}}) {
        kit::Dialog dialog = Ask(IDM_SEQ_SIMULATE_INTERRUPT, "Select IRQ");
        dialog.Press(box.id);
        dialog.Press(IDOK);
        EXPECT_EQ(ReceivedCalls(),
                  std::vector{std::string("vdapi_Debug(3F, 4, address) ") + box.sent});
        dialog = Ask(IDM_SEQ_SIMULATE_INTERRUPT, "Select IRQ");
        dialog.Press(box.id);
        dialog.Press(IDOK);
    }
}

TEST_F(SelectIrq, OpensOnTheLastConfirmedChoice) {
    kit::Dialog dialog = Ask(IDM_SEQ_SIMULATE_INTERRUPT, "Select IRQ");
    dialog.Press(IDC_IRQ_ICC);
    dialog.Press(IDC_IRQ_ISAC);
    dialog.Press(IDOK);
    EXPECT_EQ(ReceivedCalls(), std::vector<std::string>{"vdapi_Debug(3F, 4, address) 40020000"});
    for (const bool byKey : {false, true}) {
        dialog = Ask(IDM_SEQ_SIMULATE_INTERRUPT, "Select IRQ");
        EXPECT_TRUE(dialog.IsChecked(IDC_IRQ_ICC));
        EXPECT_TRUE(dialog.IsChecked(IDC_IRQ_ISAC));
        EXPECT_FALSE(dialog.IsChecked(IDC_IRQ_VCP));
        dialog.AltKey('v');
        EXPECT_TRUE(dialog.IsChecked(IDC_IRQ_VCP));
        byKey ? dialog.Key(VK_ESCAPE) : dialog.Press(IDCANCEL);
        EXPECT_TRUE(ReceivedCalls().empty());
    }
}

TEST_F(IsacDevice, InitialisesTheChosenDeviceWithTheLibrarysValue) {
    kit::Dialog dialog = Ask(IDM_ISAC_INITIALIZE, "Initialize ISAC  ");
    EXPECT_TRUE(dialog.IsChecked(IDC_ISAC_DEVICE_MONITOR));
    EXPECT_FALSE(dialog.IsChecked(IDC_ISAC_DEVICE_INITIALIZE_CHIP));
    dialog.Press(IDC_ISAC_DEVICE_ISDN);
    EXPECT_FALSE(dialog.IsChecked(IDC_ISAC_DEVICE_MONITOR));
    dialog.Press(IDC_ISAC_DEVICE_INITIALIZE_CHIP);
    dialog.Press(IDOK);
    const auto received = ReceivedCalls();
    const uint32_t value = kit::OnUserInterface([] { return KORA_DLL_GetIsacHandle(14); });
    EXPECT_EQ(received, (std::vector<std::string>{"KORA_DLL_GetIsacHandle(E)",
                                                  "vdapi_Debug(46, C, address) 0E000000 " +
                                                      InBlock(value) + " 01000000"}));
    dialog = Ask(IDM_ISAC_INITIALIZE, "Initialize ISAC  ");
    EXPECT_TRUE(dialog.IsChecked(IDC_ISAC_DEVICE_ISDN));
    EXPECT_TRUE(dialog.IsChecked(IDC_ISAC_DEVICE_INITIALIZE_CHIP));
    dialog.Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());
}

TEST_F(IsacDevice, ChoosingADeviceAloneForgetsThatItsChipWasToBeInitialised) {
    kit::Dialog dialog = Ask(IDM_ISAC_INITIALIZE, "Initialize ISAC  ");
    dialog.Press(IDC_ISAC_DEVICE_ISDN);
    dialog.Press(IDC_ISAC_DEVICE_INITIALIZE_CHIP);
    dialog.Press(IDOK);
    dialog = Ask(IDM_ISAC_RESET, "Select ISAC  Device");
    EXPECT_TRUE(dialog.IsChecked(IDC_ISAC_DEVICE_ISDN));
    EXPECT_EQ(dialog.Control(IDC_ISAC_DEVICE_INITIALIZE_CHIP), nullptr);
    dialog.Key(VK_RETURN);
    EXPECT_EQ(ReceivedCalls(), std::vector<std::string>{"vdapi_Debug(48, 4, address) 0E000000"});
    dialog = Ask(IDM_ISAC_INITIALIZE, "Initialize ISAC  ");
    EXPECT_FALSE(dialog.IsChecked(IDC_ISAC_DEVICE_INITIALIZE_CHIP));
    dialog.Press(IDCANCEL);
}

TEST_F(MonitorDevice, SbcxIsDeviceTwelveInEveryMonitorCommand) {
    kit::Dialog dialog = Ask(IDM_MONITOR_INITIALIZE, "Initialize IOM2 Monitor");
    EXPECT_TRUE(dialog.IsChecked(IDC_MONITOR_DEVICE_ARCOFI));
    dialog.Press(IDC_MONITOR_DEVICE_SBCX);
    dialog.Press(IDC_MONITOR_DEVICE_INITIALIZE_CHIP);
    dialog.Press(IDOK);
    const auto received = ReceivedCalls();
    const uint32_t value = kit::OnUserInterface(
        [] { return KORA_DLL_GetMonitorHandle(12, board::GetMonitor().window); });
    EXPECT_EQ(received, (std::vector<std::string>{"KORA_DLL_GetMonitorHandle(C, address)",
                                                  "vdapi_Debug(52, C, address) 0C000000 " +
                                                      InBlock(value) + " 01000000"}));
    struct Step {
        UINT command;
        const char* sent;
    };
    for (const Step& step : {Step{IDM_MONITOR_RESET, "vdapi_Debug(54, 4, address) 0C000000"},
                             Step{IDM_MONITOR_ACTIVATE, "vdapi_Debug(55, 4, address) 0C000000"},
                             Step{IDM_MONITOR_DEACTIVATE, "vdapi_Debug(56, 4, address) 0C000000"},
                             Step{IDM_MONITOR_TERMINATE, "vdapi_Debug(53, 4, address) 0C000000"}}) {
        dialog = Ask(step.command, "Select Monitor Device");
        EXPECT_TRUE(dialog.IsChecked(IDC_MONITOR_DEVICE_SBCX));
        dialog.Press(IDOK);
        EXPECT_EQ(ReceivedCalls(), std::vector<std::string>{step.sent});
    }
    dialog = Ask(IDM_MONITOR_INITIALIZE, "Initialize IOM2 Monitor");
    EXPECT_FALSE(dialog.IsChecked(IDC_MONITOR_DEVICE_INITIALIZE_CHIP));
    dialog.Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());
}

TEST_F(SelectDevice, TheDeviceOfTheLastCommandIsOfferedAgain) {
    kit::Dialog dialog = Ask(IDM_SEQ_ATOM_ENTER, "Select Device");
    const std::vector<std::string> devices{"VCP         ",  "ISAC         ", "JADE         ",
                                           "ARCOFI       ", "Video Inlay  ", "Auxilary     ",
                                           "ICC          "};
    ASSERT_EQ(dialog.Rows(IDC_DEVICE_LIST), static_cast<int>(devices.size()));
    for (std::size_t row = 0; row < devices.size(); ++row)
        EXPECT_EQ(dialog.Row(IDC_DEVICE_LIST, static_cast<int>(row)), devices[row]);
    EXPECT_EQ(dialog.SelectedRow(IDC_DEVICE_LIST), 0);
    dialog.Pick(IDC_DEVICE_LIST, "ARCOFI       ");
    dialog.Press(IDOK);
    EXPECT_EQ(ReceivedCalls(), std::vector<std::string>{"vdapi_Debug(3A, 4, address) 03000000"});
    dialog = Ask(IDM_SEQ_ATOM_LEAVE, "Select Device");
    EXPECT_EQ(dialog.Text(IDC_DEVICE_LIST), "ARCOFI       ");
    dialog.Press(IDOK);
    EXPECT_EQ(ReceivedCalls(), std::vector<std::string>{"vdapi_Debug(3B, 4, address) 03000000"});
}

TEST_F(SelectDevice, CancelSendsNothingAndNoChoiceKeepsTheLast) {
    kit::Dialog dialog = Ask(IDM_SEQ_ATOM_ENTER, "Select Device");
    dialog.Pick(IDC_DEVICE_LIST, 6);
    dialog.Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());
    dialog = Ask(IDM_SEQ_ATOM_ENTER, "Select Device");
    EXPECT_EQ(dialog.SelectedRow(IDC_DEVICE_LIST), 0);
    dialog.Pick(IDC_DEVICE_LIST, 5);
    dialog.Press(IDOK);
    dialog = Ask(IDM_SEQ_ATOM_LEAVE, "Select Device");
    kit::RunStep([&] {
        SendDlgItemMessageA(dialog.Handle(), IDC_DEVICE_LIST, CB_SETCURSEL, static_cast<WPARAM>(-1),
                            0);
    });
    dialog.Press(IDOK);
    EXPECT_EQ(ReceivedCalls(), std::vector<std::string>{"vdapi_Debug(3B, 4, address) 05000000"});
}

}  // namespace
