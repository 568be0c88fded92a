// The older board's commands that bring chips through their life cycle.
#include "board/control.h"
#include "driver/papi.h"
#include "res/resource.h"
#include "tests/app/received_calls.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

struct Case {
    UINT command;
    std::vector<std::string> received;  // by the board; nothing from what is not supported
    std::vector<std::string> names;     // under which a failure is reported
    const char* dialog = nullptr;       // what asks for a choice first
};

// A command of the debug channel: its number and name, and the words of its block.
Case Debug(UINT command, uint32_t number, const std::string& name, const std::string& block = "",
           const char* dialog = nullptr) {
    const auto words = block.empty() ? 0 : std::ranges::count(block, ' ') + 1;
    std::ostringstream call;
    call << std::hex << std::uppercase << "vdapi_Debug(" << number << ", " << 4 * words
         << (words != 0 ? ", address) " : ", null)") << block;
    return {command, {call.str()}, {"vdapi_Debug: TALVERO_DBG_" + name}, dialog};
}

// The same behind a call that has no failure of its own to report.
Case After(const char* first, Case then) {
    then.received.insert(then.received.begin(), first);
    return then;
}

// Operations of the command library, each reported under its name.
Case Calls(UINT command, const std::vector<std::string>& calls) {
    Case each{command, calls, {}};
    for (const std::string& call : calls)
        each.names.push_back(call.substr(0, call.find('(')));
    return each;
}

// An operation of the command library that the main window calls.
Case MainCalls(UINT command, const std::string& call) {
    return {command, {call}, {"MainWndProc: " + call.substr(0, call.find('(')) + "()"}};
}

Case ArcofiLoop(UINT command, const std::string& written) {
    return {command,
            {"vdapi_ARCOFI_Read(91F, address)", "vdapi_ARCOFI_Write(91F, address) " + written},
            {"vdapi_ARCOFI_Read : LIST", "vdapi_ARCOFI_Write : LIST"}};
}

constexpr char kAnyDevice[] = "Select Device";
constexpr char kIsacDevice[] = "Select ISAC  Device";
constexpr char kMonitorDevice[] = "Select Monitor Device";

