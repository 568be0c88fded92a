// The register browsers.
#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <future>
#include <ostream>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "board/control.h"
#include "regs/vpic_browsers.h"
#include "res/resource.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

constexpr char kWarning[] = "VxD Test - Warning";

// What there is to know of a browser, and one row to try it on.
struct Browser {
    const char* test;
    UINT command;
    const char* caption;
    int list, value, name, set;
    int rows;

    const char* read;     // what the board receives
    std::size_t ids;      // how many different ids are read on a walk through all rows
    int unreadable;       // how many rows show the failure text on that walk
    const char* failure;  // what a failed read shows
    ResultCode readCode;  // and a code that it shows that for

    const char* row;
    const char* typed;
    const char* readBack;
    const char* write;
    const char* reported;  // null where a failed write is not

    friend void PrintTo(const Browser& browser, std::ostream* out) { *out << browser.test; }
};

constexpr Browser kBrowsers[] = {
    {"VpicPorts", IDM_VPIC_PORTS, "VPIC Port", 1011, 1012, 1014, 1013, 105,  //
     "vdapi_VPIC_ReadPort", 105, 0, "Failure !!", VXD_HARDWARE_FAILURE,      //
     "VCP_VCX                    ", "0x89abCDEF", "0x89ABCDEF", "vdapi_VPIC_WritePort",
     "vdapi_VPIC_WritePort"},
    {"VpicBits", IDM_VPIC_BITS, "VPIC Bits", 1011, 1012, 1014, 1013, 55,  //
     "TALVERO_DBG_VPIC_OP_BIT_ST", 55, 0, "4", VXD_HARDWARE_FAILURE,      //
     "CTRL_REG_VCP_RST            ", "1", "1", "TALVERO_DBG_VPIC_OP_BIT_SET",
     "vdapi_Debug: TALVERO_DBG_VPIC_OP_BIT_SET"},
    {"IsacRegisters", IDM_ISAC_REGISTERS, "ISAC Registers", 1011, 1012, 1014, 1013, 41,  //
     "TALVERO_DBG_ISAC_TR_REG_RD", 41, 2, "Failure !!", VXD_HARDWARE_FAILURE,            //
     "TIMR  - Timer ", "0x15A", "0x5A", "TALVERO_DBG_ISAC_TR_REG_WR",
     "vdapi_Debug: TALVERO_DBG_ISAC_TR_REG_WR"},
    {"IsacBits", IDM_ISAC_BITS, "ISAC Bits", 1011, 1012, 1014, 1013, 82,  //
     "TALVERO_DBG_ISAC_OP_BIT_ST", 82, 0, "4", VXD_HARDWARE_FAILURE,      //
     "MODE_RAC              ", "1", "1", "TALVERO_DBG_ISAC_OP_BIT_SET", nullptr},
    {"ArcofiPorts", IDM_ARCOFI_PORTS, "ARCOFI Ports", 1011, 1012, 1014, 1013, 68,  //
     "vdapi_ARCOFI_Read", 68, 0, "Failure !!", VXD_HARDWARE_FAILURE,               //
     "ATCR_MICROPHONE_CTRL           ", "0x0b", "0x0B", "vdapi_ARCOFI_Write", "vdapi_ARCOFI_Write"},
    {"ArcofiCoefficients", IDM_ARCOFI_COEFFICIENTS, "ARCOFI Coefficiets", 1038, 1041, 0, 1042, 16,
     "vdapi_ARCOFI_Read", 16, 0, "Failure !!", VXD_HARDWARE_FAILURE,  //
     "TONE_FILTER                  ", "0x01\r0x2\r0xFE\r0x34", "0x01\r\n0x02\r\n0xFE\r\n0x34",
     "vdapi_ARCOFI_Write", "vdapi_ARCOFI_Write"},
    {"SaecPorts", IDM_SAEC_PORTS, "Siemens AEC Ports", 1011, 1012, 1014, 1013, 137,  //
     "vdapi_SAEC_Read", 137, 0, "Failure !!", VXD_HARDWARE_FAILURE,                  //
     "SAGX5                    ", "0xABC", "0x0ABC", "vdapi_SAEC_Write", "vdapi_SAEC_Write"},
    {"DigitalCamera", IDM_CAMERA_ACCESS, "Camera Registers", 1032, 1033, 1014, 1013, 11,  //
     "vdapi_CAM_Digit_Read", 11, 1, "Failure", VXD_ILLEGAL_OPERATION,                     //
     "Gain                        ", "0x12", "0x12", "vdapi_CAM_Digit_Write",
     "vdapi_CAM_Digit_Write"},
    // The decoder's registers cannot be read but for two; what is shown is what is remembered.
    {"AnalogCamera", IDM_ANALOG_CAMERA_ACCESS, "Camera Registers", 1032, 1033, 1014, 1013, 15,  //
     "vdapi_CAM_ACIF_Read", 2, 0, "0x46", VXD_HARDWARE_FAILURE,                                 //
     "Contrast                    ", "0x12", "0x46", "vdapi_CAM_ACIF_Write",
     "vdapi_CAM_ACIF_Write"},
    {"AuxdevFields", IDM_BOARD_AUXDEV_FIELDS, "AUXDEV Fields", 1032, 1033, 1014, 1013, 16,  //
     "vdapi_AUXDEV_GetField", 16, 0, "Failure", VXD_HARDWARE_FAILURE,                       //
     "Audio Output Select", "0x134", "0x34", "vdapi_AUXDEV_SetField", "vdapi_AUXDEV_SetField"},
    {"AuxdevFeatures", IDM_AUXDEV, "AUXDEV Features", 1032, 1033, 1014, 1013, 42,  //
     "vdapi_AUXDEV_GetFeature", 42, 0, "Failure!", VXD_HARDWARE_FAILURE,           //
     "Jade Reset", "0x80", "0x01", "vdapi_AUXDEV_Activate", "vdapi_AUXDEV_Activate"},
};

