// What a call carries: the user-data channels, messages, BAS commands, still images, streams.
#include "codec/user_data_rate.h"
#include "driver/papi.h"
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

constexpr char kRate[] = "Select UserData Bandwidth";
constexpr char kLength[] = "Send User Data";
constexpr char kWarning[] = "VxD Test - Warning";

// The commands of a channel, by number: initialize, terminate, open, close, send, read.
constexpr UINT kChannels[][6] = {{40149, 40150, 40151, 40152, 40153, 40154},
                                 {40155, 40156, 40157, 40158, 40159, 40160},
                                 {40138, 40139, 40140, 40145, 40146, 40147}};
enum { kInitialize, kTerminate, kOpen, kClose, kSend, kRead };

// The rates of a type in their order, '|' between them.
struct Rates {
    const char* names;
    uint32_t firstCode;
};
constexpr Rates kRates[] = {
    {"003|012|048|064|080|096|144|160|240|320|400|480|560|624|640|OFF", 0x8000},
    {"0640|1280|1920|2560|3200|3840|OFF ", 0x9000},
    {"040|064|080|144|160|224|240|304|320|384|400|464|624|640|OFF", 0xA000},
    {"0624|0640|1280|1920|2560|3200|3840|0144|OFF ", 0xB000},
};

class CallData : public CommandTest {
  protected:
    // What the board receives on a command that asks nothing and reports nothing.
    Texts ReceivedOnCommand(UINT command) const {
        board::ForgetCalls();
        utility_.Command(command);
        kit::ExpectNoBox();
        return ReceivedCalls();
    }

    // Opens the rate dialog by its function; what it answers goes to `answer_`.
    kit::Dialog AskRate(uint32_t type) {
        board::ForgetCalls();
        kit::BeginStep([this, type] {
            answer_ = OpenUserDataRate(GetModuleHandleA(nullptr), utility_.Window(), type);
        });
        return kit::WaitForDialog(kRate);
    }

    // The text of the message that comes next, as its box shows it.
    static void MeetMessage(const std::string& text) {
        kit::MeetBox("Got MSE Message !", text, IDOK, MB_ICONEXCLAMATION);
        kit::ExpectNoBox();
    }

    // Whether the main window can be used: it can't while a dialog or box of its own is open.
    bool IsWindowFree() const {
        return kit::OnUserInterface([this] { return IsWindowEnabled(utility_.Window()) != FALSE; });
    }

    std::string Stored(const char* key) const {
        return settings_.Read(kit::kOwnFile, "KORA_TST", key);
    }

    INT_PTR answer_ = -1;
};

TEST_F(CallData, EveryRateHasItsCode) {
    for (uint32_t type = 0; type < 4; ++type) {
        std::istringstream names(kRates[type].names);
        std::string name;
        uint32_t row = 0;
        for (; std::getline(names, name, '|'); ++row) {
            const kit::Dialog dialog =
                type < 3 ? Ask(kChannels[type][kOpen], kRate) : AskRate(type);
            dialog.Pick(IDC_USER_DATA_RATE, name);
            EXPECT_EQ(dialog.SelectedRow(IDC_USER_DATA_RATE), static_cast<int>(row));
            const bool isLast = static_cast<int>(row) + 1 == dialog.Rows(IDC_USER_DATA_RATE);
            EXPECT_EQ(isLast, name.starts_with("OFF"));
            dialog.Press(IDOK);
            const uint32_t code = kRates[type].firstCode + (isLast ? 0xFF : row);
            EXPECT_EQ(kit::OnUserInterface(SelectedUserDataRate), code) << name;
            std::ostringstream call;
            call << std::hex << std::uppercase << "KORA_DLL_ChannelOpen(" << type << ", " << code
                 << ")";
            EXPECT_EQ(ReceivedCalls(), type < 3 ? Texts{call.str()} : Texts{});
        }
    }
    EXPECT_EQ(Stored("LSDRate") + ' ' + Stored("HSDRate") + ' ' + Stored("MLPRate"), "15 6 14");
    EXPECT_EQ(answer_, 1);
}

