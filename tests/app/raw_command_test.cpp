// "Send Raw Command".
#include <gtest/gtest.h>

#include <array>
#include <string>
#include <vector>

#include "board/control.h"
#include "codec/raw_command.h"
#include "res/resource.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

struct Row {
    const char* name;
    uint32_t number;
};

// The board firmware's commands, without the prefix that all have, as the first list shows them.
constexpr auto kCommands = std::to_array<Row>({
    {"486_READ_IO", 402},
    {"486_READ_MEM", 400},
    {"486_WRITE_IO", 403},
    {"486_WRITE_MEM", 401},
    {"AEC_GET_MODE", 1403},
    {"AEC_GET_VALUE", 1401},
    {"AEC_SET_8KHZ", 1404},
    {"AEC_SET_MODE", 1402},
    {"AEC_SET_VALUE", 1400},
    {"AKM_MUTE", 704},
    {"AKM_READ_REGISTER", 702},
    {"AKM_SWITCH", 700},
    {"AKM_VOLUME", 703},
    {"AKM_WRITE_REGISTER", 701},
    {"ASYNCHRONOUS_RESYNC_STREAM", 1003},
    {"AUDIO_GET_PARAM", 603},
    {"AUDIO_SELECT_INPUT", 600},
    {"AUDIO_SELECT_OUTPUT", 601},
    {"AUDIO_SET_PARAM", 602},
    {"AUXDEV_ACTIVATE", 1302},
    {"AUXDEV_DEACTIVATE", 1303},
    {"AUXDEV_GET_FIELD", 1301},
    {"AUXDEV_HW_RESET", 1305},
    {"AUXDEV_SET_FIELD", 1300},
    {"AUXDEV_TEST", 1304},
    {"BURN_BLOCK", 1901},
    {"CAM_GET_PARAM", 801},
    {"CAM_SET_INPUT", 802},
    {"CAM_SET_PARAM", 800},
    {"CAM_SET_TYPE", 803},
    {"CLOSE_STREAM", 1001},
    {"DEBUG_GETLEVEL", 1204},
    {"DEBUG_MUTE", 1200},
    {"DEBUG_SETLEVEL", 1203},
    {"DEBUG_TECH", 1201},
    {"DEBUG_TRACE", 1202},
    {"DOWNLOAD2", 1500},
    {"DUMP_BLOCK", 1902},
    {"ERASE_ONE_BLOCK", 1900},
    {"GENERAL_PURPOSE_0", 1800},
    {"GENERAL_PURPOSE_1", 1801},
    {"GENERAL_PURPOSE_2", 1802},
    {"GENERAL_PURPOSE_3", 1803},
    {"GET_SOFTWARE_VAR", 2001},
    {"GET_USS_REG", 4000},
    {"GET_VER", 4},
    {"I2C_ACCESS", 502},
    {"I2C_RETRIEVE", 500},
    {"I2C_SEND", 501},
    {"JADE_READ_REG", 300},
    {"JADE_RESET", 302},
    {"JADE_WRITE_REG", 301},
    {"LAN_SET_IP", 1700},
    {"OPEN_STREAM", 1000},
    {"PLAY_VIDEO_FILE", 1005},
    {"PSHELL_RUN", 100},
    {"READ_PORT", 900},
    {"RESYNC_STREAM", 1002},
    {"RUN_VCP_SCRIPT", 3},
    {"SAA7111_READ_REG", 200},
    {"SAA7111_WRITE_REG", 201},
    {"SEARCHING_FOR_TARGET", 1720},
    {"SEND_FILE", 1904},
    {"SERIAL_CONNECT_ENABLE", 1710},
    {"SET_LED_STATE", 2100},
    {"SET_SOFTWARE_VAR", 2000},
    {"SET_USS_REG", 4001},
    {"STANDBY", 0},
    {"STREAM_INFO", 1004},
    {"STREAM_READ", 1101},
    {"STREAM_WRITE", 1100},
    {"TARGET_CONNECTED", 1745},
    {"UPDATE_VERSION", 1903},
    {"VCP_GET_VAR", 2},
    {"VCP_SET_VAR", 1},
    {"WRITE_PORT", 901},
});

// Its audio parameters, in the same way.
constexpr auto kAudioParameters = std::to_array<Row>({
    {"AEC", 73},
    {"AGC", 71},
    {"ANS", 72},
    {"DELAY_ENC_G711", 40},
    {"DELAY_ENC_G722", 42},
    {"DELAY_ENC_G728", 41},
    {"DEVICE", 11},
    {"DEVICE_LIST", 10},
    {"EXT_PHONE", 32},
    {"EXT_SPKR_DETECT", 64},
    {"G722_SUPPORT", 60},
    {"G723_SUPPORT", 62},
    {"INT_SPKR_DETECT", 63},
    {"LAST", 81},
    {"LINE_TONE", 80},
    {"MIC_DETECT", 61},
    {"MIC_GAIN", 70},
    {"MIC_SELECT", 12},
    {"MODE_VOICE", 50},
    {"MUTE_INCOMING", 1},
    {"MUTE_OUTGOING", 2},
    {"PLAYBACK", 30},
    {"RECORD", 31},
    {"SELFLOOP_SELECT", 14},
    {"SPKR_SELECT", 13},
    {"VOLUME", 0},
});