uint32_t WordAt(const std::vector<uint8_t>& bytes, std::size_t offset) {
    uint32_t word = 0;
    for (std::size_t byte = 0; byte < 4 && offset + byte < bytes.size(); ++byte)
        word |= static_cast<uint32_t>(bytes[offset + byte]) << 8 * byte;
    return word;
}

// The id that a call names: in the debug channel's blocks it comes second.
uint32_t IdOf(const board::Call& call) {
    return call.operation == "vdapi_Debug" ? WordAt(call.block, 4) : call.arguments[0].value;
}

// The calls of an operation or debug command since the last ForgetCalls.
std::vector<board::Call> CallsOf(const std::string& name) {
    std::vector<board::Call> found;
    for (const board::Call& call : board::Calls()) {
        if (call.operation == name || call.command == name)
            found.push_back(call);
    }
    return found;
}

// The only call of that name; one without anything where there is not just one.
board::Call OnlyCallOf(const std::string& name) {
    std::vector<board::Call> found = CallsOf(name);
    EXPECT_EQ(found.size(), 1u) << name;
    return found.size() == 1 ? found.front() : board::Call{name, {0u}};
}

kit::Dialog Open(const kit::Utility& utility, UINT command, const char* caption) {
    utility.Command(command);
    kit::Dialog dialog = kit::WaitForDialog(caption);
    board::ForgetCalls();
    return dialog;
}

void Set(const kit::Dialog& dialog, const Browser& browser, const char* text) {
    board::ForgetCalls();
    dialog.Type(browser.value, text);
    dialog.Press(browser.set);
}

const Browser& Named(const std::string& test) {
    for (const Browser& browser : kBrowsers) {
        if (browser.test == test)
            return browser;
    }
    ADD_FAILURE() << test;
    return kBrowsers[0];
}

// --- What all of them do ---

class RegisterBrowser : public testing::TestWithParam<Browser> {
  protected:
    RegisterBrowser() : dialog_(Open(utility_, GetParam().command, GetParam().caption)) {}
    ~RegisterBrowser() override { dialog_.Press(IDOK); }