TEST_F(CallData, EachChannelRemembersItsRateAndARowThatIsNotThereChoosesNone) {
    settings_.Write(kit::kOwnFile, "KORA_TST", "HSDRate", "65539");  // 3 in 16 bits
    settings_.Write(kit::kOwnFile, "KORA_TST", "MLPRate", "15");
    kit::Dialog dialog = Ask(kChannels[0][kOpen], kRate);
    EXPECT_EQ(dialog.Text(IDC_USER_DATA_RATE), "003");
    dialog.Pick(IDC_USER_DATA_RATE, "640");
    dialog.Key(VK_RETURN);
    EXPECT_EQ(ReceivedCalls(), Texts{"KORA_DLL_ChannelOpen(0, 800E)"});
    EXPECT_EQ(Stored("LSDRate"), "14");

    dialog = AskRate(3);
    EXPECT_EQ(dialog.SelectedRow(IDC_USER_DATA_RATE), -1) << "row 14 of 9";
    dialog.Press(IDOK);
    EXPECT_TRUE(dialog.IsOpen());
    dialog.Key(VK_ESCAPE);
    EXPECT_EQ(answer_, 2);
    EXPECT_EQ(kit::OnUserInterface(SelectedUserDataRate), 0u);

    dialog = Ask(kChannels[1][kOpen], kRate);
    EXPECT_EQ(dialog.Text(IDC_USER_DATA_RATE), "2560");
    dialog.Pick(IDC_USER_DATA_RATE, 5);
    dialog.Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());
    EXPECT_EQ(kit::OnUserInterface(SelectedUserDataRate), 0x9003u) << "the one loaded";

    dialog = Ask(kChannels[2][kOpen], kRate);
    EXPECT_EQ(dialog.SelectedRow(IDC_USER_DATA_RATE), -1);
    dialog.Press(IDOK);
    EXPECT_EQ(kit::FrontDialog().Handle(), dialog.Handle());
    EXPECT_TRUE(ReceivedCalls().empty());
    dialog.Pick(IDC_USER_DATA_RATE, "OFF");
    dialog.Press(IDOK);
    EXPECT_EQ(ReceivedCalls(), Texts{"KORA_DLL_ChannelOpen(2, A0FF)"});
    EXPECT_EQ(Stored("LSDRate") + ' ' + Stored("HSDRate"), "14 65539");
}

TEST_F(CallData, LengthsUpTo64AreSentAndLargerOnesRefused) {
    kit::Dialog dialog = Ask(kChannels[0][kSend], kLength);
    EXPECT_EQ(dialog.Text(IDC_USER_DATA_LENGTH), "1");
    for (const char* tooLarge : {"65", "4294967297", "0000000000000000000000099"}) {
        dialog.Type(IDC_USER_DATA_LENGTH, tooLarge);
        dialog.Key(VK_RETURN);
        kit::MeetBox(kLength, "Illegal size", IDOK, MB_ICONHAND);
        EXPECT_EQ(dialog.FocusedId(), IDC_USER_DATA_LENGTH);
    }
    dialog.Press(IDCANCEL);
    EXPECT_TRUE(ReceivedCalls().empty());
    EXPECT_EQ(Stored("UserData_LastLength"), "(none)");

    settings_.Write(kit::kOwnFile, "KORA_TST", "UserData_LastLength", "-1");
    std::string shown = "65535";
    for (const auto& [typed, sent, stored] :
         {std::tuple{"64", "40", "64"}, std::tuple{"abc", "0", "0"}, std::tuple{"20x", "14", "20"},
          std::tuple{"-3", "0", "0"}}) {
        dialog = Ask(kChannels[2][kSend], kLength);
        EXPECT_EQ(dialog.Text(IDC_USER_DATA_LENGTH), shown);
        dialog.Type(IDC_USER_DATA_LENGTH, typed);
        dialog.Press(IDOK);
        EXPECT_EQ(ReceivedCalls(), Texts{"KORA_DLL_ChannelSend(2, " + std::string(sent) + ")"});
        EXPECT_EQ(Stored("UserData_LastLength"), stored);
        shown = stored;
    }
}

