// The dialogs that ask what a command is about: what they remember, and what the board is sent.
#include "driver/kora_dll32.h"
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

using SmallDialogs = CommandTest;
using SelectIrq = CommandTest;
using IsacDevice = CommandTest;
using MonitorDevice = CommandTest;
using SelectDevice = CommandTest;

// What the board receives when a choice is confirmed.
Texts Confirm(const kit::Dialog& dialog) {
    dialog.Press(IDOK);
    return ReceivedCalls();
}

TEST_F(SmallDialogs, CarryTheirControlsByNumberAndCaption) {
    struct Control {
        int id;
        const char* text;
    };
    struct Shown {
        UINT command;
        const char* caption;
        std::vector<Control> controls;
        int leave = IDCANCEL;
    };
    const Control ok{1, "OK"};
    const Control cancel{2, "Cancel"};
    const Control chip{1019, "&Initialize ISAC Chip"};
    const Shown dialogs[] = {
        {40068,
         "Select IRQ",
         {Control{1016, "&VCP"}, Control{1025, "&Master Abort"}, Control{1021, "End Of &Frame"},
          Control{1022, "&Address X Boundary"}, Control{1023, "&End of Read"},
          Control{1024, "End of &Write"}, Control{1020, "I&CC"}, Control{1019, "&JADE"},
          Control{1018, "JADE &Realtime"}, Control{1017, "&Isac"}, ok, cancel}},
        {40074, "Initialize ISAC  ", {{1017, "&MONITOR"}, {1018, "I&SDN"}, chip, ok, cancel}},
        {40075, "Select ISAC  Device", {{1017, "&MONITOR"}, {1018, "I&SDN"}, ok, cancel}},
        {40082, "Initialize IOM2 Monitor", {{1020, "&ARCOFI"}, {1021, "&SBCX"}, chip, ok, cancel}},
        {40083, "Select Monitor Device", {{1020, "&ARCOFI"}, {1021, "&SBCX"}, ok, cancel}},
        {40065, "Select Device", {{1015, "VCP         "}, ok, cancel}},
        {40096, "GDS Dump Dialog", {{1099, "All modules"}, ok, cancel}},
        {40276, "Camera Selection", {{1300, "Philips camera"}, {1301, "VCR Input"}, {2, "&Close"}}},
        {40195, "Dialog", {{1091, "START"}, {1093, "0"}, cancel}},
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
    uint32_t bit = 1;
    for (const int box : {1016, 1025, 1021, 1022, 1023, 1024, 1020, 1019, 1018, 1017}) {
        kit::Dialog dialog = Ask(IDM_SEQ_SIMULATE_INTERRUPT, "Select IRQ");
        dialog.Press(box);
        EXPECT_EQ(Confirm(dialog), Texts{"vdapi_Debug(3F, 4, address) " + WordText(bit)}) << box;
        dialog = Ask(IDM_SEQ_SIMULATE_INTERRUPT, "Select IRQ");
        dialog.Press(box);
        dialog.Press(IDOK);
        bit *= 2;
    }
}

TEST_F(SelectIrq, OpensOnTheLastConfirmedChoice) {
    kit::Dialog dialog = Ask(IDM_SEQ_SIMULATE_INTERRUPT, "Select IRQ");
    dialog.Press(IDC_IRQ_ICC);
    dialog.Press(IDC_IRQ_ISAC);
    EXPECT_EQ(Confirm(dialog), Texts{"vdapi_Debug(3F, 4, address) 40020000"});
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

TEST_F(IsacDevice, IsInitialisedWithTheLibrarysValueAndItsChipOnlyWhereAskedForLast) {
    kit::Dialog dialog = Ask(IDM_ISAC_INITIALIZE, "Initialize ISAC  ");
    EXPECT_TRUE(dialog.IsChecked(IDC_ISAC_DEVICE_MONITOR));
    EXPECT_FALSE(dialog.IsChecked(IDC_ISAC_DEVICE_INITIALIZE_CHIP));
    dialog.Press(IDC_ISAC_DEVICE_ISDN);
    EXPECT_FALSE(dialog.IsChecked(IDC_ISAC_DEVICE_MONITOR));
    dialog.Press(IDC_ISAC_DEVICE_INITIALIZE_CHIP);
    const Texts received = Confirm(dialog);
    const uint32_t value = kit::OnUserInterface([] { return KORA_DLL_GetIsacHandle(14); });
    EXPECT_EQ(received,
              (Texts{"KORA_DLL_GetIsacHandle(E)",
                     "vdapi_Debug(46, C, address) 0E000000 " + WordText(value) + " 01000000"}));
    dialog = Ask(IDM_ISAC_INITIALIZE, "Initialize ISAC  ");
    EXPECT_TRUE(dialog.IsChecked(IDC_ISAC_DEVICE_ISDN));
    EXPECT_TRUE(dialog.IsChecked(IDC_ISAC_DEVICE_INITIALIZE_CHIP));
    dialog.Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());

    dialog = Ask(IDM_ISAC_RESET, "Select ISAC  Device");
    EXPECT_TRUE(dialog.IsChecked(IDC_ISAC_DEVICE_ISDN));
    EXPECT_EQ(dialog.Control(IDC_ISAC_DEVICE_INITIALIZE_CHIP), nullptr);
    dialog.Key(VK_RETURN);
    EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_Debug(48, 4, address) 0E000000"});
    dialog = Ask(IDM_ISAC_INITIALIZE, "Initialize ISAC  ");
    EXPECT_FALSE(dialog.IsChecked(IDC_ISAC_DEVICE_INITIALIZE_CHIP));
    dialog.Press(IDCANCEL);
}

TEST_F(MonitorDevice, SbcxIsDeviceTwelveInTheMonitorCommands) {
    kit::Dialog dialog = Ask(IDM_MONITOR_INITIALIZE, "Initialize IOM2 Monitor");
    EXPECT_TRUE(dialog.IsChecked(IDC_MONITOR_DEVICE_ARCOFI));
    dialog.Press(IDC_MONITOR_DEVICE_SBCX);
    dialog.Press(IDC_MONITOR_DEVICE_INITIALIZE_CHIP);
    const Texts received = Confirm(dialog);
    const uint32_t value = kit::OnUserInterface(
        [] { return KORA_DLL_GetMonitorHandle(12, board::GetMonitor().window); });
    EXPECT_EQ(received,
              (Texts{"KORA_DLL_GetMonitorHandle(C, address)",
                     "vdapi_Debug(52, C, address) 0C000000 " + WordText(value) + " 01000000"}));
    dialog = Ask(IDM_MONITOR_RESET, "Select Monitor Device");
    EXPECT_TRUE(dialog.IsChecked(IDC_MONITOR_DEVICE_SBCX));
    EXPECT_EQ(Confirm(dialog), Texts{"vdapi_Debug(54, 4, address) 0C000000"});
    dialog = Ask(IDM_MONITOR_INITIALIZE, "Initialize IOM2 Monitor");
    EXPECT_FALSE(dialog.IsChecked(IDC_MONITOR_DEVICE_INITIALIZE_CHIP));
    dialog.Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());
}

