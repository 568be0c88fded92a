// The register browsers.
#include <ostream>

#include "res/resource.h"
#include "services/application.h"
#include "tests/app/dialog_test.h"
#include "tests/kit/person.h"

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
    std::size_t reads;    // how many different ones on a walk through all rows
    int unreadable;       // how many rows show the failure text on that walk
    const char* failure;  // what a failed read shows

    const char* row;
    const char* typed;
    const char* readBack;
    const char* write;
    bool reportsWrites = true;                   // those that fail
    ResultCode readCode = VXD_HARDWARE_FAILURE;  // for which a failed read shows its text

    friend void PrintTo(const Browser& browser, std::ostream* out) { *out << browser.test; }
};

constexpr Browser kBrowsers[] = {
    {"VpicPorts", IDM_VPIC_PORTS, "VPIC Port", 1011, 1012, 1014, 1013, 105,  //
     "vdapi_VPIC_ReadPort", 105, 0, "Failure !!",                            //
     "VCP_VCX                    ", "0x89abCDEF", "0x89ABCDEF", "vdapi_VPIC_WritePort"},
    {"VpicBits", IDM_VPIC_BITS, "VPIC Bits", 1011, 1012, 1014, 1013, 55,  //
     "TALVERO_DBG_VPIC_OP_BIT_ST", 55, 0, "4",                            //
     "CTRL_REG_VCP_RST            ", "1", "1", "TALVERO_DBG_VPIC_OP_BIT_SET"},
    {"IsacRegisters", IDM_ISAC_REGISTERS, "ISAC Registers", 1011, 1012, 1014, 1013, 41,  //
     "TALVERO_DBG_ISAC_TR_REG_RD", 41, 2, "Failure !!",                                  //
     "TIMR  - Timer ", "0x1DA", "0xDA", "TALVERO_DBG_ISAC_TR_REG_WR"},
    {"IsacBits", IDM_ISAC_BITS, "ISAC Bits", 1011, 1012, 1014, 1013, 82,  //
     "TALVERO_DBG_ISAC_OP_BIT_ST", 82, 0, "4",                            //
     "MODE_RAC              ", "1", "1", "TALVERO_DBG_ISAC_OP_BIT_SET", false},
    {"ArcofiPorts", IDM_ARCOFI_PORTS, "ARCOFI Ports", 1011, 1012, 1014, 1013, 68,  //
     "vdapi_ARCOFI_Read", 68, 0, "Failure !!",                                     //
     "ATCR_MICROPHONE_CTRL           ", "0x0b", "0x0B", "vdapi_ARCOFI_Write"},
    {"ArcofiCoefficients", IDM_ARCOFI_COEFFICIENTS, "ARCOFI Coefficiets", 1038, 1041, 0, 1042, 16,
     "vdapi_ARCOFI_Read", 16, 0, "Failure !!",  //
     "TONE_FILTER                  ", "0x01\r0x2\r0xFE\r0x34", "0x01\r\n0x02\r\n0xFE\r\n0x34",
     "vdapi_ARCOFI_Write"},
    {"SaecPorts", IDM_SAEC_PORTS, "Siemens AEC Ports", 1011, 1012, 1014, 1013, 137,  //
     "vdapi_SAEC_Read", 137, 0, "Failure !!",                                        //
     "SAGX5                    ", "0xABC", "0x0ABC", "vdapi_SAEC_Write"},
    {"DigitalCamera", IDM_CAMERA_ACCESS, "Camera Registers", 1032, 1033, 1014, 1013, 11,  //
     "vdapi_CAM_Digit_Read", 11, 1, "Failure",                                            //
     "Gain                        ", "0x12", "0x12", "vdapi_CAM_Digit_Write", true,
     VXD_ILLEGAL_OPERATION},
    // The decoder's registers cannot be read but for two; what is shown is what is remembered.
    {"AnalogCamera", IDM_ANALOG_CAMERA_ACCESS, "Camera Registers", 1032, 1033, 1014, 1013, 15,  //
     "vdapi_CAM_ACIF_Read", 2, 0, "0x46",                                                       //
     "Contrast                    ", "0x12", "0x46", "vdapi_CAM_ACIF_Write"},
    {"AuxdevFields", IDM_BOARD_AUXDEV_FIELDS, "AUXDEV Fields", 1032, 1033, 1014, 1013, 16,  //
     "vdapi_AUXDEV_GetField", 16, 0, "Failure",                                             //
     "Audio Output Select", "0x134", "0x34", "vdapi_AUXDEV_SetField"},
    {"AuxdevFeatures", IDM_AUXDEV, "AUXDEV Features", 1032, 1033, 1014, 1013, 42,  //
     "vdapi_AUXDEV_GetFeature", 42, 0, "Failure!",                                 //
     "Jade Reset", "0x80", "0x01", "vdapi_AUXDEV_Activate"},
    // HCount low and FSC low are there twice.
    {"EncoderFields", IDM_BROOKTREE_CONTROL_REGS, "BrookTree Registers & Fields",  //
     1032, 1033, 1014, 1013, 41, "vdapi_BT85X_ReadCtrlRegister", 39, 0, "Failure",
     "COLOR_INPUT_FORMAT (Reg 0x0)", "0x1A", "0x0A", "vdapi_BT85X_WriteCtrlRegister", true,
     VXD_ILLEGAL_OPERATION},
};