TEST_F(CallData, ServicesThatReportNothingAreCalledWhateverTheyAnswer) {
    std::vector<std::pair<UINT, std::string>> cases{
        {40197, "vdapi_ANNEXD_Initialize()"}, {40198, "vdapi_ANNEXD_Terminate()"},
        {40284, "vdapi_Stream_Close(4)"},     {40285, "vdapi_Stream_Close(3)"},
        {40286, "vdapi_Stream_Close(2)"},
    };
    for (uint32_t channel = 0; channel < 3; ++channel) {
        for (const auto& [step, name] :
             {std::pair{kInitialize, "Initialize"}, std::pair{kRead, "Read"},
              std::pair{kClose, "Close"}, std::pair{kTerminate, "Terminate"}}) {
            cases.emplace_back(kChannels[channel][step], std::string("KORA_DLL_Channel") + name +
                                                             '(' + std::to_string(channel) + ')');
        }
    }
    for (const auto& [command, call] : cases) {
        board::FailAlways(call.substr(0, call.find('(')), VXD_HARDWARE_FAILURE);
        EXPECT_EQ(ReceivedOnCommand(command), Texts{call}) << command;
    }
    EXPECT_TRUE(ReceivedOnCommand(IDM_HSD_PACKETIZED).empty());
    EXPECT_TRUE(ReceivedOnCommand(IDM_ANNEXD_UPLOAD).empty());
}

TEST_F(CallData, BytesSentOnAnOpenChannelAreReadBack) {
    utility_.Command(IDM_MENU_OLDER);
    utility_.Choose(IDM_LSD_INITIALIZE);
    utility_.Choose(IDM_LSD_OPEN);
    kit::Dialog dialog = kit::WaitForDialog(kRate);
    dialog.Pick(IDC_USER_DATA_RATE, "064");
    dialog.Press(IDOK);
    utility_.Choose(IDM_LSD_SEND);
    dialog = kit::WaitForDialog(kLength);
    dialog.Type(IDC_USER_DATA_LENGTH, "20");
    dialog.Press(IDOK);
    utility_.Choose(IDM_LSD_READ);
    const board::UserDataChannel channel = board::GetServices().userData[0];
    EXPECT_EQ(channel.rate, 0x8003);
    EXPECT_EQ(channel.bytesRead, 20u);
    utility_.Choose(IDM_LSD_CLOSE);
    EXPECT_FALSE(board::GetServices().userData[0].rate);
}

TEST_F(CallData, PacketizedModeFollowsItsMarkWhereTheMarkIsShown) {
    const Texts on{"vdapi_LSD_SetPacketized(0, 1)"};
    const Texts off{"vdapi_LSD_SetPacketized(0, 0)"};
    utility_.Command(IDM_MENU_OLDER);
    EXPECT_EQ(ReceivedOnCommand(IDM_LSD_PACKETIZED), on);
    EXPECT_TRUE(utility_.IsChecked(IDM_LSD_PACKETIZED));
    utility_.Command(IDM_MENU_NEWER);
    EXPECT_EQ(ReceivedOnCommand(IDM_LSD_PACKETIZED), off);
    utility_.Command(IDM_MENU_OLDER);
    EXPECT_TRUE(utility_.IsChecked(IDM_LSD_PACKETIZED));
    board::FailOnce("vdapi_LSD_SetPacketized", VXD_DMA_BUSY);
    utility_.Choose(IDM_LSD_PACKETIZED);
    kit::MeetBox(kWarning, "vdapi_LSD_SetPacketized: \nVXD_DMA_BUSY");
    EXPECT_TRUE(utility_.IsChecked(IDM_LSD_PACKETIZED)) << "the driver has refused";
    EXPECT_EQ(ReceivedOnCommand(IDM_LSD_PACKETIZED), off);
    EXPECT_FALSE(utility_.IsChecked(IDM_LSD_PACKETIZED));
}