TEST_F(SelectDevice, TheDeviceOfTheLastConfirmedCommandIsOfferedAgain) {
    kit::Dialog dialog = Ask(IDM_SEQ_ATOM_ENTER, "Select Device");
    const Texts devices{"VCP         ",  "ISAC         ", "JADE         ", "ARCOFI       ",
                        "Video Inlay  ", "Auxilary     ", "ICC          "};
    ASSERT_EQ(dialog.Rows(IDC_DEVICE_LIST), static_cast<int>(devices.size()));
    for (std::size_t row = 0; row < devices.size(); ++row)
        EXPECT_EQ(dialog.Row(IDC_DEVICE_LIST, static_cast<int>(row)), devices[row]);
    dialog.Pick(IDC_DEVICE_LIST, 6);
    dialog.Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());
    dialog = Ask(IDM_SEQ_ATOM_ENTER, "Select Device");
    EXPECT_EQ(dialog.SelectedRow(IDC_DEVICE_LIST), 0);
    dialog.Pick(IDC_DEVICE_LIST, "ARCOFI       ");
    EXPECT_EQ(Confirm(dialog), Texts{"vdapi_Debug(3A, 4, address) 03000000"});
    dialog = Ask(IDM_SEQ_ATOM_LEAVE, "Select Device");
    EXPECT_EQ(dialog.Text(IDC_DEVICE_LIST), "ARCOFI       ");
    SelectNothing(dialog, IDC_DEVICE_LIST, CB_SETCURSEL);
    EXPECT_EQ(Confirm(dialog), Texts{"vdapi_Debug(3B, 4, address) 03000000"})
        << "no choice keeps the last";
}

}  // namespace
