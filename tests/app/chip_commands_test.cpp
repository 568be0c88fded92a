// The older board's commands that bring chips through their life cycle.
#include <gtest/gtest.h>

#include <string>
#include <vector>

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

// Every command by its number in the menu, in an order in which a board takes them all.
const std::vector<Case> kCases = {
    {40049, {"vdapi_Debug(2, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_PCI_OP_INIT"}},
    {40050, {"vdapi_Debug(4, C, address) * * *"}, {"vdapi_Debug: TALVERO_DBG_PCI_OP_BIOS_PRST"}},
    {40051,
     {"vdapi_Debug(5, 14, address) 02000000 61100000 00000000 * *"},
     {"vdapi_Debug: TALVERO_DBG_PCI_OP_FINDDEV"}},
    {40052,
     {"vdapi_Debug(6, 10, address) 00000000 00000000 * *"},
     {"vdapi_Debug: TALVERO_DBG_PCI_OP_FIND_CLS_CODE"}},
    {40053,
     {"vdapi_Debug(7, 14, address) 08000000 00000000 00000000 00000000 *"},
     {"vdapi_Debug: TALVERO_DBG_PCI_OP_RD_CNFG_SPACE"}},
    {40067, {"vdapi_Debug(15, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_PCI_OP_SIM_INTERRUPT"}},
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
    {40116, {"vdapi_Debug(22, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_VPIC_TR_RST"}},
    {40141, {}, {"TALVERO_DBG_VPIC_TR_DMA_CHAN_RST - "}},
    {40142, {}, {"TALVERO_DBG_VPIC_TR_VCP_PORT_RD - "}},
    {40143, {}, {"TALVERO_DBG_VPIC_TR_VCP_PORT_WR - "}},
    {40144, {}, {"TALVERO_DBG_VPIC_TR_VID_PORT_RD - "}},

    {40200, {"vdapi_Debug(33, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_SEQ_TR_INIT"}},
    {40202, {"vdapi_Debug(35, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_SEQ_TR_RST"}},
    {40205,
     {"KORA_DLL_GetSeqHandle(0)", "vdapi_Debug(36, 8, address) 00000000 *"},
     {"vdapi_Debug: TALVERO_DBG_SEQ_TR_RGSTR"}},
    {40206, {"vdapi_Debug(37, 4, address) 00000000"}, {"vdapi_Debug: TALVERO_DBG_SEQ_TR_UNREG"}},
    {40063, {"vdapi_Debug(38, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_SEQ_TR_CRITENTER"}},
    {40064, {"vdapi_Debug(39, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_SEQ_TR_CRITLEAVE"}},
    {40065,
     {"vdapi_Debug(3A, 4, address) 00000000"},
     {"vdapi_Debug: TALVERO_DBG_SEQ_TR_ATOMENTER"},
     "Select Device"},
    {40066,
     {"vdapi_Debug(3B, 4, address) 00000000"},
     {"vdapi_Debug: TALVERO_DBG_SEQ_TR_ATOMLEAVE"},
     "Select Device"},
    {40068,
     {"vdapi_Debug(3F, 4, address) 00000000"},
     {"vdapi_Debug: TALVERO_DBG_SEQ_OP_INTERRUPT"},
     "Select IRQ"},
    {40207, {}, {"TALVERO_DBG_SEQ_TR_REG_RD - "}},
    {40208, {}, {"TALVERO_DBG_SEQ_TR_REG_WR - "}},
    {40209, {}, {"TALVERO_DBG_SEQ_TR_ACCESS_VPIC - "}},
    {40201, {"vdapi_Debug(34, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_SEQ_TR_TERM"}},

    {40228,
     {"vdapi_Debug(45, 4, address) 01000000"},
     {"vdapi_Debug: TALVERO_DBG_ISAC_OP_INITCHIP"}},
    {40229,
     {"vdapi_Debug(45, 4, address) 06000000"},
     {"vdapi_Debug: TALVERO_DBG_ISAC_OP_INITCHIP"}},
    {40259,
     {"vdapi_Debug(45, 4, address) 09000000"},
     {"vdapi_Debug: TALVERO_DBG_ISAC_OP_INITCHIP"}},
    {40074,
     {"KORA_DLL_GetIsacHandle(D)", "vdapi_Debug(46, C, address) 0D000000 * 00000000"},
     {"vdapi_Debug: TALVERO_DBG_ISAC_TR_INIT"},
     "Initialize ISAC  "},
    {40076,
     {"vdapi_Debug(48, 4, address) 0D000000"},
     {"vdapi_Debug: TALVERO_DBG_ISAC_TR_RST"},
     "Select ISAC  Device"},
    {40078, {"vdapi_Debug(49, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_ISAC_TR_IOM2_ACTV"}},
    {40079, {"vdapi_Debug(4A, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_ISAC_TR_IOM2_DEACT"}},
    {40075,
     {"vdapi_Debug(47, 4, address) 0D000000"},
     {"vdapi_Debug: TALVERO_DBG_ISAC_TR_TERM"},
     "Select ISAC  Device"},

    {40082,
     {"KORA_DLL_GetMonitorHandle(3, address)", "vdapi_Debug(52, C, address) 03000000 * 00000000"},
     {"vdapi_Debug: TALVERO_DBG_MON_TR_INIT"},
     "Initialize IOM2 Monitor"},
    {40084,
     {"vdapi_Debug(54, 4, address) 03000000"},
     {"vdapi_Debug: TALVERO_DBG_MON_TR_RST"},
     "Select Monitor Device"},
    {40085,
     {"vdapi_Debug(55, 4, address) 03000000"},
     {"vdapi_Debug: TALVERO_DBG_MON_TR_ACTV"},
     "Select Monitor Device"},
    {40087,
     {"vdapi_Debug(58, 10, address) 01010000 * 02000000 *"},
     {"vdapi_Debug: TALVERO_DBG_MON_TR_RCV"}},
    {40088,
     {"vdapi_Debug(58, 10, address) 01010000 * 02000000 *"},
     {"vdapi_Debug: TALVERO_DBG_MON_TR_RCV"}},
    {40086,
     {"vdapi_Debug(56, 4, address) 03000000"},
     {"vdapi_Debug: TALVERO_DBG_MON_TR_DEACT"},
     "Select Monitor Device"},
    {40083,
     {"vdapi_Debug(53, 4, address) 03000000"},
     {"vdapi_Debug: TALVERO_DBG_MON_TR_TERM"},
     "Select Monitor Device"},

    {40089, {"vdapi_Debug(59, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_ARCF_TR_INIT"}},
    {40091, {"vdapi_Debug(5B, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_ARCF_TR_RST"}},
    {40092, {"vdapi_Debug(5C, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_ARCF_TR_ACTV"}},
    {40095, {"vdapi_Debug(64, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_ARCF_OP_INIT_SHADOW"}},
    {40130, {"vdapi_ARCOFI_SelectChannel(0)"}, {"vdapi_ARCOFI_SelectChannel"}},
    {40131, {"vdapi_ARCOFI_SelectChannel(40)"}, {"vdapi_ARCOFI_SelectChannel"}},
    {40098,
     {"vdapi_ARCOFI_Read(91F, address)", "vdapi_ARCOFI_Write(91F, address) 000B22"},
     {"vdapi_ARCOFI_Read : LIST", "vdapi_ARCOFI_Write : LIST"}},
    {40099,
     {"vdapi_ARCOFI_Read(91F, address)", "vdapi_ARCOFI_Write(91F, address) 080B22"},
     {"vdapi_ARCOFI_Read : LIST", "vdapi_ARCOFI_Write : LIST"}},
    {40100,
     {"vdapi_ARCOFI_Read(91F, address)", "vdapi_ARCOFI_Write(91F, address) 100B22"},
     {"vdapi_ARCOFI_Read : LIST", "vdapi_ARCOFI_Write : LIST"}},
    {40101,
     {"vdapi_ARCOFI_Read(91F, address)", "vdapi_ARCOFI_Write(91F, address) 180B22"},
     {"vdapi_ARCOFI_Read : LIST", "vdapi_ARCOFI_Write : LIST"}},
    {40102,
     {"vdapi_ARCOFI_Read(91F, address)", "vdapi_ARCOFI_Write(91F, address) 200B22"},
     {"vdapi_ARCOFI_Read : LIST", "vdapi_ARCOFI_Write : LIST"}},
    {40093, {"vdapi_Debug(5D, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_ARCF_TR_DEACT"}},
    {40090, {"vdapi_Debug(5A, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_ARCF_TR_TERM"}},

    {40250, {"vdapi_Debug(65, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_SAEC_TR_INIT"}},
    {40252, {"vdapi_Debug(67, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_SAEC_TR_RST"}},
    {40251, {"vdapi_Debug(66, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_SAEC_TR_TERM"}},

    {40105,
     {"vdapi_Debug(6A, 8, address) 00000000 00000000"},
     {"vdapi_Debug: TALVERO_DBG_VCPXI_REGISTER"}},
    {40106, {"vdapi_Debug(6B, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_VCPXI_UNREGISTER"}},

    {40107,
     {"vdapi_AUXDEV_Deactivate(1)", "vdapi_AUXDEV_Activate(0)"},
     {"vdapi_AUXDEV_Deactivate", "vdapi_AUXDEV_Activate"}},
    {40108,
     {"vdapi_AUXDEV_Deactivate(0)", "vdapi_AUXDEV_Activate(1)"},
     {"vdapi_AUXDEV_Deactivate", "vdapi_AUXDEV_Activate"}},
    {40167, {"vdapi_JADE_Reset(32)"}, {"vdapi_JADE_Reset"}},

    {40124, {"vdapi_CAM_Digit_Initialize()"}, {"vdapi_CAM_Digit_Initialize"}},
    {40126, {"vdapi_Debug(7B, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_CAM_DIGIT_TR_RST"}},
    {40125, {"vdapi_CAM_Digit_Terminate()"}, {"vdapi_CAM_Digit_Terminate"}},
    {40161, {"vdapi_CAM_ACIF_Initialize()"}, {"vdapi_CAM_ACIF_Initialize"}},
    {40162, {"vdapi_CAM_ACIF_Terminate()"}, {"vdapi_CAM_ACIF_Terminate"}},

    {40172, {"vdapi_BT85X_Initialize()"}, {"vdapi_BT85X_Initialize"}},
    {40174, {"vdapi_BT85X_Reset()"}, {"vdapi_BT85X_Reset"}},
    {40180, {"vdapi_Debug(BE, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_BT85X_OP_RESET"}},
    {40182, {"vdapi_BT85X_SetDisplayType(0)"}, {"vdapi_BT85X_SetDisplayType"}},
    {40183, {"vdapi_BT85X_SetDisplayType(1)"}, {"vdapi_BT85X_SetDisplayType"}},
    {40173, {"vdapi_BT85X_Terminate()"}, {"vdapi_BT85X_Terminate"}},

    {40185, {"vdapi_EPROM_Initialize()"}, {"vdapi_EPROM_Initialize"}},
    {40186, {"vdapi_EPROM_Terminate()"}, {"vdapi_EPROM_Terminate"}},
    {40109, {"vdapi_I2C_Initialize()"}, {"vdapi_I2C_Initialize"}},
    {40111, {"vdapi_Debug(6F, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_I2C_TR_RST"}},
    {40110, {"vdapi_I2C_Terminate()"}, {"vdapi_I2C_Terminate"}},
    {40115, {"vdapi_Debug(21, 0, null)"}, {"vdapi_Debug: TALVERO_DBG_VPIC_TR_TERM"}},
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
    const std::string channel = "vdapi_Debug: ";
    if (name.starts_with(channel))
        return name.substr(channel.size());
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

TEST(ArcofiLoops, KeepTheTopBitsOfTheFirstByteAndSetTheRest) {
    const kit::Utility utility;
    struct Loop {
        UINT command;
        const char* written;
    };
    for (const Loop& loop :
         {Loop{IDM_ARCOFI_LOOP_NONE, "C00B22"}, Loop{IDM_ARCOFI_LOOP_FRONT_END, "C80B22"},
          Loop{IDM_ARCOFI_LOOP_CONVERTER, "D00B22"}, Loop{IDM_ARCOFI_LOOP_NOISE_SHAPER, "D80B22"},
          Loop{IDM_ARCOFI_LOOP_INTERFACE, "E00B22"}}) {
        kit::RunStep([] {
            const uint8_t ones[] = {0xFF, 0xFF, 0xFF, 0xFF};
            vdapi_ARCOFI_Write(0x91F, ones);
        });
        board::ForgetCalls();
        utility.Command(loop.command);
        EXPECT_EQ(ReceivedCalls().back(),
                  std::string("vdapi_ARCOFI_Write(91F, address) ") + loop.written);
    }
}

TEST(ArcofiLoops, AreWrittenOverZerosWhereTheyCannotBeRead) {
    kit::SettingsFolder settings;
    settings.Write(kit::kOwnFile, "KORA_TST", "Menu", "3");
    const kit::Utility utility(settings);
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