TEST_F(CallData, MessagesAreShownAsFarAsTheyFit) {
    for (const std::size_t length : {0, 99, 100, 300}) {
        std::string text(length, 'x');
        if (length > 98) {
            text[98] = 'e';
        }
        kit::RunStep(
            [&] { vdapi_MBE_Write(text.c_str(), 1, static_cast<uint32_t>(text.size()), 0xFE); });
        utility_.Command(IDM_MBE_RECEIVE);
        MeetMessage(text.substr(0, 99));
    }
    utility_.Command(IDM_MBE_RECEIVE);
    MeetMessage("");
    board::FailAlways("vdapi_MBE_Read", VXD_TIMEOUT_FAILURE);
    utility_.Command(IDM_MBE_RECEIVE);
    kit::MeetBox(kWarning, "MainWndProc: vdapi_MBE_Read(): \nVXD_TIMEOUT_FAILURE");
    MeetMessage("");
}

TEST_F(CallData, AMessageThatIsSentIsReceivedAndTheBytesOfAnImageAreCounted) {
    utility_.Command(IDM_MENU_OLDER);
    utility_.Choose(IDM_MBE_INITIALIZE);
    utility_.Choose(IDM_MBE_OPEN_OUTGOING);
    utility_.Choose(IDM_MBE_SEND);
    kit::Dialog dialog = kit::WaitForDialog("MBE SEND DEMO");
    dialog.Type(IDC_MBE_MESSAGE, "Hello there");
    dialog.Key(VK_RETURN);
    dialog.AltKey('E');
    utility_.Choose(IDM_MBE_RECEIVE);
    kit::WaitForDialog("Got MSE Message !");
    EXPECT_FALSE(IsWindowFree());
    MeetMessage("Hello there");

    utility_.Choose(IDM_ANNEXD_INITIALIZE);
    utility_.Choose(IDM_ANNEXD_DOWNLOAD);
    dialog = kit::WaitForDialog("Dialog");
    EXPECT_EQ(dialog.Text(IDC_ANNEXD_BYTES), "0");
    dialog.Key(VK_RETURN);
    EXPECT_EQ(dialog.Text(IDC_ANNEXD_BYTES), "1584");
    dialog.Key(VK_ESCAPE);
    kit::ExpectNoBox();
}

TEST_F(CallData, BandwidthIsShownAsASignedNumber) {
    const auto meet = [&](const char* text) {
        utility_.Choose(IDM_FILE_BANDWIDTH);
        kit::WaitForDialog("Bandwidth");
        EXPECT_TRUE(IsWindowFree());
        kit::MeetBox("Bandwidth", text, IDOK, MB_OK);
        kit::ExpectNoBox();
    };
    meet("The Bandwidth is: 0");
    vdapi_Stream_Open(STREAM_VIDEO, 0, 0);
    meet("The Bandwidth is: 320");
    board::StickBits("vdapi_GetBandwidth", 0xFFFFFFFE);
    meet("The Bandwidth is: -2");
    board::FailAlways("vdapi_GetBandwidth", VXD_BUSY_WITH_PRIOR_REQUEST);
    meet("The Bandwidth is: 0");
}

TEST_F(CallData, PostProcessingIsStartedAndEndedOnlyWhereThatIsConfirmed) {
    for (const auto& [command, operation, question] :
         {std::tuple{40189u, "vdapi_VPP_Initialize",
                     "VPP(Vidinlay.386) was already initialised through INLAY driver.\n"
                     "Do you want to initialize, anyway?"},
          std::tuple{40190u, "vdapi_VPP_Terminate",
                     "VPP(Vidinlay.386) should be terminated through INLAY driver.\n"
                     "Do you want to terminate, anyway?"}}) {
        board::ForgetCalls();
        utility_.Command(command);
        kit::WaitForDialog("VPP Warning");
        EXPECT_TRUE(IsWindowFree());
        kit::MeetBox("VPP Warning", question, IDNO, MB_YESNO);
        kit::ExpectNoBox();
        EXPECT_TRUE(ReceivedCalls().empty());
        for (const bool fails : {false, true}) {
            board::ForgetCalls();
            utility_.Command(command);
            kit::MeetBox("VPP Warning", question, IDYES);
            EXPECT_EQ(ReceivedCalls(), Texts{std::string(operation) + "()"});
            if (fails) {
                kit::MeetBox(kWarning,
                             std::string(operation) + ": \nVXD_INCOMPATIBLE_CONFIGURATION");
            }
            kit::ExpectNoBox();
            board::FailAlways(operation, VXD_INCOMPATIBLE_CONFIGURATION);
        }
    }
}