class RawCommand : public testing::Test {
  protected:
    RawCommand() {
        utility_.Choose(IDM_FILE_SEND_RAW_COMMAND);
        dialog_ = kit::WaitForDialog("Send Raw Command");
        board::ForgetCalls();
    }
    ~RawCommand() override { dialog_.Press(IDOK); }

    // What the board received: the command and its three parameters.
    static std::vector<uint32_t> Received() {
        const auto calls = board::Calls();
        if (calls.size() != 1 || calls.front().operation != "vdapi_SendCommand")
            return {};
        std::vector<uint32_t> values;
        for (std::size_t argument = 0; argument < 4; ++argument)
            values.push_back(calls.front().arguments[argument].value);
        return values;
    }

    kit::Utility utility_;
    kit::Dialog dialog_{nullptr};
};

TEST_F(RawCommand, OpensOnThePromptWithTheAudioListGrey) {
    EXPECT_EQ(dialog_.Text(IDC_RAW_COMMAND), "0");
    EXPECT_EQ(dialog_.SelectedRow(IDC_RAW_COMMAND_LIST), 0);
    EXPECT_EQ(dialog_.SelectedRow(IDC_RAW_AUDIO_PARAM_LIST), -1);
    EXPECT_TRUE(dialog_.IsEnabled(IDC_RAW_COMMAND));
    EXPECT_TRUE(dialog_.IsEnabled(IDC_RAW_PARAM_1));
    EXPECT_FALSE(dialog_.IsEnabled(IDC_RAW_AUDIO_PARAM_LIST));
    EXPECT_EQ(dialog_.Text(IDC_RAW_COMMAND_LIST),
              "Enter your command number or select it from this combo box");
}

TEST_F(RawCommand, EachNamedCommandSendsTheFirmwaresNumber) {
    ASSERT_EQ(dialog_.Rows(IDC_RAW_COMMAND_LIST), static_cast<int>(kCommands.size()) + 1);
    int row = 0;
    for (const Row& command : kCommands) {
        ++row;
        EXPECT_EQ(dialog_.Row(IDC_RAW_COMMAND_LIST, row),
                  std::string("PELLAN_COMMAND_") + command.name);
        dialog_.Pick(IDC_RAW_COMMAND_LIST, row);
        board::ForgetCalls();
        dialog_.Press(IDC_RAW_SEND);
        ASSERT_EQ(Received().size(), 4u) << command.name;
        EXPECT_EQ(Received()[0], command.number) << command.name;
    }
}

TEST_F(RawCommand, EachAudioParameterShowsItsNumber) {
    dialog_.Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_AUDIO_GET_PARAM");
    ASSERT_EQ(dialog_.Rows(IDC_RAW_AUDIO_PARAM_LIST), static_cast<int>(kAudioParameters.size()));
    int row = 0;
    for (const Row& parameter : kAudioParameters) {
        EXPECT_EQ(dialog_.Row(IDC_RAW_AUDIO_PARAM_LIST, row),
                  std::string("VC_AUDIOPARAM_") + parameter.name);
        dialog_.Pick(IDC_RAW_AUDIO_PARAM_LIST, row);
        EXPECT_EQ(dialog_.Text(IDC_RAW_PARAM_1), std::to_string(parameter.number))
            << parameter.name;
        ++row;
    }
}

TEST_F(RawCommand, ANamedCommandFillsTheNumberAndEmptiesTheFirstParameter) {
    dialog_.Type(IDC_RAW_PARAM_1, "12");
    dialog_.Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_GET_VER");
    EXPECT_EQ(dialog_.Text(IDC_RAW_COMMAND), "4");
    EXPECT_FALSE(dialog_.IsEnabled(IDC_RAW_COMMAND));
    EXPECT_EQ(dialog_.Text(IDC_RAW_PARAM_1), "");
    dialog_.Pick(IDC_RAW_COMMAND_LIST, 0);
    EXPECT_EQ(dialog_.Text(IDC_RAW_COMMAND), "0");
    EXPECT_TRUE(dialog_.IsEnabled(IDC_RAW_COMMAND));
}

TEST_F(RawCommand, TheAudioCommandsTakeTheirParameterFromTheSecondList) {
    for (const auto& [name, number] : {std::pair{"PELLAN_COMMAND_AUDIO_SET_PARAM", "602"},
                                       std::pair{"PELLAN_COMMAND_AUDIO_GET_PARAM", "603"}}) {
        dialog_.Pick(IDC_RAW_COMMAND_LIST, name);
        EXPECT_EQ(dialog_.Text(IDC_RAW_COMMAND), number);
        EXPECT_FALSE(dialog_.IsEnabled(IDC_RAW_PARAM_1));
        EXPECT_TRUE(dialog_.IsEnabled(IDC_RAW_AUDIO_PARAM_LIST));
    }
    EXPECT_EQ(dialog_.Text(IDC_RAW_PARAM_1), "73") << "no row counts as the first";
    dialog_.Pick(IDC_RAW_AUDIO_PARAM_LIST, "VC_AUDIOPARAM_VOLUME");
    EXPECT_EQ(dialog_.Text(IDC_RAW_PARAM_1), "0");
    dialog_.Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_STANDBY");
    EXPECT_TRUE(dialog_.IsEnabled(IDC_RAW_PARAM_1));
    EXPECT_FALSE(dialog_.IsEnabled(IDC_RAW_AUDIO_PARAM_LIST));
}