    void PickRow() const { dialog_.Pick(GetParam().list, std::string(GetParam().row)); }

    kit::Utility utility_;
    kit::Dialog dialog_;
};

TEST_P(RegisterBrowser, ShowsEveryRowThatIsChosenWithItsName) {
    const Browser& browser = GetParam();
    ASSERT_EQ(dialog_.Rows(browser.list), browser.rows);
    EXPECT_EQ(dialog_.SelectedRow(browser.list), 0);
    EXPECT_NE(dialog_.Text(browser.value), "") << "the first row is shown at once";
    std::set<uint32_t> ids;
    int unreadable = 0;
    for (int row = 0; row < browser.rows; ++row) {
        board::ForgetCalls();
        dialog_.Pick(browser.list, row);
        for (const board::Call& call : CallsOf(browser.read))
            ids.insert(IdOf(call));
        unreadable += dialog_.Text(browser.value).starts_with("Failure");
        if (browser.name != 0) {
            EXPECT_TRUE(dialog_.Text(browser.name).ends_with(dialog_.Row(browser.list, row)));
        }
    }
    EXPECT_EQ(ids.size(), browser.ids);
    EXPECT_EQ(unreadable, browser.unreadable);
}

TEST_P(RegisterBrowser, SetWritesWhatIsTypedAndLeavesItUntilTheRowIsShownAgain) {
    const Browser& browser = GetParam();
    PickRow();
    Set(dialog_, browser, browser.typed);
    EXPECT_EQ(CallsOf(browser.write).size(), 1u);
    EXPECT_TRUE(CallsOf(browser.read).empty());
    dialog_.Pick(browser.list, 0);
    PickRow();
    EXPECT_EQ(dialog_.Text(browser.value), browser.readBack);
}

TEST_P(RegisterBrowser, AFailedReadShowsItsTextAndTheName) {
    const Browser& browser = GetParam();
    board::FailAlways(browser.read, browser.readCode);
    PickRow();
    kit::Dialog front = kit::FrontDialog();
    EXPECT_EQ(front.Handle(), dialog_.Handle());
    EXPECT_EQ(dialog_.Text(browser.value), browser.failure);
    if (browser.name != 0) {
        EXPECT_TRUE(dialog_.Text(browser.name).ends_with(browser.row));
    }
}

TEST_P(RegisterBrowser, AFailedWriteIsReportedAndLeavesTheDialogAsItIs) {
    const Browser& browser = GetParam();
    PickRow();
    board::FailAlways(browser.write, VXD_TIMEOUT_FAILURE);
    Set(dialog_, browser, browser.typed);
    if (browser.reported != nullptr)
        kit::MeetBox(kWarning, std::string(browser.reported) + ": \nVXD_TIMEOUT_FAILURE");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
    EXPECT_EQ(dialog_.Text(browser.value).substr(0, 4), std::string(browser.typed).substr(0, 4));
}

TEST_P(RegisterBrowser, EscapeCloses) {
    dialog_.Key(VK_ESCAPE);
    EXPECT_FALSE(dialog_.IsOpen());
    dialog_ = Open(utility_, GetParam().command, GetParam().caption);
}

INSTANTIATE_TEST_SUITE_P(All, RegisterBrowser, testing::ValuesIn(kBrowsers),
                         [](const auto& browser) { return std::string(browser.param.test); });

// --- What only some of them do ---

class OneBrowser : public testing::Test {
  protected:
    ~OneBrowser() override {
        if (dialog_.Handle() != nullptr)
            dialog_.Press(IDOK);
    }

    void Use(const std::string& test) {
        if (dialog_.Handle() != nullptr)
            dialog_.Press(IDOK);
        browser_ = &Named(test);
        dialog_ = Open(utility_, browser_->command, browser_->caption);
    }
    void Pick(int row) { dialog_.Pick(browser_->list, row); }
    void Pick(const std::string& row) { dialog_.Pick(browser_->list, row); }
    void Set(const char* text) { ::Set(dialog_, *browser_, text); }
    std::string Shown() const { return dialog_.Text(browser_->value); }
    std::string Name() const { return dialog_.Text(browser_->name); }

