// "Set Debug Levels".
#include "driver/debug_levels.h"

#include "driver/firmware_command.h"
#include "driver/papi.h"
#include "res/resource.h"
#include "tests/app/dialog_test.h"
#include "tests/kit/person.h"

namespace {

constexpr char kCaption[] = "Set Debug Levels";
constexpr char kWarning[] = "VxD Test - Warning";
constexpr char kReadFailed[] = "vdapi_GetModuleDebugLevel: \nVXD_TIMEOUT_FAILURE";
constexpr char kWriteFailed[] = "vdapi_SetModuleDebugLevel: \nVXD_TIMEOUT_FAILURE";

class DebugLevels : public CommandTest {
  protected:
    kit::Dialog Open() const { return Ask(IDM_DEBUG_LEVELS_NEWER, kCaption); }

    static void SetLevel(uint32_t module, uint32_t level) {
        kit::RunStep([=] { vdapi_SetModuleDebugLevel(module, level); });
    }

    static uint32_t SendVariable(uint32_t command, uint32_t value) {
        return kit::OnUserInterface([=] {
            uint32_t first = 0;
            uint32_t second = 0;
            uint16_t third = 0;
            vdapi_SendCommand(command, 50, value, 0, &first, &second, &third);
            return first;
        });
    }

    static void SetFlags(uint32_t flags) { SendVariable(PELLAN_COMMAND_SET_SOFTWARE_VAR, flags); }

    static std::set<int> CheckedBoxes(const kit::Dialog& dialog) {
        std::set<int> checked;
        for (int box = 1321; box <= 1332; ++box) {
            if (dialog.IsChecked(box)) {
                checked.insert(box);
            }
        }
        return checked;
    }

    static std::string AllRows(const kit::Dialog& dialog, int id) {
        std::string rows;
        for (int row = 0; row < dialog.Rows(id); ++row) {
            rows += dialog.Row(id, row) + " ";
        }
        return rows;
    }

