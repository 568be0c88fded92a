// "Send Raw Command".
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

class RawCommand : public DialogTest {
  protected:
    RawCommand() : DialogTest(IDM_FILE_SEND_RAW_COMMAND, "Send Raw Command", IDOK) {}

    // A list's rows in their order from `first` on, each of which shows a number of its own in a
    // field when it is chosen.
    std::map<std::string, std::string> ExpectNumbers(int list, int first, const std::string& prefix,
                                                     int field) const {
        std::map<std::string, std::string> numbers;
        std::set<std::string> taken;
        for (int row = first; row < dialog_.Rows(list); ++row) {
            const std::string name = dialog_.Row(list, row);
            EXPECT_TRUE(name.starts_with(prefix)) << name;
            EXPECT_TRUE(numbers.empty() || numbers.rbegin()->first < name) << "in order";
            dialog_.Pick(list, row);
            numbers[name] = dialog_.Text(field);
            EXPECT_TRUE(taken.insert(numbers[name]).second) << name << " has another's number";
        }
        return numbers;
    }
};

// What the board receives of a command and its three parameters.
Texts Sent(const std::string& values) {
    return {"vdapi_SendCommand(" + values + ", address, address, address)"};
}

TEST_F(RawCommand, EachNamedCommandSendsTheNumberThatItShows) {
    const auto numbers = ExpectNumbers(IDC_RAW_COMMAND_LIST, 1, "PELLAN_COMMAND_", IDC_RAW_COMMAND);
    EXPECT_EQ(numbers.size(), 76u);
    // One of each end of the list, and of families between.
    for (const auto& [name, number] :
         {std::pair{"486_READ_IO", 402}, std::pair{"AUDIO_SET_PARAM", 602},
          std::pair{"GET_USS_REG", 4000}, std::pair{"GET_VER", 4}, std::pair{"JADE_WRITE_REG", 301},
          std::pair{"SET_LED_STATE", 2100}, std::pair{"STANDBY", 0},
          std::pair{"WRITE_PORT", 901}}) {
        const std::string row = std::string("PELLAN_COMMAND_") + name;
        EXPECT_EQ(numbers.at(row), std::to_string(number)) << row;
        dialog_.Pick(IDC_RAW_COMMAND_LIST, row);
        EXPECT_EQ(ReceivedOn(IDC_RAW_SEND).size(), 1u);
        EXPECT_EQ(board::Calls()[0].arguments[0].value, static_cast<uint32_t>(number));
    }
}

TEST_F(RawCommand, EachAudioParameterShowsItsNumber) {
    dialog_.Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_AUDIO_GET_PARAM");
    const auto numbers =
        ExpectNumbers(IDC_RAW_AUDIO_PARAM_LIST, 0, "VC_AUDIOPARAM_", IDC_RAW_PARAM_1);
    EXPECT_EQ(numbers.size(), 26u);
    EXPECT_EQ(numbers.at("VC_AUDIOPARAM_AEC"), "73");
    EXPECT_EQ(numbers.at("VC_AUDIOPARAM_VOLUME"), "0");
}

TEST_F(RawCommand, ANamedCommandFillsTheNumberAndEmptiesTheFirstParameter) {
    EXPECT_EQ(Shown({IDC_RAW_COMMAND, IDC_RAW_COMMAND_LIST}),
              (Texts{"0", "Enter your command number or select it from this combo box"}));
    EXPECT_EQ(dialog_.FocusedId(), IDC_RAW_COMMAND_LIST);
    EXPECT_FALSE(dialog_.IsEnabled(IDC_RAW_AUDIO_PARAM_LIST));
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
    for (const auto& [typed, sent] :
         {std::pair{"0x3E8", "3E8"}, std::pair{"010", "8"}, std::pair{"12abc", "C"},
          std::pair{"", "0"}, std::pair{"word", "0"}, std::pair{"  7", "7"},
          std::pair{"-1", "FFFFFFFF"}, std::pair{"0XFFFFFFFF", "FFFFFFFF"},
          // Only fifteen characters count.
          std::pair{"0000000000000017", "1"}}) {
        dialog_.Type(IDC_RAW_PARAM_2, typed);
        EXPECT_EQ(ReceivedOn(IDC_RAW_SEND), Sent(std::string("0, 0, ") + sent + ", 0")) << typed;
    }
}

TEST_F(RawCommand, SendsWhatIsTypedAndShowsWhatComesBackInAllDigits) {
    const std::vector<int> responses{IDC_RAW_RESPONSE_1, IDC_RAW_RESPONSE_2, IDC_RAW_RESPONSE_3};
    Type({{IDC_RAW_COMMAND, "2000"},
          {IDC_RAW_PARAM_1, "50"},
          {IDC_RAW_PARAM_2, "0xABCD1234"},
          {IDC_RAW_PARAM_3, "7"}});
    dialog_.Key(VK_RETURN);
    EXPECT_EQ(ReceivedCalls(), Sent("7D0, 32, ABCD1234, 7"));
    dialog_.Type(IDC_RAW_COMMAND, "2001");
    dialog_.Press(IDC_RAW_SEND);
    EXPECT_EQ(Shown(responses), (Texts{"0xABCD1234", "0x00000000", "0x0000"}));
    // Three different ones: the board's and the driver's revision, and those of its two chips.
    board::SetRevisions({0x011D, 0x08, 0x0312, 0x21});
    dialog_.Type(IDC_RAW_COMMAND, "4");
    dialog_.Press(IDC_RAW_SEND);
    EXPECT_EQ(Shown(responses), (Texts{"0x0000011D", "0x00000312", "0x0821"}));
    board::FailAlways("PELLAN_COMMAND_GET_VER", VXD_TIMEOUT_FAILURE);
    dialog_.Press(IDC_RAW_SEND);
    EXPECT_EQ(Shown(responses), (Texts{"0x00000000", "0x00000000", "0x0000"}));
    EXPECT_TRUE(IsInFront()) << "a failure is not reported";
}

}  // namespace