    kit::Utility utility_;
    kit::Dialog dialog_{nullptr};
    const Browser* browser_ = nullptr;
};

TEST_F(OneBrowser, AListWithoutASelectionLeavesTheRowThatWasUsedLast) {
    Use("AuxdevFields");
    Pick(5);
    kit::OnUserInterface([this] {
        SendDlgItemMessageA(dialog_.Handle(), browser_->list, LB_SETCURSEL, static_cast<WPARAM>(-1),
                            0);
    });
    Set("0x21");
    EXPECT_EQ(IdOf(OnlyCallOf("vdapi_AUXDEV_SetField")), 5u);
}

TEST_F(OneBrowser, AFailedWriteFromTheListIsNoReasonToReadTheRowAgain) {
    Use("VpicPorts");
    Pick(4);
    board::FailAlways("vdapi_VPIC_WritePort", VXD_TIMEOUT_FAILURE);
    board::ForgetCalls();
    dialog_.Key(VK_RETURN);  // presses "&Set", with the focus on the list
    kit::MeetBox(kWarning, "vdapi_VPIC_WritePort: \nVXD_TIMEOUT_FAILURE");
    EXPECT_EQ(CallsOf("vdapi_VPIC_WritePort").size(), 1u);
    EXPECT_TRUE(CallsOf("vdapi_VPIC_ReadPort").empty());
}

TEST_F(OneBrowser, ADoubleClickShowsTheRowAnew) {
    Use("VpicPorts");
    Pick(4);
    board::ForgetCalls();
    kit::OnUserInterface([this] {
        const HWND list = GetDlgItem(dialog_.Handle(), browser_->list);
        SendMessageA(dialog_.Handle(), WM_COMMAND, MAKEWPARAM(browser_->list, LBN_DBLCLK),
                     reinterpret_cast<LPARAM>(list));
    });
    EXPECT_EQ(IdOf(OnlyCallOf("vdapi_VPIC_ReadPort")), 0x4u);
}

TEST_F(OneBrowser, TypingARowsFirstLettersShowsIt) {
    Use("SaecPorts");
    const HWND list = dialog_.Control(browser_->list);
    for (const char letter : {'r', 'e', 'v'})
        PostMessageA(list, WM_CHAR, static_cast<WPARAM>(letter), 0);
    EXPECT_EQ(Name(), "0x0000   REVISION                 ");
    EXPECT_EQ(IdOf(CallsOf(browser_->read).back()), 0x20000u);
    EXPECT_EQ(Shown(), "0x0013");
}

TEST_F(OneBrowser, ValuesAreReadBehindTheirPrefixAndCutToTheRegister) {
    struct Case {
        const char* test;
        int row;
        const char* typed;
        uint32_t written;
    };
    for (const Case& each :
         {// What stands in the prefix's place is skipped unread, all there is where it is short.
          Case{"ArcofiPorts", 0, "5", 0}, Case{"ArcofiPorts", 0, "0x", 0},
          Case{"ArcofiPorts", 0, "", 0}, Case{"ArcofiPorts", 0, "zz5", 5},
          Case{"ArcofiPorts", 0, "0x5", 5}, Case{"ArcofiPorts", 0, "0x1FF", 0xFF},
          Case{"ArcofiPorts", 0, "0xaG1", 0x0A},
          // Five digits count, or nine; of nine the low 32 bits.
          Case{"SaecPorts", 6, "0x123456", 0x12345}, Case{"VpicPorts", 4, "0xabcdef", 0xABCDEF},
          Case{"VpicPorts", 4, "0x123456789", 0x23456789},
          Case{"VpicPorts", 4, "0x0123456789", 0x12345678}}) {
        if (browser_ == nullptr || browser_->test != std::string(each.test))
            Use(each.test);
        Pick(each.row);
        Set(each.typed);
        EXPECT_EQ(WordAt(OnlyCallOf(browser_->write).block, 0), each.written) << each.typed;
    }
}