// The calls of an operation or debug command since the last ForgetCalls.
Texts CallsOf(const std::string& name) {
    Texts found;
    for (const board::Call& call : board::Calls()) {
        if (call.operation == name || call.command == name)
            found.push_back(Written(call));
    }
    return found;
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

class RegisterBrowser : public CommandTest, public testing::WithParamInterface<Browser> {
  protected:
    RegisterBrowser() : dialog_(Ask(GetParam().command, GetParam().caption)) {}
    ~RegisterBrowser() override { dialog_.Press(IDOK); }

    void PickRow() const { dialog_.Pick(GetParam().list, std::string(GetParam().row)); }

    kit::Dialog dialog_;
};

TEST_P(RegisterBrowser, ShowsEveryRowThatIsChosenWithItsName) {
    const Browser& browser = GetParam();
    ASSERT_EQ(dialog_.Rows(browser.list), browser.rows);
    EXPECT_EQ(dialog_.SelectedRow(browser.list), 0);
    EXPECT_NE(dialog_.Text(browser.value), "") << "the first row is shown at once";
    std::set<std::string> reads;
    int unreadable = 0;
    for (int row = 0; row < browser.rows; ++row) {
        board::ForgetCalls();
        dialog_.Pick(browser.list, row);
        for (const std::string& call : CallsOf(browser.read))
            reads.insert(call);
        unreadable += dialog_.Text(browser.value).starts_with("Failure");
        if (browser.name != 0) {
            EXPECT_TRUE(dialog_.Text(browser.name).ends_with(dialog_.Row(browser.list, row)));
        }
    }
    EXPECT_EQ(reads.size(), browser.reads);
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
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
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
    const std::string name = browser.write;
    if (browser.reportsWrites) {
        kit::MeetBox(kWarning, (name.starts_with("TALVERO_DBG_") ? "vdapi_Debug: " : "") + name +
                                   ": \nVXD_TIMEOUT_FAILURE");
    }
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
    EXPECT_EQ(dialog_.Text(browser.value).substr(0, 4), std::string(browser.typed).substr(0, 4));
}

INSTANTIATE_TEST_SUITE_P(All, RegisterBrowser, testing::ValuesIn(kBrowsers),
                         [](const auto& browser) { return std::string(browser.param.test); });

// --- What only some of them do ---

class OneBrowser : public CommandTest {
  protected:
    ~OneBrowser() override { Close(); }

    void Use(const std::string& test) {
        Close();
        browser_ = &Named(test);
        dialog_ = Ask(browser_->command, browser_->caption);
    }
    void Close() const {
        if (dialog_.Handle() != nullptr)
            dialog_.Press(IDOK);
    }

    // What the board receives when a row is chosen, or a value is set.
    Texts Pick(const std::string& row) const {
        board::ForgetCalls();
        dialog_.Pick(browser_->list, row);
        return ReceivedCalls();
    }
    Texts Set(const char* text) const {
        ::Set(dialog_, *browser_, text);
        return ReceivedCalls();
    }
    std::string Shown() const { return dialog_.Text(browser_->value); }
    std::string Name() const { return dialog_.Text(browser_->name); }

    kit::Dialog dialog_{nullptr};
    const Browser* browser_ = nullptr;
};

TEST_F(OneBrowser, AListWithoutASelectionLeavesTheRowThatWasUsedLast) {
    Use("AuxdevFields");
    dialog_.Pick(browser_->list, 5);
    SelectNothing(dialog_, browser_->list, LB_SETCURSEL);
    EXPECT_EQ(Set("0x21"), Texts{"vdapi_AUXDEV_SetField(5, 21)"});
}

TEST_F(OneBrowser, AFailedWriteFromTheListIsNoReasonToReadTheRowAgain) {
    Use("VpicPorts");
    dialog_.Pick(browser_->list, 4);
    board::FailAlways("vdapi_VPIC_WritePort", VXD_TIMEOUT_FAILURE);
    board::ForgetCalls();
    dialog_.Key(VK_RETURN);  // presses "&Set", with the focus on the list
    kit::MeetBox(kWarning, "vdapi_VPIC_WritePort: \nVXD_TIMEOUT_FAILURE");
    EXPECT_EQ(ReceivedCalls(), Texts{"vdapi_VPIC_WritePort(4, address) 00000000"});
}

TEST_F(OneBrowser, ADoubleClickShowsTheRowAnew) {
    Use("VpicPorts");
    dialog_.Pick(browser_->list, 4);
    board::ForgetCalls();
    kit::DoubleClickRow(dialog_.Control(browser_->list), 4);
    EXPECT_EQ(ReceivedCalls(),
              (Texts{"vdapi_VPIC_ReadPort(4, address)", "vdapi_VPIC_ReadPort(4, address)"}))
        << "the first click and both";
}

TEST_F(OneBrowser, TheEchoCancellersRowsAreFoundByTypingAndShownByTheirWidthAndAddress) {
    Use("SaecPorts");
    EXPECT_EQ(Shown(), "0x0001");
    EXPECT_EQ(Name(), "0x0000   STATUS                   ");
    const HWND list = dialog_.Control(browser_->list);
    for (const char letter : {'r', 'e', 'v'})
        PostMessageA(list, WM_CHAR, static_cast<WPARAM>(letter), 0);
    EXPECT_EQ(Name(), "0x0000   REVISION                 ");
    EXPECT_EQ(ReceivedCalls().back(), "vdapi_SAEC_Read(20000, address)");
    EXPECT_EQ(Shown(), "0x0013");
    Pick("HWCONF1                  ");
    EXPECT_EQ(Shown(), "0x00");
    EXPECT_EQ(Name(), "0x0100   HWCONF1                  ");
}

TEST_F(OneBrowser, ValuesAreReadBehindTheirPrefixAndCutToTheRegister) {
    for (const auto& [test, row, typed, written] :
         {// What stands in the prefix's place is skipped unread, all there is where it is short.
          std::tuple{"ArcofiPorts", 0, "5", "00"}, std::tuple{"ArcofiPorts", 0, "0x", "00"},
          std::tuple{"ArcofiPorts", 0, "", "00"}, std::tuple{"ArcofiPorts", 0, "zz5", "05"},
          std::tuple{"ArcofiPorts", 0, "0x5", "05"}, std::tuple{"ArcofiPorts", 0, "0x1FF", "FF"},
          std::tuple{"ArcofiPorts", 0, "0xaG1", "0A"},
          // Five digits count, or nine; of nine the low 32 bits.
          std::tuple{"SaecPorts", 6, "0x123456", "45230100"},
          std::tuple{"VpicPorts", 4, "0xabcdef", "EFCDAB00"},
          std::tuple{"VpicPorts", 4, "0x123456789", "89674523"},
          std::tuple{"VpicPorts", 4, "0x0123456789", "78563412"}}) {
        if (browser_ == nullptr || browser_->test != std::string(test))
            Use(test);
        dialog_.Pick(browser_->list, row);
        const Texts received = Set(typed);
        ASSERT_EQ(received.size(), 1u) << typed;
        EXPECT_TRUE(received[0].ends_with(std::string(") ") + written)) << typed << received[0];
    }
}

TEST_F(OneBrowser, ValuesAreShownInTheirRegistersWidthWhateverTheBoardGives) {
    struct Case {
        const char* test;
        const char* row;
        uint32_t stuck;  // bits that read 1 beside what the register holds
        const char* shown;
    };
    for (const Case& each : {
             Case{"VpicPorts", "VCP_VCX                    ", 0x0A, "0x0000000A"},
             Case{"IsacRegisters", "TIMR  - Timer ", 0x0A, "0x0A"},
             Case{"ArcofiPorts", "REG_GCR                        ", 0x0A, "0x0A"},
             Case{"ArcofiCoefficients", "TONE_FILTER                  ", 0x0A,
                  "0x0A\r\n0x0A\r\n0x0A\r\n0x0A"},
             Case{"SaecPorts", "HWCONF1                  ", 0xFFFFFF0A, "0x0A"},
             Case{"SaecPorts", "SAGX5                    ", 0xFFFF0A0B, "0x0A0B"},
             Case{"DigitalCamera", "Control Register            ", 0x0A, "0x0A"},
             Case{"AnalogCamera", "Version Number              ", 0x0A, "0x0B"},
             Case{"AuxdevFields", "Audio Output Select", 0x0A, "0x0A"},
             Case{"AuxdevFields", "Audio Output Select", 0xABC, "0xABC"},
             Case{"AuxdevFeatures", "Jade Reset", 0x0A, "0x0A"},
         }) {
        SCOPED_TRACE(std::string(each.test) + ", " + each.row);
        Use(each.test);
        board::StickBits(browser_->read, each.stuck);
        dialog_.Pick(browser_->list, std::string(each.row));
        EXPECT_EQ(Shown(), each.shown);
        board::SucceedAgain();
    }
}

TEST_F(OneBrowser, BitsAreReadFromTheFirstCharacterOn) {
    for (const auto& [test, block, set, clear] :
         {std::tuple{"VpicBits", "00000000 20400002", "1D", "1E"},
          std::tuple{"IsacBits", "01000000 22068000", "4F", "50"}}) {
        Use(test);
        for (const auto& [typed, number] :
             {std::pair{"1", set}, std::pair{"00f", set}, std::pair{"0", clear},
              std::pair{"0x1", clear}, std::pair{"", clear}}) {
            EXPECT_EQ(Set(typed),
                      Texts{std::string("vdapi_Debug(") + number + ", 8, address) " + block})
                << test << " \"" << typed << '"';
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
    EXPECT_EQ(Pick("INT_MASK                   ").back(), "vdapi_VPIC_ReadPort(4002024, address)");
    EXPECT_EQ(Set("0x0"), Texts{"vdapi_VPIC_WritePort(2024, address) 00000000"});
    Use("VpicBits");
    EXPECT_EQ(Pick("IRQ_MSK_INT4                ").back(),
              "vdapi_Debug(1F, 8, address) 00000000 24204005");
    EXPECT_EQ(Set("1"), Texts{"vdapi_Debug(1D, 8, address) 00000000 24204001"});
    EXPECT_EQ(Set("0"), Texts{"vdapi_Debug(1E, 8, address) 00000000 24204001"});
}

TEST_F(OneBrowser, AFeatureIsSwitchedOffByAValueWhoseLow16BitsAre0) {
    Use("AuxdevFeatures");
    dialog_.Press(IDOK);
    dialog_ = Ask(IDM_BOARD_AUXDEV_FEATURES, "AUXDEV Features");  // on the other menu
    Pick("Jade Reset");
    Set("0x1");
    for (const char* typed : {"0x0", "0x10000", "1"})
        EXPECT_EQ(Set(typed), Texts{"vdapi_AUXDEV_Deactivate(1C)"}) << typed;
    Pick("Jade Reset");
    EXPECT_EQ(Shown(), "0x00");
    board::FailAlways("vdapi_AUXDEV_Deactivate", VXD_CRIT_ERROR);
    Set("0x0");
    kit::MeetBox(kWarning, "vdapi_AUXDEV_Deactivate: \nVXD_CRIT_ERROR");
}

// --- Coefficients ---

TEST_F(OneBrowser, CoefficientsHaveAsManyLinesAsTheirCommandTakes) {
    Use("ArcofiCoefficients");
    const auto shown = [this] {
        return CommandTest::Shown(
            dialog_, {IDC_COEFFICIENTS_COMMAND, IDC_COEFFICIENTS_COUNT, IDC_COEFFICIENTS_VALUES});
    };
    const std::string four = "0x00\r\n0x00\r\n0x00\r\n0x00";
    EXPECT_EQ(dialog_.FocusedId(), IDC_COEFFICIENTS_VALUES);
    EXPECT_EQ(shown(), (Texts{"COP_0", "8", four + "\r\n" + four}));
    Pick("TONE_FILTER                  ");
    EXPECT_EQ(shown(), (Texts{"COP_3", "4", four}));
    board::FailAlways("vdapi_ARCOFI_Read", VXD_HARDWARE_FAILURE);
    dialog_.Pick(browser_->list, 15);
    EXPECT_EQ(shown(), (Texts{"COP_F", "8", "Failure !!"}));
}

TEST_F(OneBrowser, MissingCoefficientsAre0AndThoseTooManyAreLeftOut) {
    Use("ArcofiCoefficients");
    EXPECT_EQ(Set("0x11\r0x1F2"), Texts{"vdapi_ARCOFI_Write(920, address) 11F20000 00000000"});
    EXPECT_EQ(Set("\r0x11\r\r5\r0x33"),
              Texts{"vdapi_ARCOFI_Write(920, address) 11003300 00000000"});
    Pick("TONE_FILTER                  ");
    EXPECT_EQ(Set("0x1\r0x2\r0x3\r0x4\r0x5"), Texts{"vdapi_ARCOFI_Write(523, address) 01020304"});
}

TEST_F(OneBrowser, TheCoefficientsOpenOverTheArcofisPorts) {
    Use("ArcofiPorts");
    dialog_.Press(IDC_ARCOFI_PORTS_COEFFICIENTS);
    const kit::Dialog coefficients = kit::WaitForDialog("ARCOFI Coefficiets");
    EXPECT_FALSE(kit::OnUserInterface([this] { return IsWindowEnabled(dialog_.Handle()) != 0; }));
    coefficients.Press(IDOK);
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
    dialog_.Pick(browser_->list, 1);
    EXPECT_EQ(Shown(), "0x00");
}

// --- ISAC chips ---

TEST_F(OneBrowser, IsacChipsCanBeChosenAsTheBoardHasThem) {
    struct Case {
        uint16_t revision;
        uint32_t fitted;  // 0: as many as the revision can have
        int chips;
    };
    for (const Case& each :
         {Case{0x0110, 0, 1}, Case{0x0105, 0, 2}, Case{0x0107, 0, 2}, Case{0x011D, 0, 3},
          Case{0x012D, 0, 3}, Case{0x013D, 0, 3}, Case{0x016D, 0, 3}, Case{0x017D, 0, 3},
          Case{0x018D, 0, 3}, Case{0x011D, 1, 1}}) {
        SCOPED_TRACE(testing::Message() << each.revision << ", " << each.fitted);
        board::SetRevisions({.board = each.revision});
        board::SetIsacChipsFitted(each.fitted);
        kit::RunStep([&] { BoardRevision = each.revision; });
        for (const auto& [test, firstChip] : {std::pair{"IsacRegisters", IDC_ISAC_REGISTERS_CHIP_1},
                                              std::pair{"IsacBits", IDC_ISAC_BITS_CHIP_1}}) {
            Use(test);
            EXPECT_TRUE(dialog_.IsChecked(firstChip));
            for (int chip = 0; chip < 3; ++chip)
                EXPECT_EQ(dialog_.IsEnabled(firstChip + chip), chip < each.chips) << test << chip;
        }
    }
}

TEST_F(OneBrowser, ABoardThatDoesNotTellHowManyIsacChipsItHasOffersTheFirstAlone) {
    board::SetRevisions({.board = 0x011D});
    kit::RunStep([] { BoardRevision = 0x011D; });
    board::FailAlways("vdapi_AUXDEV_GetField", VXD_TIMEOUT_FAILURE);
    Use("IsacRegisters");
    EXPECT_FALSE(dialog_.IsEnabled(IDC_ISAC_REGISTERS_CHIP_1 + 1));
    EXPECT_FALSE(dialog_.IsEnabled(IDC_ISAC_REGISTERS_CHIP_1 + 2));
}

TEST_F(OneBrowser, AChipThatIsChosenIsShownAndWrittenUntilTheDialogCloses) {
    for (const auto& [test, firstChip, typed] :
         {std::tuple{"IsacRegisters", IDC_ISAC_REGISTERS_CHIP_1, "0x7"},
          std::tuple{"IsacBits", IDC_ISAC_BITS_CHIP_1, "1"}}) {
        Use(test);
        Pick(browser_->row);
        const std::string before = Shown();
        for (const auto& [chip, code] : {std::pair{2, "09000000"}, std::pair{1, "06000000"}}) {
            board::ForgetCalls();
            dialog_.Press(firstChip + chip);
            EXPECT_NE(ReceivedCalls().back().find(std::string(") ") + code), std::string::npos);
            EXPECT_EQ(Shown(), before) << "each chip has its own registers";
            EXPECT_NE(Set(typed).back().find(std::string(") ") + code), std::string::npos);
        }
        Use(test);
        Pick(browser_->row);
        EXPECT_EQ(Shown(), before) << "the first chip is shown again";
    }
}

// --- Cameras ---

TEST_F(OneBrowser, TheDigitalCamerasReadsAreReportedOnceAndShowWhatWasReadLast) {
    Use("DigitalCamera");
    dialog_.Pick(browser_->list, 2);
    Set("0x12");
    dialog_.Pick(browser_->list, 2);
    Use("DigitalCamera");
    board::FailAlways("vdapi_CAM_Digit_Read", VXD_HARDWARE_FAILURE);
    dialog_.Pick(browser_->list, 2);
    // The list gets its focus back from the box, which is no reason for another one.
    kit::MeetBox(kWarning, "vdapi_CAM_Digit_Read: \nVXD_HARDWARE_FAILURE");
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
    EXPECT_EQ(Shown(), "0x12");
    board::SucceedAgain();
}

// --- Encoders ---

TEST_F(OneBrowser, AnEncodersReadIsReportedOnceWhereverTheFocusIsAndShows0) {
    constexpr char kFailed[] = "vdapi_BT85X_ReadCtrlRegister: \nVXD_HARDWARE_FAILURE";
    const Texts once{"vdapi_BT85X_ReadCtrlRegister(1, 9701, address)"};
    Use("EncoderFields");
    EXPECT_TRUE(dialog_.IsChecked(IDC_ENCODER_BT855));
    EXPECT_EQ(Pick("OL3_READ_MASK      (Reg 0x1)"),
              Texts{"vdapi_BT85X_ReadCtrlRegister(0, 9701, address)"});
    EXPECT_EQ(ReceivedOn(dialog_, IDC_ENCODER_BT858), once);
    board::FailAlways("vdapi_BT85X_ReadCtrlRegister", VXD_HARDWARE_FAILURE);
    board::ForgetCalls();
    // From the list, which the box takes the focus from and gives it back to; from elsewhere, and
    // by the way there.
    kit::RunStep([&] { SetFocus(dialog_.Control(browser_->value)); });
    kit::BeginStep([list = dialog_.Control(browser_->list)] { SetFocus(list); });
    kit::MeetBox(kWarning, kFailed);
    EXPECT_EQ(ReceivedCalls(), once);
    EXPECT_EQ(dialog_.FocusedId(), browser_->list);
    EXPECT_EQ(Shown(), "0x00");
    EXPECT_EQ(Name(), "OL3_READ_MASK      (Reg 0x1)");
    board::ForgetCalls();
    dialog_.Press(IDC_ENCODER_BT858);
    kit::MeetBox(kWarning, kFailed);
    EXPECT_EQ(ReceivedCalls(), once);
    dialog_.Press(IDOK);

    utility_.Command(IDM_BROOKTREE_CONTROL_REGS);
    kit::MeetBox(kWarning, kFailed);
    dialog_ = kit::WaitForDialog(browser_->caption);
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
    board::SucceedAgain();
}

TEST_F(OneBrowser, AnEncodersFieldIsWrittenWholeAndTheEncoderRememberedByCloseAlone) {
    Use("EncoderFields");
    dialog_.Press(IDC_ENCODER_BT858);
    Pick("FSC_HIGH           (Reg 0xB)");
    EXPECT_EQ(Set("0x1ffff5"), Texts{"vdapi_BT85X_WriteCtrlRegister(1, B00B, 1FFFF)"});
    board::StickBits("vdapi_BT85X_ReadCtrlRegister", 0x100);
    Pick("FSC_HIGH           (Reg 0xB)");
    EXPECT_EQ(Shown(), "0x07");
    dialog_.Key(VK_ESCAPE);
    EXPECT_EQ(settings_.Read(kit::kOwnFile, "BTfield", "Encoder"), "(none)");
    dialog_ = kit::Dialog{nullptr};
    Use("EncoderFields");
    EXPECT_TRUE(dialog_.IsChecked(IDC_ENCODER_BT855));
    EXPECT_EQ(Pick("FSC_HIGH           (Reg 0xB)"),
              Texts{"vdapi_BT85X_ReadCtrlRegister(0, B00B, address)"});
    EXPECT_EQ(Shown(), "0x03");
    dialog_.Press(IDC_ENCODER_BT858);
    Use("EncoderFields");
    EXPECT_EQ(settings_.Read(kit::kOwnFile, "BTfield", "Encoder"), "1");
    EXPECT_TRUE(dialog_.IsChecked(IDC_ENCODER_BT858));
}

// The arguments of all calls, which must be of that operation: "(300, 0)(301, 0)".
std::string ArgumentsOf(const std::string& operation) {
    std::string arguments;
    for (const std::string& call : ReceivedCalls()) {
        EXPECT_TRUE(call.starts_with(operation)) << call;
        arguments += call.substr(operation.size());
    }
    return arguments;
}

TEST_F(OneBrowser, UpdateAllRegistersWritesWhatIsRememberedOfThoseThatCanBeWritten) {
    Use("DigitalCamera");
    board::ForgetCalls();
    dialog_.Press(IDC_CAMERA_UPDATE_ALL);
    EXPECT_EQ(ArgumentsOf("vdapi_CAM_Digit_Write"),
              "(300, 0)(301, 0)(302, 80)(304, 80)(305, 80)(306, 80)(307, 80)");
    Use("AnalogCamera");
    Set("0x99");  // is not remembered
    const std::string all =
        "(30B, 46)(30A, 8B)(30D, 0)(30E, B0)(30C, 40)(302, 40)(303, 3)(304, 75)(305, 8C)(309, 0)"
        "(308, 6)(311, D9)(312, 16)";
    board::ForgetCalls();
    dialog_.Press(IDC_CAMERA_UPDATE_ALL);
    EXPECT_EQ(ArgumentsOf("vdapi_CAM_ACIF_Write"), all);
    board::FailOnce("vdapi_CAM_ACIF_Write", VXD_BUSY_WITH_PRIOR_REQUEST);
    board::ForgetCalls();
    dialog_.Press(IDC_CAMERA_UPDATE_ALL);
    kit::MeetBox(kWarning, "vdapi_CAM_ACIF_Write: \nVXD_BUSY_WITH_PRIOR_REQUEST");
    EXPECT_EQ(ArgumentsOf("vdapi_CAM_ACIF_Write"), all) << "a failure ends nothing";
}

TEST_F(OneBrowser, TestWritesTheValueAHundredTimes) {
    for (const auto& [test, call] : {std::pair{"DigitalCamera", "vdapi_CAM_Digit_Write(300, A5)"},
                                     std::pair{"AnalogCamera", "vdapi_CAM_ACIF_Write(30B, A5)"}}) {
        Use(test);
        dialog_.Pick(browser_->list, 0);
        dialog_.Type(browser_->value, "0x1A5");
        board::ForgetCalls();
        dialog_.Press(IDC_CAMERA_TEST);
        EXPECT_EQ(ReceivedCalls(), Texts(100, call));
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