    static Texts AllSet(const char* level) {
        Texts calls;
        for (const char* module : {"0", "1", "2", "3", "4", "5",  "6",  "7",  "8",  "9",  "A",
                                   "B", "C", "D", "E", "F", "10", "11", "12", "13", "14", "15"}) {
            calls.push_back(std::string("vdapi_SetModuleDebugLevel(") + module + ", " + level +
                            ")");
        }
        return calls;
    }
};

TEST_F(DebugLevels, OpensOnTheFirstModulesLevelAndTheFirmwaresFlags) {
    SetLevel(0, 30);
    SetFlags(0xF101);
    for (const UINT command : {IDM_DEBUG_LEVELS_OLDER, IDM_DEBUG_LEVELS_NEWER}) {
        const kit::Dialog dialog = Ask(command, kCaption);
        EXPECT_EQ(ReceivedCalls(), (Texts{"vdapi_GetModuleDebugLevel(0, address)",
                                          "vdapi_SendCommand(7D1, 32, 0, 0, address, address, "
                                          "address)"}));
        EXPECT_EQ(AllRows(dialog, 1029),
                  "API CONV DRV FILE JADE JADE_ISR SYS UI VCP VCPXI VCPXI_DMA VCPXI_STREAM "
                  "VCPXI_LOWLEVEL VCPXI_TASK AKM PROG USB DRV_CAM API_CAM API_VID UTIL_LIST "
                  "UTIL_TIMER ");
        EXPECT_EQ(AllRows(dialog, 1030), "TRACE5 TRACE4 TRACE3 TRACE2 TRACE1 WARN ERROR NONE ");
        std::string captions;
        for (int box = 1321; box <= 1332; ++box)
            captions += dialog.Text(box) + "|";
        EXPECT_EQ(captions,
                  "Errors|Any|Flow|Chap9|Proto|BufQe|HwInt|TxData|HwDiag|HwEvent|Vsp|RxData|");
        EXPECT_EQ(dialog.SelectedRow(1029), 0);
        EXPECT_EQ(dialog.Text(1030), "TRACE1");
        EXPECT_EQ(CheckedBoxes(dialog), (std::set{1321, 1332}));
        EXPECT_EQ(dialog.FocusedId(), IDCANCEL);
        dialog.Key(VK_ESCAPE);
        EXPECT_FALSE(dialog.IsOpen());
    }
}

TEST_F(DebugLevels, ShowsEachModulesLevelAndSetsTheChosenOne) {
    struct Case {
        int row;
        uint32_t level;
        int entry;
    };
    const kit::Dialog dialog = Open();
    // A level without a name is taken for an entry's number where there is one.
    for (const Case& each : {Case{5, 70, 0}, Case{6, 0, 7}, Case{12, 10, 6}, Case{21, 3, 3},
                             Case{1, 35, -1}, Case{2, 50, 2}, Case{3, 8, -1}, Case{4, 40, 3}}) {
        SetLevel(static_cast<uint32_t>(each.row), each.level);
        dialog.Pick(1029, each.row);
        EXPECT_EQ(dialog.SelectedRow(1030), each.entry) << each.level;
    }
    SetLevel(4, 60);
    board::ForgetCalls();
    kit::DoubleClickRow(dialog.Control(1029), 4);
    EXPECT_EQ(ReceivedCalls(), (Texts{"vdapi_GetModuleDebugLevel(4, address)",
                                      "vdapi_GetModuleDebugLevel(4, address)"}))
        << "the first click and both";
    EXPECT_EQ(dialog.Text(1030), "TRACE4");
    dialog.Pick(1029, "VCPXI_STREAM");
    board::ForgetCalls();
    dialog.Pick(1030, "WARN");
    EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_SetModuleDebugLevel(B, 14)"});
    SelectNothing(dialog, 1029, LB_SETCURSEL);
    for (const auto act : {+[](const kit::Dialog& d) { d.Pick(1030, "TRACE5"); },
                           +[](const kit::Dialog& d) { d.Press(IDC_DEBUG_TECHNICAL); }}) {
        board::ForgetCalls();
        act(dialog);
        EXPECT_TRUE(ReceivedCalls().empty()) << "no module is chosen";
    }
    dialog.Press(IDCANCEL);
}

TEST_F(DebugLevels, TheButtonsSetAllModulesWhateverFailsAndKeepTheChosenOne) {
    const kit::Dialog dialog = Open();
    dialog.Pick(1029, "CONV");
    for (const auto& [button, level, name] :
         {std::tuple{IDC_DEBUG_TRACE, "1E", "TRACE1"},
          std::tuple{IDC_DEBUG_TECHNICAL, "A", "ERROR"}, std::tuple{IDC_DEBUG_MUTE, "0", "NONE"}}) {
        EXPECT_EQ(ReceivedOn(dialog, button), AllSet(level));
        EXPECT_EQ(dialog.Text(1029) + dialog.Row(1029, dialog.SelectedRow(1029)), "CONV");
        EXPECT_EQ(dialog.Text(1030), name);
    }
    board::FailAlways("vdapi_SetModuleDebugLevel", VXD_TIMEOUT_FAILURE);
    board::ForgetCalls();
    dialog.Press(IDC_DEBUG_TRACE);
    for (int module = 0; module < 22; ++module) {
        kit::MeetBox(kWarning, kWriteFailed);
    }
    EXPECT_EQ(ReceivedCalls(), AllSet("1E"));
    EXPECT_EQ(dialog.Text(1030), "TRACE1") << "what was asked for, although the board has not it";
    dialog.Pick(1030, "TRACE2");
    kit::MeetBox(kWarning, kWriteFailed);
    EXPECT_EQ(dialog.Text(1030), "TRACE2");
    board::SucceedAgain();
    dialog.Press(IDCANCEL);
    kit::ExpectNoBox();
}

TEST_F(DebugLevels, EachFlagHasItsBoxAndOnlyTheButtonsMoveThem) {
    SetFlags(0);
    const kit::Dialog dialog = Open();
    uint32_t bit = 1;
    for (const int box : {1321, 1322, 1323, 1324, 1325, 1326, 1327, 1328, 1332, 1329, 1330, 1331}) {
        dialog.Press(box);
        EXPECT_EQ(ReceivedOn(dialog, IDC_USB_UPDATE).size(), 1u);
        EXPECT_EQ(SendVariable(PELLAN_COMMAND_GET_SOFTWARE_VAR, 0), bit) << box;
        EXPECT_EQ(CheckedBoxes(dialog), std::set{box}) << "nothing is read back";
        dialog.Press(box);
        dialog.Press(1331 - (box == 1331));
        dialog.Press(IDC_USB_REFRESH);
        EXPECT_EQ(CheckedBoxes(dialog), std::set{box});
        dialog.Press(box);
        bit *= 2;
    }
    SetFlags(0xF801);
    board::FailAlways("PELLAN_COMMAND_GET_SOFTWARE_VAR", VXD_TIMEOUT_FAILURE);
    board::FailAlways("PELLAN_COMMAND_SET_SOFTWARE_VAR", 33);
    dialog.Press(1325);
    for (const auto& [button, text] :
         {std::pair{IDC_USB_REFRESH,
                    "vdapi_Debug: PELLAN_COMMAND_GET_SOFTWARE_VAR : \nVXD_TIMEOUT_FAILURE"},
          std::pair{IDC_USB_UPDATE,
                    "vdapi_Debug: PELLAN_COMMAND_SET_SOFTWARE_VAR : \nUnknown Error"}}) {
        dialog.Press(button);
        kit::MeetBox(kWarning, text);
        EXPECT_EQ(CheckedBoxes(dialog), std::set{1325}) << "as the engineer left them";
    }
    board::SucceedAgain();
    dialog.Press(IDC_USB_REFRESH);
    EXPECT_EQ(CheckedBoxes(dialog), (std::set{1321, 1331}));
    dialog.Press(IDCANCEL);
}

TEST_F(DebugLevels, AFailedReadIsReportedOnceAlsoAsTheDialogOpens) {
    SetFlags(0x801);
    board::FailAlways("vdapi_GetModuleDebugLevel", VXD_TIMEOUT_FAILURE);
    board::ForgetCalls();
    utility_.Command(IDM_DEBUG_LEVELS_NEWER);
    kit::MeetBox(kWarning, kReadFailed);
    const kit::Dialog dialog = kit::WaitForDialog(kCaption);
    EXPECT_EQ(ReceivedCalls().size(), 2u);
    EXPECT_EQ(dialog.SelectedRow(1030), -1);
    EXPECT_EQ(CheckedBoxes(dialog), (std::set{1321, 1331}));
    // The box takes the focus from the list and gives it back.
    dialog.Key(VK_TAB);
    kit::MeetBox(kWarning, kReadFailed);
    EXPECT_EQ(dialog.FocusedId(), 1029);
    dialog.Key(VK_DOWN);
    kit::MeetBox(kWarning, kReadFailed);
    EXPECT_EQ(ReceivedCalls().size(), 4u);
    EXPECT_EQ(dialog.SelectedRow(1029), 1);
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog.Handle());
    board::SucceedAgain();
    dialog.Key(VK_UP);
    EXPECT_EQ(dialog.Text(1030), "ERROR");
    dialog.CloseBox();
    EXPECT_FALSE(dialog.IsOpen());
}

}  // namespace