TEST_F(RawCommand, NumbersAreReadInTheirOwnBaseAsFarAsTheyGo) {
    struct Case {
        const char* typed;
        uint32_t sent;
    };
    for (const Case& each :
         {Case{"0x3E8", 1000}, Case{"010", 8}, Case{"12abc", 12}, Case{"", 0}, Case{"word", 0},
          Case{"  7", 7}, Case{"-1", 0xFFFFFFFF}, Case{"0XFFFFFFFF", 0xFFFFFFFF},
          // Only fifteen characters count.
          Case{"0000000000000017", 1}}) {
        board::ForgetCalls();
        dialog_.Type(IDC_RAW_PARAM_2, each.typed);
        dialog_.Press(IDC_RAW_SEND);
        ASSERT_EQ(Received().size(), 4u);
        EXPECT_EQ(Received()[2], each.sent) << each.typed;
    }
}

TEST_F(RawCommand, SendsWhatIsTypedAndShowsWhatComesBackInAllDigits) {
    dialog_.Type(IDC_RAW_COMMAND, "2000");
    dialog_.Type(IDC_RAW_PARAM_1, "50");
    dialog_.Type(IDC_RAW_PARAM_2, "0xABCD1234");
    dialog_.Type(IDC_RAW_PARAM_3, "7");
    dialog_.Press(IDC_RAW_SEND);
    EXPECT_EQ(Received(), (std::vector<uint32_t>{2000, 50, 0xABCD1234, 7}));
    dialog_.Type(IDC_RAW_COMMAND, "2001");
    dialog_.Press(IDC_RAW_SEND);
    EXPECT_EQ(dialog_.Text(IDC_RAW_RESPONSE_1), "0xABCD1234");
    EXPECT_EQ(dialog_.Text(IDC_RAW_RESPONSE_2), "0x00000000");
    EXPECT_EQ(dialog_.Text(IDC_RAW_RESPONSE_3), "0x0000");
    // Three different ones: the board's and the driver's revision, and those of its two chips.
    board::SetRevisions({0x011D, 0x08, 0x0312, 0x21});
    dialog_.Type(IDC_RAW_COMMAND, "4");
    dialog_.Press(IDC_RAW_SEND);
    EXPECT_EQ(dialog_.Text(IDC_RAW_RESPONSE_1), "0x0000011D");
    EXPECT_EQ(dialog_.Text(IDC_RAW_RESPONSE_2), "0x00000312");
    EXPECT_EQ(dialog_.Text(IDC_RAW_RESPONSE_3), "0x0821");
    EXPECT_TRUE(dialog_.IsOpen());
}

TEST_F(RawCommand, AFailureIsNotReportedAndTheResponsesAreZero) {
    dialog_.Type(IDC_RAW_COMMAND, "4");
    dialog_.Press(IDC_RAW_SEND);
    EXPECT_NE(dialog_.Text(IDC_RAW_RESPONSE_1), "0x00000000");
    board::FailAlways("PELLAN_COMMAND_GET_VER", VXD_TIMEOUT_FAILURE);
    dialog_.Press(IDC_RAW_SEND);
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog_.Handle());
    EXPECT_EQ(dialog_.Text(IDC_RAW_RESPONSE_1), "0x00000000");
}

TEST_F(RawCommand, IsDrivenByKeysAlone) {
    EXPECT_EQ(dialog_.FocusedId(), IDC_RAW_COMMAND_LIST);
    dialog_.AltKey('c');
    EXPECT_EQ(dialog_.FocusedId(), IDC_RAW_COMMAND);
    dialog_.Type(IDC_RAW_COMMAND, "4");
    dialog_.Key(VK_RETURN);
    EXPECT_EQ(Received(), (std::vector<uint32_t>{4, 0, 0, 0}));
}

TEST(RawCommandEnd, CloseAndEscapeGiveZero) {
    const kit::Utility utility;
    INT_PTR given = -1;
    const auto open = [&] {
        kit::BeginStep([&] {
            given = -1;
            given = OpenRawCommand(GetModuleHandleA(nullptr), utility.Window());
        });
        return kit::WaitForDialog("Send Raw Command");
    };
    const auto result = [&] { return kit::OnUserInterface([&] { return given; }); };
    open().Press(IDOK);
    EXPECT_EQ(result(), 0);
    open().Key(VK_ESCAPE);
    EXPECT_EQ(result(), 0);
    kit::ExpectNoBox();
}

}  // namespace
