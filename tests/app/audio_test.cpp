// The audio codec: its registers, and the firmware's sources and muting.
#include <cstdio>

#include "regs/akm_tables.h"
#include "res/resource.h"
#include "tests/app/dialog_test.h"
#include "tests/kit/person.h"
#include "tests/platform/difference.h"

namespace {

using kit::OnUserInterface;

// --- Registers ---

std::string WriteAkm(const char* numberAndValue) {
    return std::string("vdapi_AKM_WriteRegister(") + numberAndValue + ")";
}

class AkmControl : public DialogTest {
  protected:
    AkmControl() : DialogTest(IDM_AKM, "AKM Control", IDOK) {}

    static void SetRegister(uint32_t number, uint8_t value) {
        vdapi_AKM_WriteRegister(number, value);
    }
    static uint8_t Register(uint32_t number) {
        uint8_t value = 0;
        vdapi_AKM_ReadRegister(number, &value);
        return value;
    }

    int Position(int bar) const {
        return OnUserInterface([=, this] { return GetScrollPos(dialog_.Control(bar), SB_CTL); });
    }
    // "31 Master Left (Int):  0x9F x": the position, the label, and whether the channel is enabled.
    std::string ShownOf(const akm::Slider& slider) const {
        return std::to_string(Position(slider.bar)) + " " + dialog_.Text(slider.label) +
               (dialog_.IsChecked(slider.enableBox) ? " x" : "");
    }
    std::string ShownSwitches() const {
        std::string shown;
        for (const akm::Switch& each : akm::kSwitches) {
            shown += dialog_.IsChecked(each.box) ? 'x' : '.';
        }
        return shown;
    }
    static Texts ReceivedOnDoing(const std::function<void()>& action) {
        board::ForgetCalls();
        action();
        return ReceivedCalls();
    }
};

TEST_F(AkmControl, DrawsAllItsControlsFromTheRegisters) {
    Texts reads;
    for (unsigned number = 0; number <= 0x19; ++number) {
        char read[48];
        std::snprintf(read, sizeof read, "vdapi_AKM_ReadRegister(%X, address)", number);
        reads.push_back(read);
    }
    EXPECT_EQ(ReceivedCalls(), reads);
    const std::array<uint8_t, 8> levels{0x9F, 0x0A, 0x80, 0x00, 0x5F, 0xE3, 0x1E, 0x81};
    constexpr std::array<uint8_t, 8> kNumbers{0, 1, 2, 3, 8, 9, 0xA, 0xB};
    for (std::size_t at = 0; at < levels.size(); ++at) {
        SetRegister(kNumbers[at], levels[at]);
    }
    for (uint32_t number = 0x10; number <= 0x15; ++number) {
        SetRegister(number, 0);
    }
    SetRegister(0x19, 0x40);
    EXPECT_EQ(ReceivedOn(IDC_AKM_REFRESH), reads);
    Texts shown;
    for (const akm::Slider& slider : akm::kSliders) {
        shown.push_back(ShownOf(slider));
    }
    EXPECT_EQ(shown, (Texts{"31 Master Left (Int):  0x9F x", "10 Master Right(Ext):0x0A",
                            "0 Voice Left (Rmt):  0x80 x", "0 Voice Right(Rmt): 0x00",
                            "31 Line Left (Cam):    0x5F", "31 Line Right (VCR): 0xE3 x",
                            "30 AUX Left (VCR):   0x1E", "1 AUX Right(Hdst):  0x81 x"}));
    EXPECT_TRUE(dialog_.IsChecked(IDC_AKM_MICROPHONE_GAIN));

    // Each switch alone shows the one bit that is its own.
    constexpr std::array kBits{0x1010, 0x1008, 0x1001, 0x1120, 0x1110, 0x1108,
                               0x1104, 0x1210, 0x1208, 0x1310, 0x1308, 0x1410,
                               0x1408, 0x1404, 0x1510, 0x1508, 0x1504};
    for (std::size_t at = 0; at < kBits.size(); ++at) {
        const uint32_t number = kBits[at] >> 8;
        SetRegister(number, kBits[at] & 0xFF);
        dialog_.Press(IDC_AKM_REFRESH);
        std::string expected(kBits.size(), '.');
        expected[at] = 'x';
        EXPECT_EQ(ShownSwitches(), expected);
        SetRegister(number, 0);
    }
    // A register that can't be read stays as it is known.
    board::FailAlways("vdapi_AKM_ReadRegister", VXD_TIMEOUT_FAILURE);
    dialog_.Press(IDC_AKM_REFRESH);
    EXPECT_EQ(ShownOf(akm::kSliders[0]), shown[0]);
    EXPECT_EQ(ShownSwitches(), "................x");
    EXPECT_TRUE(IsInFront());
}

TEST_F(AkmControl, EachStepOfASliderWritesItsRegisterAndShowsWhereItWas) {
    const akm::Slider& slider = akm::kSliders[1];
    struct Case {
        int from;
        WPARAM step;
        int to;
    };
    for (const Case& each : {
             Case{31, SB_LINERIGHT, 31},
             Case{31, SB_LINELEFT, 30},
             Case{0, SB_LINELEFT, 0},
             Case{3, SB_PAGELEFT, 0},
             Case{29, SB_PAGERIGHT, 31},
             Case{10, SB_PAGERIGHT, 14},
             Case{14, MAKEWPARAM(SB_THUMBPOSITION, 7), 7},
             Case{14, MAKEWPARAM(SB_THUMBPOSITION, 0x1FF), 31},
             Case{14, MAKEWPARAM(SB_THUMBPOSITION, 0x105), 5},
             Case{14, MAKEWPARAM(SB_THUMBTRACK, 20), 14},
             Case{14, SB_LEFT, 14},
             Case{14, SB_ENDSCROLL, 14},
         }) {
        SetRegister(slider.registerNumber, static_cast<uint8_t>(0x80 | each.from));
        dialog_.Press(IDC_AKM_REFRESH);
        char write[32];
        std::snprintf(write, sizeof write, "%X, %X", 1u, static_cast<unsigned>(each.to));
        const Texts received = ReceivedOnDoing([&] {
            OnUserInterface([&] {
                SendMessageA(dialog_.Handle(), WM_HSCROLL, each.step,
                             reinterpret_cast<LPARAM>(dialog_.Control(slider.bar)));
            });
        });
        EXPECT_EQ(received, Texts{WriteAkm(write)});
        char label[40];
        std::snprintf(label, sizeof label, "%d Master Right(Ext):0x%02X", each.to,
                      static_cast<unsigned>(each.from));
        EXPECT_EQ(ShownOf(slider), label) << each.step;
    }
}

TEST_F(AkmControl, SlidersFollowKeysWheelAndMouse) {
    const HWND bar = dialog_.Control(IDC_AKM_VOICE_LEFT);  // at 16
    const auto label = [this] { return dialog_.Text(IDC_AKM_VOICE_LEFT_LABEL); };
    const auto writes = [](std::initializer_list<const char*> values) {
        Texts expected;
        for (const char* value : values) {
            expected.push_back(WriteAkm((std::string("2, ") + value).c_str()));
        }
        return expected;
    };
    while (dialog_.FocusedId() != IDC_AKM_VOICE_LEFT) {
        dialog_.Key(VK_TAB);
    }
    struct Case {
        WPARAM key;
        const char* written;
        const char* before;
        const char* after;
    };
    for (const Case& each :
         {Case{VK_RIGHT, "11", "0x10", "0x11"}, Case{VK_NEXT, "15", "0x11", "0x15"},
          Case{VK_UP, "14", "0x15", "0x14"}, Case{VK_PRIOR, "10", "0x14", "0x10"},
          Case{VK_HOME, "10", "0x10", "0x10"}}) {
        const Texts received = ReceivedOnDoing([&] { dialog_.Key(each.key); });
        EXPECT_EQ(received, kit::ExceptOn(WindowSystem::kWine, writes({each.written}),
                                          "does not tell of the end of a key's action",
                                          writes({each.written, each.written})));
        EXPECT_EQ(label(), std::string("Voice Left (Rmt):  ") +
                               kit::ExceptOn(WindowSystem::kWine, std::string(each.before),
                                             "does not tell of the end of a key's action",
                                             std::string(each.after)));
    }
    EXPECT_EQ(ReceivedOnDoing([=] { kit::ClickRightArrow(bar); }), writes({"11", "11"}));
    EXPECT_EQ(label(), "Voice Left (Rmt):  0x11");
    EXPECT_EQ(ReceivedOnDoing([=] { kit::TurnWheel(bar, 2); }), writes({"12", "13", "13"}));
    EXPECT_EQ(label(), "Voice Left (Rmt):  0x13");
    const Texts dragged = ReceivedOnDoing([=] { kit::DragThumbToEnd(bar, 31); });
    ASSERT_GE(dragged.size(), 3u);
    EXPECT_EQ(dragged.front(), WriteAkm("2, 13")) << "it is moved where it is let go";
    EXPECT_EQ((Texts{dragged.end() - 2, dragged.end()}), writes({"1F", "1F"}));
    EXPECT_EQ(label(), "Voice Left (Rmt):  0x1F");

    // A wheel of small steps moves by whole notches; over nothing it moves the slider that has the
    // focus, and without one none.
    const auto turn = [this](int by) {
        return ReceivedOnDoing([=, this] {
            OnUserInterface([=, this] {
                SendMessageA(dialog_.Handle(), WM_MOUSEWHEEL, MAKEWPARAM(0, by),
                             MAKELPARAM(-5, -5));
            });
        });
    };
    EXPECT_EQ(turn(-70), Texts{});
    EXPECT_EQ(turn(-70), writes({"1E", "1E"}));
    dialog_.Key(VK_TAB);
    EXPECT_EQ(turn(-120), Texts{});
}

TEST_F(AkmControl, ADraggedChannelIsEnabledByItsBox) {
    kit::DragThumbToEnd(dialog_.Control(IDC_AKM_MASTER_LEFT), 31);
    EXPECT_EQ(Register(0), 0x1F);
    EXPECT_EQ(ShownOf(akm::kSliders[0]), "31 Master Left (Int):  0x1F");
    EXPECT_EQ(ReceivedOn(IDC_AKM_MASTER_LEFT_ENABLE), Texts{WriteAkm("0, 9F")});
    EXPECT_EQ(ShownOf(akm::kSliders[0]), "31 Master Left (Int):  0x9F x");
    SetRegister(0x08, 0x45);
    dialog_.Press(IDC_AKM_REFRESH);
    EXPECT_EQ(ReceivedOn(IDC_AKM_LINE_LEFT_ENABLE), Texts{WriteAkm("8, C5")});
    EXPECT_EQ(ReceivedOn(IDC_AKM_LINE_LEFT_ENABLE), Texts{WriteAkm("8, 45")});
    EXPECT_EQ(ShownOf(akm::kSliders[4]), "31 Line Left (Cam):    0x45");
    EXPECT_EQ(ReceivedOn(IDC_AKM_MICROPHONE_GAIN), Texts{WriteAkm("19, 1")});
    EXPECT_EQ(ReceivedOn(IDC_AKM_LINE_LEFT_ENABLE), Texts{WriteAkm("8, C5")});
    EXPECT_FALSE(dialog_.IsChecked(IDC_AKM_MICROPHONE_GAIN)) << "drawn from what was read";
    EXPECT_EQ(ReceivedOn(IDC_AKM_MICROPHONE_GAIN), Texts{WriteAkm("19, 1")});
    EXPECT_EQ(ReceivedOn(IDC_AKM_MICROPHONE_GAIN), Texts{WriteAkm("19, 0")});
}

TEST_F(AkmControl, SwitchesGoToTheDriverByNumberAndShowAfterARefresh) {
    for (uint32_t number = 0x10; number <= 0x15; ++number) {
        SetRegister(number, 0);
    }
    dialog_.Press(IDC_AKM_REFRESH);
    for (std::size_t at = 0; at < akm::kSwitches.size(); ++at) {
        char call[40];
        std::snprintf(call, sizeof call, "vdapi_AKM_SetSwitch(%X, 1)", static_cast<unsigned>(at));
        EXPECT_EQ(ReceivedOn(akm::kSwitches[at].box), Texts{call});
    }
    const std::string all(akm::kSwitches.size(), 'x');
    EXPECT_EQ(ShownSwitches(), all);
    dialog_.Press(IDC_AKM_SET);
    EXPECT_EQ(ShownSwitches(), std::string(akm::kSwitches.size(), '.')) << "as last read";
    dialog_.Press(IDC_AKM_REFRESH);
    EXPECT_EQ(ShownSwitches(), all) << "wired to other bits than are shown";
    EXPECT_EQ(ReceivedOn(IDC_AKM_OUTPUT_2_VOICE_LEFT), Texts{"vdapi_AKM_SetSwitch(5, 0)"});
    EXPECT_EQ(Register(0x11), 0x34);
}

TEST_F(AkmControl, RegistersAreReachedByNumber) {
    const auto ask = [this](const char* number) {
        Type({{IDC_AKM_REGISTER, number}});
        return ReceivedOn(IDC_AKM_GET);
    };
    const auto set = [this](const char* number, const char* value) {
        Type({{IDC_AKM_REGISTER, number}, {IDC_AKM_VALUE, value}});
        return ReceivedOn(IDC_AKM_SET);
    };
    SetRegister(0x0A, 0x0C);
    EXPECT_EQ(ask("10"), Texts{"vdapi_AKM_ReadRegister(A, address)"});
    EXPECT_EQ(dialog_.Text(IDC_AKM_VALUE), "0xC");
    EXPECT_EQ(dialog_.Text(IDC_AKM_AUX_LEFT_LABEL), "AUX Left (VCR):   0x00") << "not its image";
    EXPECT_EQ(ask("0x19"), Texts{"vdapi_AKM_ReadRegister(19, address)"});
    EXPECT_EQ(ask("031"), Texts{"vdapi_AKM_ReadRegister(19, address)"});

    for (const char* number : {"0x1A", "26", "-1", "", "reg"}) {
        EXPECT_EQ(ask(number), Texts{}) << number;
        kit::MeetBox("AKM Access",
                     "Invalid Register entered!\n Please enter a correct register ID.", IDOK,
                     MB_OK | MB_ICONEXCLAMATION);
        EXPECT_EQ(set(number, "0x5A"), Texts{}) << number;
        EXPECT_TRUE(IsInFront());
    }
    EXPECT_EQ(set("8", "0x9E"), Texts{WriteAkm("8, 9E")});
    EXPECT_EQ(ShownOf(akm::kSliders[4]), "30 Line Left (Cam):    0x9E x");
    EXPECT_EQ(set("0x8", "300"), Texts{WriteAkm("8, 2C")}) << "8 bits of it";
    EXPECT_EQ(set("0x11", "value"), Texts{WriteAkm("11, 0")});
    EXPECT_FALSE(dialog_.IsChecked(IDC_AKM_OUTPUT_2_AUX_LEFT));
    EXPECT_EQ(set("1", "0x123"), Texts{WriteAkm("1, 12")}) << "four characters";
    dialog_.Key(VK_ESCAPE);
    dialog_.CloseBox();
    EXPECT_TRUE(dialog_.IsOpen());
}

// --- Sources and muting ---

class AudioConfig : public DialogTest {
  protected:
    AudioConfig() : DialogTest(IDM_AUDIO, "Audio - Config I/O", IDOK) {}