TEST_F(CallData, AQuestionThatIsOpenWhenTheProgramEndsIsNotAnsweredYes) {
    utility_.Command(IDM_VPP_INITIALIZE);
    kit::WaitForDialog("VPP Warning");
    utility_.Close();
    for (const std::string& call : ReceivedCalls()) {
        EXPECT_NE(call, "vdapi_VPP_Initialize()");
    }
}

class BasCommands : public DialogTest {
  protected:
    BasCommands() : DialogTest(IDM_BAS_SEND_COMMAND, "SEND BAS COMMANDS:", IDCANCEL) {}

    // All that is remembered, in the order of the fields.
    std::string Remembered() const {
        std::string values;
        for (const char* key : {"NumberOfCommands", "RepeatCount", "Data1", "Data2", "Data3",
                                "Data4", "Data5", "Data6", "Length"}) {
            values += Stored("BAS DLG", key) + ' ';
        }
        return values;
    }

    const std::vector<int> fields_{1101, 1102, 1104, 1105, 1106, 1107, 1108, 1111, 1112};
};

TEST_F(BasCommands, SendWhatTheFieldsHoldAndRememberItWhenTheyAreLeft) {
    EXPECT_EQ(Shown(fields_),
              (Texts{"01", "01", "0x00", "0x00", "0x00", "0x00", "0x00", "0x00", "01"}));
    EXPECT_EQ(dialog_.FocusedId(), 1101);
    Type({{1101, "2"}, {1102, "65539"}, {1104, "0x1FF"}, {1105, "0A"}, {1106, "x"}});
    Type({{1107, "0xZ"}, {1108, "0x12345678"}, {1111, "__c4"}, {1112, "6 bytes"}});
    const std::string call = "vdapi_BAS_Write(2, 10003, address, 6) FF000000 45C4";
    board::ForgetCalls();
    for (int time = 0; time < 3; ++time) {
        dialog_.Key(VK_RETURN);
    }
    EXPECT_EQ(ReceivedCalls(), (Texts{call, call, call}));
    EXPECT_EQ(board::GetServices().bas.sendings, 3u);
    EXPECT_EQ(Stored("BAS DLG", "Data1"), "(none)");

    dialog_.CloseBox();
    EXPECT_EQ(Remembered(), "2 3 511 0 0 0 9029 196 6 ") << "16 bits of each";
    settings_.Write(kit::kOwnFile, "BAS DLG", "Data2", "65546");
    settings_.Write(kit::kOwnFile, "BAS DLG", "Length", "-1");
    Open();
    EXPECT_EQ(Shown(fields_),
              (Texts{"02", "03", "0x1FF", "0x0A", "0x00", "0x00", "0x2345", "0xC4", "65535"}));

    Type({{1101, "-5"}, {1102, "none"}, {1112, "70"}});
    EXPECT_EQ(ReceivedOn(IDC_BAS_UPDATE),
              Texts{"vdapi_BAS_Write(FFFFFFFB, 0, address, 46) FF0A0000 45C4"});
    kit::MeetBox(kWarning, "ApplyBASCall: calling vdapi_BAS_Write: \nVXD_INVALID_PARAMETER");
    EXPECT_TRUE(IsInFront());
    EXPECT_EQ(dialog_.Text(1101), "-5");
    dialog_.Key(VK_ESCAPE);
    EXPECT_EQ(Remembered(), "65531 0 511 10 0 0 9029 196 70 ");
    Open();
}

}  // namespace