// Every command by its number in the menu, in an order in which a board takes them all.
const std::vector<Case> kCases = {
    Debug(40049, 0x02, "PCI_OP_INIT"),
    Debug(40050, 0x04, "PCI_OP_BIOS_PRST", "* * *"),
    Debug(40051, 0x05, "PCI_OP_FINDDEV", "02000000 61100000 00000000 * *"),
    Debug(40052, 0x06, "PCI_OP_FIND_CLS_CODE", "00000000 00000000 * *"),
    Debug(40053, 0x07, "PCI_OP_RD_CNFG_SPACE", "08000000 00000000 00000000 00000000 *"),
    Debug(40067, 0x15, "PCI_OP_SIM_INTERRUPT"),
    {40054, {}, {"TALVERO_DBG_PCI_OP_WR_CNFG_SPACE - "}},
    {40055, {}, {"TALVERO_DBG_VPIC_OP_PORT_RD - "}},
    {40056, {}, {"TALVERO_DBG_VPIC_OP_PORT_WR - "}},
    {40057, {}, {"TALVERO_DBG_VPIC_OP_BIT_SET - "}},
    {40058, {}, {"TALVERO_DBG_VPIC_OP_BIT_CLR - "}},
    {40059, {}, {"TALVERO_DBG_VPIC_OP_BIT_ST - "}},
    {40060, {}, {"TALVERO_DBG_PCI_OP_RD_IO_BYTE - "}},
    {40061, {}, {"TALVERO_DBG_PCI_OP_RD_IO_WORD - "}},
    {40062, {}, {"TALVERO_DBG_PCI_OP_RD_IO_DWORD - "}},

    {40114, {}, {"TALVERO_DBG_VPIC_TR_INIT"}},
    Debug(40116, 0x22, "VPIC_TR_RST"),
    {40141, {}, {"TALVERO_DBG_VPIC_TR_DMA_CHAN_RST - "}},
    {40142, {}, {"TALVERO_DBG_VPIC_TR_VCP_PORT_RD - "}},
    {40143, {}, {"TALVERO_DBG_VPIC_TR_VCP_PORT_WR - "}},
    {40144, {}, {"TALVERO_DBG_VPIC_TR_VID_PORT_RD - "}},

    Debug(40200, 0x33, "SEQ_TR_INIT"),
    Debug(40202, 0x35, "SEQ_TR_RST"),
    After("KORA_DLL_GetSeqHandle(0)", Debug(40205, 0x36, "SEQ_TR_RGSTR", "00000000 *")),
    Debug(40206, 0x37, "SEQ_TR_UNREG", "00000000"),
    Debug(40063, 0x38, "SEQ_TR_CRITENTER"),
    Debug(40064, 0x39, "SEQ_TR_CRITLEAVE"),
    Debug(40065, 0x3A, "SEQ_TR_ATOMENTER", "00000000", kAnyDevice),
    Debug(40066, 0x3B, "SEQ_TR_ATOMLEAVE", "00000000", kAnyDevice),
    Debug(40068, 0x3F, "SEQ_OP_INTERRUPT", "00000000", "Select IRQ"),
    {40207, {}, {"TALVERO_DBG_SEQ_TR_REG_RD - "}},
    {40208, {}, {"TALVERO_DBG_SEQ_TR_REG_WR - "}},
    {40209, {}, {"TALVERO_DBG_SEQ_TR_ACCESS_VPIC - "}},
    Debug(40201, 0x34, "SEQ_TR_TERM"),

    Debug(40228, 0x45, "ISAC_OP_INITCHIP", "01000000"),
    Debug(40229, 0x45, "ISAC_OP_INITCHIP", "06000000"),
    Debug(40259, 0x45, "ISAC_OP_INITCHIP", "09000000"),
    After("KORA_DLL_GetIsacHandle(D)",
          Debug(40074, 0x46, "ISAC_TR_INIT", "0D000000 * 00000000", "Initialize ISAC  ")),
    Debug(40076, 0x48, "ISAC_TR_RST", "0D000000", kIsacDevice),
    Debug(40078, 0x49, "ISAC_TR_IOM2_ACTV"),
    Debug(40079, 0x4A, "ISAC_TR_IOM2_DEACT"),
    Debug(40075, 0x47, "ISAC_TR_TERM", "0D000000", kIsacDevice),

    After("KORA_DLL_GetMonitorHandle(3, address)",
          Debug(40082, 0x52, "MON_TR_INIT", "03000000 * 00000000", "Initialize IOM2 Monitor")),
    Debug(40084, 0x54, "MON_TR_RST", "03000000", kMonitorDevice),
    Debug(40085, 0x55, "MON_TR_ACTV", "03000000", kMonitorDevice),
    Debug(40087, 0x58, "MON_TR_RCV", "01010000 * 02000000 *"),
    Debug(40088, 0x58, "MON_TR_RCV", "01010000 * 02000000 *"),
    Debug(40086, 0x56, "MON_TR_DEACT", "03000000", kMonitorDevice),
    Debug(40083, 0x53, "MON_TR_TERM", "03000000", kMonitorDevice),

    Debug(40089, 0x59, "ARCF_TR_INIT"),
    Debug(40091, 0x5B, "ARCF_TR_RST"),
    Debug(40092, 0x5C, "ARCF_TR_ACTV"),
    Debug(40095, 0x64, "ARCF_OP_INIT_SHADOW"),
    Calls(40130, {"vdapi_ARCOFI_SelectChannel(0)"}),
    Calls(40131, {"vdapi_ARCOFI_SelectChannel(40)"}),
    ArcofiLoop(40098, "000B22"),
    ArcofiLoop(40099, "080B22"),
    ArcofiLoop(40100, "100B22"),
    ArcofiLoop(40101, "180B22"),
    ArcofiLoop(40102, "200B22"),
    Debug(40093, 0x5D, "ARCF_TR_DEACT"),
    Debug(40090, 0x5A, "ARCF_TR_TERM"),

    Debug(40250, 0x65, "SAEC_TR_INIT"),
    Debug(40252, 0x67, "SAEC_TR_RST"),
    Debug(40251, 0x66, "SAEC_TR_TERM"),

    Debug(40105, 0x6A, "VCPXI_REGISTER", "00000000 00000000"),
    Debug(40106, 0x6B, "VCPXI_UNREGISTER"),

    Calls(40107, {"vdapi_AUXDEV_Deactivate(1)", "vdapi_AUXDEV_Activate(0)"}),
    Calls(40108, {"vdapi_AUXDEV_Deactivate(0)", "vdapi_AUXDEV_Activate(1)"}),
    Calls(40167, {"vdapi_JADE_Reset(32)"}),

    Calls(40124, {"vdapi_CAM_Digit_Initialize()"}),
    Debug(40126, 0x7B, "CAM_DIGIT_TR_RST"),
    Calls(40125, {"vdapi_CAM_Digit_Terminate()"}),
    Calls(40161, {"vdapi_CAM_ACIF_Initialize()"}),
    Calls(40162, {"vdapi_CAM_ACIF_Terminate()"}),

    Calls(40172, {"vdapi_BT85X_Initialize()"}),
    Calls(40174, {"vdapi_BT85X_Reset()"}),
    Debug(40180, 0xBE, "BT85X_OP_RESET"),
    Calls(40182, {"vdapi_BT85X_SetDisplayType(0)"}),
    Calls(40183, {"vdapi_BT85X_SetDisplayType(1)"}),
    Calls(40173, {"vdapi_BT85X_Terminate()"}),

    Calls(40185, {"vdapi_EPROM_Initialize()"}),
    Calls(40186, {"vdapi_EPROM_Terminate()"}),
    Calls(40109, {"vdapi_I2C_Initialize()"}),
    Debug(40111, 0x6F, "I2C_TR_RST"),
    Calls(40110, {"vdapi_I2C_Terminate()"}),
    Debug(40115, 0x21, "VPIC_TR_TERM"),

    Debug(40132, 0x87, "STREAM_TR_INIT"),
    Debug(40133, 0x88, "STREAM_TR_TERM"),
    MainCalls(40204, "vdapi_MBE_Initialize(0, 3FC)"),
    MainCalls(40213, "vdapi_MBE_RegisterOutgoingStream()"),
    MainCalls(40210, "vdapi_MBE_Terminate()"),
    MainCalls(40216, "vdapi_BAS_Initialize()"),
    MainCalls(40217, "vdapi_BAS_Terminate()"),
    Calls(40191, {"vdapi_VPP_Activate()"}),
    Calls(40192, {"vdapi_VPP_Deactivate()"}),
};