TEST_F(OneBrowser, BitsAreReadFromTheFirstCharacterOn) {
    for (const auto& [test, chip] :
         {std::pair{"VpicBits", "VPIC"}, std::pair{"IsacBits", "ISAC"}}) {
        Use(test);
        const std::string operation = "TALVERO_DBG_" + std::string(chip) + "_OP_BIT_";
        for (const auto& [typed, what] :
             {std::pair{"1", "SET"}, std::pair{"00f", "SET"}, std::pair{"0", "CLR"},
              std::pair{"0x1", "CLR"}, std::pair{"", "CLR"}}) {
            Set(typed);
            EXPECT_EQ(CallsOf(operation + what).size(), 1u) << test << " \"" << typed << '"';
        }
    }
}

TEST_F(OneBrowser, AClearedBitThatFailsIsReportedUnderItsOwnName) {
    Use("VpicBits");
    board::FailAlways("TALVERO_DBG_VPIC_OP_BIT_CLR", VXD_BUSY_WITH_PRIOR_REQUEST);
    Set("0");
    kit::MeetBox(kWarning,
                 "vdapi_Debug: TALVERO_DBG_VPIC_OP_BIT_CLR: \nVXD_BUSY_WITH_PRIOR_REQUEST");
}

TEST_F(OneBrowser, TheVpicIdsFlagIsPassedForReadingAndClearedForWriting) {
    Use("VpicPorts");
    Pick("INT_MASK                   ");
    EXPECT_EQ(IdOf(CallsOf("vdapi_VPIC_ReadPort").back()), 0x4002024u);
    Set("0x0");
    EXPECT_EQ(IdOf(OnlyCallOf("vdapi_VPIC_WritePort")), 0x2024u);
    Use("VpicBits");
    Pick("IRQ_MSK_INT4                ");
    EXPECT_EQ(IdOf(CallsOf("TALVERO_DBG_VPIC_OP_BIT_ST").back()), 0x05402024u);
    Set("1");
    EXPECT_EQ(IdOf(OnlyCallOf("TALVERO_DBG_VPIC_OP_BIT_SET")), 0x01402024u);
    Set("0");
    EXPECT_EQ(IdOf(OnlyCallOf("TALVERO_DBG_VPIC_OP_BIT_CLR")), 0x01402024u);
}

TEST_F(OneBrowser, ABitThatIsSetIsSeenInItsPort) {
    Use("VpicBits");
    Pick("CTRL_REG_VCP_RST            ");
    Set("1");
    Use("VpicPorts");
    EXPECT_EQ(Shown(), "0x00000002");
}

TEST_F(OneBrowser, TheEchoCancellersRegistersAreShownByTheirWidthAndAddress) {
    Use("SaecPorts");
    EXPECT_EQ(Shown(), "0x0001");
    EXPECT_EQ(Name(), "0x0000   STATUS                   ");
    Pick("HWCONF1                  ");
    Set("0x1");
    Pick(2);
    EXPECT_EQ(Shown(), "0x01");
    EXPECT_EQ(Name(), "0x0100   HWCONF1                  ");
}

TEST_F(OneBrowser, AFeatureIsSwitchedOffByAValueWhoseLow16BitsAre0) {
    Use("AuxdevFeatures");
    Pick("Jade Reset");
    Set("0x1");
    for (const char* typed : {"0x0", "0x10000", "1"}) {
        Set(typed);
        EXPECT_EQ(IdOf(OnlyCallOf("vdapi_AUXDEV_Deactivate")), 28u) << typed;
    }
    Pick("Jade Reset");
    EXPECT_EQ(Shown(), "0x00");
    board::FailAlways("vdapi_AUXDEV_Deactivate", VXD_CRIT_ERROR);
    Set("0x0");
    kit::MeetBox(kWarning, "vdapi_AUXDEV_Deactivate: \nVXD_CRIT_ERROR");
}

