// "Send Raw Command".
#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "board/control.h"
#include "codec/raw_command.h"
#include "res/resource.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

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

TEST_F(RawCommand, EachNamedCommandSendsTheNumberThatItShows) {
    // One of each end of the list, and of families between.
    std::map<std::string, uint32_t> known{{"486_READ_IO", 402},    {"AUDIO_SET_PARAM", 602},
                                          {"GET_USS_REG", 4000},   {"GET_VER", 4},
                                          {"JADE_WRITE_REG", 301}, {"SET_LED_STATE", 2100},
                                          {"STANDBY", 0},          {"WRITE_PORT", 901}};
    const std::string prefix = "PELLAN_COMMAND_";
    ASSERT_EQ(dialog_.Rows(IDC_RAW_COMMAND_LIST), 77);
    std::set<uint32_t> numbers;
    std::string last;
    for (int row = 1; row < 77; ++row) {
        const std::string name = dialog_.Row(IDC_RAW_COMMAND_LIST, row);
        EXPECT_TRUE(name.starts_with(prefix)) << name;
        EXPECT_LT(last, name) << "the list is in order";
        last = name;
        dialog_.Pick(IDC_RAW_COMMAND_LIST, row);
        board::ForgetCalls();
        dialog_.Press(IDC_RAW_SEND);
        ASSERT_EQ(Received().size(), 4u) << name;
        const uint32_t number = Received()[0];
        EXPECT_EQ(dialog_.Text(IDC_RAW_COMMAND), std::to_string(number)) << name;
        EXPECT_TRUE(numbers.insert(number).second) << name << " has another's number";
        if (const auto entry = known.find(name.substr(prefix.size())); entry != known.end()) {
            EXPECT_EQ(number, entry->second) << name;
            known.erase(entry);
        }
    }
    EXPECT_TRUE(known.empty());
}

TEST_F(RawCommand, EachAudioParameterShowsItsNumber) {
    dialog_.Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_AUDIO_GET_PARAM");
    ASSERT_EQ(dialog_.Rows(IDC_RAW_AUDIO_PARAM_LIST), 26);
    std::set<std::string> numbers;
    std::string last;
    for (int row = 0; row < 26; ++row) {
        const std::string name = dialog_.Row(IDC_RAW_AUDIO_PARAM_LIST, row);
        EXPECT_TRUE(name.starts_with("VC_AUDIOPARAM_")) << name;
        EXPECT_LT(last, name) << "the list is in order";
        last = name;
        dialog_.Pick(IDC_RAW_AUDIO_PARAM_LIST, row);
        EXPECT_TRUE(numbers.insert(dialog_.Text(IDC_RAW_PARAM_1)).second) << name;
    }
    dialog_.Pick(IDC_RAW_AUDIO_PARAM_LIST, "VC_AUDIOPARAM_AEC");
    EXPECT_EQ(dialog_.Text(IDC_RAW_PARAM_1), "73");
    dialog_.Pick(IDC_RAW_AUDIO_PARAM_LIST, "VC_AUDIOPARAM_VOLUME");
    EXPECT_EQ(dialog_.Text(IDC_RAW_PARAM_1), "0");
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
