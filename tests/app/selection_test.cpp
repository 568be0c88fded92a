// The dialogs that ask what a command is about: what they remember, and what the board is sent.
#include "driver/kora_dll32.h"
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

using SelectIrq = CommandTest;
using IsacDevice = CommandTest;
using MonitorDevice = CommandTest;
using SelectDevice = CommandTest;

// What the board receives when a choice is confirmed.
Texts Confirm(const kit::Dialog& dialog) {
    dialog.Press(IDOK);
    return ReceivedCalls();
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