TEST_F(OneBrowser, TheFeaturesAreTheSameDialogOnBothMenus) {
    Use("AuxdevFeatures");
    const int rows = dialog_.Rows(browser_->list);
    dialog_.Press(IDOK);
    dialog_ = Open(utility_, IDM_BOARD_AUXDEV_FEATURES, "AUXDEV Features");
    EXPECT_EQ(dialog_.Rows(browser_->list), rows);
}

TEST(RegisterBrowserResult, Is1AfterCloseAnd0AfterCancel) {
    std::future<int> results = kit::StartProgram([] {
        const HINSTANCE instance = GetModuleHandleA(nullptr);
        const INT_PTR closed = OpenVpicPorts(instance, nullptr);
        return static_cast<int>(closed * 10 + OpenVpicPorts(instance, nullptr));
    });
    kit::WaitForDialog("VPIC Port").Press(IDOK);
    kit::WaitForDialog("VPIC Port").Key(VK_ESCAPE);
    EXPECT_EQ(results.get(), 10);
}

// --- Coefficients ---

TEST_F(OneBrowser, CoefficientsHaveAsManyLinesAsTheirCommandTakes) {
    Use("ArcofiCoefficients");
    EXPECT_EQ(dialog_.FocusedId(), IDC_COEFFICIENTS_VALUES);
    EXPECT_EQ(Shown(), "0x00\r\n0x00\r\n0x00\r\n0x00\r\n0x00\r\n0x00\r\n0x00\r\n0x00");
    EXPECT_EQ(dialog_.Text(IDC_COEFFICIENTS_COUNT), "8");
    EXPECT_EQ(dialog_.Text(IDC_COEFFICIENTS_COMMAND), "COP_0");
    Pick("TONE_FILTER                  ");
    EXPECT_EQ(Shown(), "0x00\r\n0x00\r\n0x00\r\n0x00");
    EXPECT_EQ(dialog_.Text(IDC_COEFFICIENTS_COUNT), "4");
    EXPECT_EQ(dialog_.Text(IDC_COEFFICIENTS_COMMAND), "COP_3");
    board::FailAlways("vdapi_ARCOFI_Read", VXD_HARDWARE_FAILURE);
    Pick(15);
    EXPECT_EQ(Shown(), "Failure !!");
    EXPECT_EQ(dialog_.Text(IDC_COEFFICIENTS_COUNT), "8");
    EXPECT_EQ(dialog_.Text(IDC_COEFFICIENTS_COMMAND), "COP_F");
}

TEST_F(OneBrowser, MissingCoefficientsAre0AndThoseTooManyAreLeftOut) {
    using Bytes = std::vector<uint8_t>;
    Use("ArcofiCoefficients");
    Set("0x11\r0x1F2");
    EXPECT_EQ(OnlyCallOf("vdapi_ARCOFI_Write").block, (Bytes{0x11, 0xF2, 0, 0, 0, 0, 0, 0}));
    Set("\r0x11\r\r5\r0x33");
    EXPECT_EQ(OnlyCallOf("vdapi_ARCOFI_Write").block, (Bytes{0x11, 0, 0x33, 0, 0, 0, 0, 0}));
    Pick("TONE_FILTER                  ");
    Set("0x1\r0x2\r0x3\r0x4\r0x5");
    EXPECT_EQ(OnlyCallOf("vdapi_ARCOFI_Write").block, (Bytes{1, 2, 3, 4}));
}

TEST_F(OneBrowser, TheTabKeyLeadsFromTypedCoefficientsToSetAndLeavesThemAsTheyAre) {
    Use("ArcofiCoefficients");
    dialog_.Type(IDC_COEFFICIENTS_VALUES, "0x11");
    dialog_.Key(VK_TAB);
    EXPECT_EQ(dialog_.FocusedId(), IDC_COEFFICIENTS_SET);
    EXPECT_EQ(Shown(), "0x11");
}