constexpr char kWarning[] = "VxD Test - Warning";

// Gives a command and confirms what it asks for as it stands.
void Give(const kit::Utility& utility, const Case& each) {
    board::ForgetCalls();
    utility.Command(each.command);
    if (each.dialog != nullptr)
        kit::WaitForDialog(each.dialog).Press(IDOK);
}

// The name that the board knows for what is reported under a name.
std::string OperationOf(const std::string& name) {
    for (const std::string caller : {"vdapi_Debug: ", "MainWndProc: "}) {
        if (name.starts_with(caller))
            return name.substr(caller.size(), name.find('(') - caller.size());
    }
    return name.substr(0, name.find(' '));
}

TEST(ChipCommands, ReachTheBoardAndAreTakenInTheRightOrder) {
    const kit::Utility utility;
    for (const Case& each : kCases) {
        SCOPED_TRACE(each.command);
        Give(utility, each);
        if (each.received.empty())
            kit::MeetBox(kWarning, each.names[0] + ": \nNot supported");
        kit::ExpectNoBox();
        ExpectCalls(each.received, ReceivedCalls());
    }
}

TEST(ChipCommands, NameWhatFailsAndGoOn) {
    const kit::Utility utility;
    for (const Case& each : kCases) {
        if (each.received.empty())
            continue;
        SCOPED_TRACE(each.command);
        for (const std::string& name : each.names)
            board::FailAlways(OperationOf(name), VXD_TIMEOUT_FAILURE);
        Give(utility, each);
        for (const std::string& name : each.names)
            kit::MeetBox(kWarning, name + ": \nVXD_TIMEOUT_FAILURE");
        kit::ExpectNoBox();
        board::SucceedAgain();
    }
}