    static std::string Get(const char* parameter) {
        return std::string("vdapi_SendCommand(25B, ") + parameter +
               ", 0, 0, address, address, address)";
    }
    static Texts Set(const char* parameterAndValue) {
        return {std::string("vdapi_SendCommand(25A, ") + parameterAndValue +
                ", 0, address, address, address)"};
    }
    // The boxes of camera, headset, VCR, both speakers and both mutes.
    std::string ShownBoxes() const {
        std::string shown;
        for (const int box :
             {IDC_AUDIO_CAMERA, IDC_AUDIO_HEADSET, IDC_AUDIO_VCR, IDC_AUDIO_INTERNAL,
              IDC_AUDIO_EXTERNAL, IDC_AUDIO_MUTE_INCOMING, IDC_AUDIO_MUTE_OUTGOING}) {
            shown += dialog_.IsChecked(box) ? 'x' : '.';
        }
        return shown;
    }
};

TEST_F(AudioConfig, TellsTheFirmwareWhatIsUsedAndShowsWhatItUses) {
    EXPECT_EQ(ReceivedCalls(), (Texts{Get("C"), Get("D")}));
    EXPECT_EQ(ShownBoxes(), "x..x...");
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_VCR), Set("C, 5"));
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_CAMERA), Set("C, 1"));
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_HEADSET), Set("C, 2"));
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_VCR), Set("C, 0")) << "the headset alone";
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_HEADSET), Set("C, 3"));
    EXPECT_EQ(ShownBoxes(), "x..x...") << "the camera's comes back";
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_EXTERNAL), Set("D, 3"));
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_INTERNAL), Set("D, 2"));
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_EXTERNAL), Set("D, 0"));
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_MUTE_INCOMING), Set("1, 1"));
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_MUTE_OUTGOING), Set("2, 1"));
    EXPECT_EQ(ReceivedOn(IDC_AUDIO_MUTE_INCOMING), Set("1, 0"));
    dialog_.Press(IDOK);

    // What the raw command console sets is what this dialog shows.
    utility_.Command(IDM_FILE_SEND_RAW_COMMAND);
    const kit::Dialog console = kit::WaitForDialog("Send Raw Command");
    for (const auto& [parameter, value] : {std::pair{"VC_AUDIOPARAM_MIC_SELECT", "6"},
                                           std::pair{"VC_AUDIOPARAM_SPKR_SELECT", "2"}}) {
        console.Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_AUDIO_SET_PARAM");
        console.Pick(IDC_RAW_AUDIO_PARAM_LIST, parameter);
        console.Type(IDC_RAW_PARAM_2, value);
        console.Press(IDC_RAW_SEND);
    }
    console.Pick(IDC_RAW_COMMAND_LIST, "PELLAN_COMMAND_AUDIO_GET_PARAM");
    console.Pick(IDC_RAW_AUDIO_PARAM_LIST, "VC_AUDIOPARAM_MUTE_OUTGOING");
    console.Press(IDC_RAW_SEND);
    EXPECT_EQ(console.Text(IDC_RAW_RESPONSE_1), "0x00000001");
    console.Press(IDOK);
    Open();
    EXPECT_EQ(ShownBoxes(), "xxx.x..") << "muting is not asked for";

    dialog_.Key(VK_ESCAPE);
    board::FailAlways("PELLAN_COMMAND_AUDIO_GET_PARAM", VXD_TIMEOUT_FAILURE);
    Open();
    EXPECT_EQ(ShownBoxes(), ".x.....");
    EXPECT_TRUE(IsInFront());
}

}  // namespace