TEST_F(OneBrowser, TheCoefficientsOpenOverTheArcofisPorts) {
    Use("ArcofiPorts");
    dialog_.Press(IDC_ARCOFI_PORTS_COEFFICIENTS);
    const kit::Dialog coefficients = kit::WaitForDialog("ARCOFI Coefficiets");
    EXPECT_FALSE(kit::OnUserInterface([this] { return IsWindowEnabled(dialog_.Handle()) != 0; }));
    coefficients.Press(IDOK);
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
    Pick(1);
    EXPECT_EQ(Shown(), "0x00");
}

// --- ISAC chips ---

struct ChipsCase {
    const char* name;
    const char* revision;
    uint32_t fitted;  // 0: as many as the revision can have
    bool second, third;

    friend void PrintTo(const ChipsCase& each, std::ostream* out) { *out << each.name; }
};

class IsacChips : public testing::TestWithParam<ChipsCase> {};

TEST_P(IsacChips, CanBeChosenAsTheBoardHasThem) {
    kit::SettingsFolder settings;
    settings.Write(kit::kBoardFile, "Board", "Revision", GetParam().revision);
    kit::Utility utility(settings);
    board::SetIsacChipsFitted(GetParam().fitted);
    for (const auto& [test, firstChip] : {std::pair{"IsacRegisters", IDC_ISAC_REGISTERS_CHIP_1},
                                          std::pair{"IsacBits", IDC_ISAC_BITS_CHIP_1}}) {
        const kit::Dialog dialog = Open(utility, Named(test).command, Named(test).caption);
        EXPECT_TRUE(dialog.IsChecked(firstChip));
        EXPECT_TRUE(dialog.IsEnabled(firstChip));
        EXPECT_EQ(dialog.IsEnabled(firstChip + 1), GetParam().second) << test;
        EXPECT_EQ(dialog.IsEnabled(firstChip + 2), GetParam().third) << test;
        dialog.Press(IDOK);
    }
}