TEST(ArcofiLoops, KeepTheTopBitsOfTheFirstByteAndAreWrittenOverZerosWhereItCannotBeRead) {
    kit::SettingsFolder settings;
    settings.Write(kit::kOwnFile, "KORA_TST", "Menu", "3");
    const kit::Utility utility(settings);
    kit::RunStep([] {
        const uint8_t ones[] = {0xFF, 0xFF, 0xFF, 0xFF};
        vdapi_ARCOFI_Write(0x91F, ones);
    });
    utility.Choose(IDM_ARCOFI_LOOP_CONVERTER);
    EXPECT_EQ(ReceivedCalls().back(), "vdapi_ARCOFI_Write(91F, address) D00B22");
    board::FailAlways("vdapi_ARCOFI_Read", VXD_HARDWARE_FAILURE);
    utility.Choose(IDM_ARCOFI_LOOP_INTERFACE);
    kit::MeetBox(kWarning, "vdapi_ARCOFI_Read : LIST: \nVXD_HARDWARE_FAILURE");
    EXPECT_EQ(ReceivedCalls().back(), "vdapi_ARCOFI_Write(91F, address) 200B22");
    EXPECT_TRUE(utility.IsChecked(IDM_ARCOFI_LOOP_NONE)) << "the marks are not the board's state";
    EXPECT_FALSE(utility.IsChecked(IDM_ARCOFI_LOOP_INTERFACE));
}

TEST(ChipCommands, LeaveTheMarksOfChannelAndDisplayModeAlone) {
    kit::SettingsFolder settings;
    settings.Write(kit::kOwnFile, "KORA_TST", "Menu", "3");
    const kit::Utility utility(settings);
    utility.Choose(IDM_ARCOFI_CHANNEL_2);
    EXPECT_TRUE(utility.IsChecked(IDM_ARCOFI_CHANNEL_1));
    EXPECT_FALSE(utility.IsChecked(IDM_ARCOFI_CHANNEL_2));
    utility.Choose(IDM_BROOKTREE_PAL);
    EXPECT_FALSE(utility.IsChecked(IDM_BROOKTREE_NTSC) || utility.IsChecked(IDM_BROOKTREE_PAL));
}

TEST(TdmRouting, IsMarkedInTheMenuWhateverTheBoardAnswers) {
    kit::SettingsFolder settings;
    settings.Write(kit::kOwnFile, "KORA_TST", "Menu", "3");
    const kit::Utility utility(settings);
    const auto marks = [&] {
        return std::pair(utility.IsChecked(IDM_BOARD_ROUTING_IOM2),
                         utility.IsChecked(IDM_BOARD_ROUTING_MVIP));
    };
    EXPECT_EQ(marks(), std::pair(false, true));
    utility.Choose(IDM_BOARD_ROUTING_IOM2);
    EXPECT_EQ(marks(), std::pair(true, false));
    utility.Command(IDM_MENU_NEWER);
    utility.Command(IDM_MENU_OLDER);
    EXPECT_EQ(marks(), std::pair(true, false)) << "marks follow to a new bar";
    board::FailAlways("vdapi_AUXDEV_Activate", VXD_HARDWARE_FAILURE);
    utility.Choose(IDM_BOARD_ROUTING_MVIP);
    kit::MeetBox(kWarning, "vdapi_AUXDEV_Activate: \nVXD_HARDWARE_FAILURE");
    EXPECT_EQ(marks(), std::pair(false, true));
}

}  // namespace