INSTANTIATE_TEST_SUITE_P(Boards, IsacChips,
                         testing::Values(ChipsCase{"One", "0x0110", 0, false, false},
                                         ChipsCase{"TwoOn05", "0x0105", 0, true, false},
                                         ChipsCase{"TwoOn07", "0x0107", 0, true, false},
                                         ChipsCase{"ThreeOn1D", "0x011D", 0, true, true},
                                         ChipsCase{"ThreeOn2D", "0x012D", 0, true, true},
                                         ChipsCase{"ThreeOn3D", "0x013D", 0, true, true},
                                         ChipsCase{"ThreeOn6D", "0x016D", 0, true, true},
                                         ChipsCase{"ThreeOn7D", "0x017D", 0, true, true},
                                         ChipsCase{"ThreeOn8D", "0x018D", 0, true, true},
                                         ChipsCase{"RoomForThree", "0x011D", 1, false, false}),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(OneBrowser, AChipThatIsChosenIsShownAndWrittenUntilTheDialogCloses) {
    struct Case {
        const char* test;
        int firstChip;
        const char* typed;
    };
    for (const Case& each : {Case{"IsacRegisters", IDC_ISAC_REGISTERS_CHIP_1, "0x7"},
                             Case{"IsacBits", IDC_ISAC_BITS_CHIP_1, "1"}}) {
        Use(each.test);
        Pick(browser_->row);
        const std::string before = Shown();
        const uint32_t codes[] = {1, 6, 9};
        for (const int chip : {2, 1}) {
            board::ForgetCalls();
            dialog_.Press(each.firstChip + chip);
            EXPECT_EQ(WordAt(CallsOf(browser_->read).back().block, 0), codes[chip]);
            EXPECT_EQ(Shown(), before) << "each chip has its own registers";
            Set(each.typed);
            EXPECT_EQ(WordAt(OnlyCallOf(browser_->write).block, 0), codes[chip]);
        }
        Use(each.test);
        Pick(browser_->row);
        EXPECT_EQ(Shown(), before) << "the first chip is shown again";
    }
}

// --- Cameras ---

TEST_F(OneBrowser, TheDigitalCamerasReadsAreReportedOnceAndShowWhatWasReadLast) {
    Use("DigitalCamera");
    Pick(2);
    Set("0x12");
    Pick(2);
    Use("DigitalCamera");
    board::FailAlways("vdapi_CAM_Digit_Read", VXD_HARDWARE_FAILURE);
    Pick(2);
    // The list gets its focus back from the box, which is no reason for another one.
    kit::MeetBox(kWarning, "vdapi_CAM_Digit_Read: \nVXD_HARDWARE_FAILURE");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
    EXPECT_EQ(Shown(), "0x12");
    board::SucceedAgain();
}

// The register ids and bytes of the calls of that name.
std::vector<std::pair<uint32_t, uint32_t>> Written(const char* operation) {
    std::vector<std::pair<uint32_t, uint32_t>> written;
    for (const board::Call& call : CallsOf(operation))
        written.emplace_back(call.arguments[0].value, call.arguments[1].value);
    return written;
}

TEST_F(OneBrowser, UpdateAllRegistersWritesWhatIsRememberedOfThoseThatCanBeWritten) {
    using Registers = std::vector<std::pair<uint32_t, uint32_t>>;
    Use("DigitalCamera");
    board::ForgetCalls();
    dialog_.Press(IDC_CAMERA_UPDATE_ALL);
    EXPECT_EQ(Written("vdapi_CAM_Digit_Write"), (Registers{{0x300, 0x00},
                                                           {0x301, 0x00},
                                                           {0x302, 0x80},
                                                           {0x304, 0x80},
                                                           {0x305, 0x80},
                                                           {0x306, 0x80},
                                                           {0x307, 0x80}}));
    Use("AnalogCamera");
    Set("0x99");  // is not remembered
    board::ForgetCalls();
    dialog_.Press(IDC_CAMERA_UPDATE_ALL);
    EXPECT_EQ(Written("vdapi_CAM_ACIF_Write"), (Registers{{0x30B, 0x46},
                                                          {0x30A, 0x8B},
                                                          {0x30D, 0x00},
                                                          {0x30E, 0xB0},
                                                          {0x30C, 0x40},
                                                          {0x302, 0x40},
                                                          {0x303, 0x03},
                                                          {0x304, 0x75},
                                                          {0x305, 0x8C},
                                                          {0x309, 0x00},
                                                          {0x308, 0x06},
                                                          {0x311, 0xD9},
                                                          {0x312, 0x16}}));
    board::FailOnce("vdapi_CAM_ACIF_Write", VXD_BUSY_WITH_PRIOR_REQUEST);
    board::ForgetCalls();
    dialog_.Press(IDC_CAMERA_UPDATE_ALL);
    kit::MeetBox(kWarning, "vdapi_CAM_ACIF_Write: \nVXD_BUSY_WITH_PRIOR_REQUEST");
    EXPECT_EQ(Written("vdapi_CAM_ACIF_Write").size(), 13u) << "a failure ends nothing";
}

TEST_F(OneBrowser, TestWritesTheValueAHundredTimes) {
    for (const char* test : {"DigitalCamera", "AnalogCamera"}) {
        Use(test);
        Pick(0);
        dialog_.Type(browser_->value, "0x1A5");
        board::ForgetCalls();
        dialog_.Press(IDC_CAMERA_TEST);
        const auto written = Written(browser_->write);
        ASSERT_EQ(written.size(), 100u);
        EXPECT_EQ(written.back().second, 0xA5u);
    }
}

TEST_F(OneBrowser, TheDecodersVersionAndStatusAreReadFromTheChip) {
    Use("AnalogCamera");
    Pick("Version Number              ");
    EXPECT_EQ(Shown(), "0x01");
    board::FailAlways("vdapi_CAM_ACIF_Read", VXD_HARDWARE_FAILURE);
    Pick("Version Number              ");
    EXPECT_EQ(Shown(), "0x01") << "what was read last stays";
}

}  // namespace
