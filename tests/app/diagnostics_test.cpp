// The trace and the message boxes.
#include "services/diagnostics.h"

#include "platform/debug_monitor.h"
#include "res/resource.h"
#include "tests/kit/user_interface.h"
#include "tests/kit/utility.h"

namespace {

constexpr std::chrono::milliseconds kLineIsComing{2000};

// Writes a line at a severity and gives all that a viewer then sees.
std::vector<std::string> WriteAndRead(DebugMonitor& monitor, int severity,
                                      const std::string& text) {
    kit::RunStep([&] {
        DbgMsg(static_cast<uint16_t>(severity), "%s", text.c_str());
        OutputDebugStringA("end of test line\n");
    });
    std::vector<std::string> lines;
    while (auto line = monitor.Next(kLineIsComing)) {
        if (line->text == "end of test line\n")
            return lines;
        lines.push_back(line->text);
    }
    ADD_FAILURE() << "the debug output does not arrive";
    return lines;
}

// A viewer is a window of its class and a library that says that it wants to see something.
void OpenViewer() {
    kit::RegisterWindowClass("DBWin", DefWindowProcA);
    CreateWindowExA(0, "DBWin", "Viewer", WS_OVERLAPPEDWINDOW, 0, 0, 100, 100, nullptr, nullptr,
                    GetModuleHandleA(nullptr), nullptr);
}

class Trace : public testing::Test {
  protected:
    std::vector<std::string> Write(int severity, const std::string& text) {
        return WriteAndRead(monitor_, severity, text);
    }

    kit::SettingsFolder settings_;
    DebugMonitor monitor_;
    kit::Utility utility_{settings_};
};

TEST_F(Trace, IsSilentWithoutAViewerUntilALevelIsChosenWhichIsRememberedTenfold) {
    EXPECT_TRUE(Write(1, "nothing\n").empty());
    for (const auto& [command, level, remembered] :
         {std::tuple{IDM_DEBUG_KORA_ERROR, 1, "10"}, std::tuple{IDM_DEBUG_KORA_MUTE, 0, "0"},
          std::tuple{IDM_DEBUG_KORA_WARN, 2, "20"}, std::tuple{IDM_DEBUG_KORA_TRACE_1, 3, "30"},
          std::tuple{IDM_DEBUG_KORA_TRACE_2, 4, "40"},
          std::tuple{IDM_DEBUG_KORA_TRACE_3, 5, "50"}}) {
        utility_.Command(command);
        EXPECT_EQ(Write(level, "now\n").size(), 1u) << level;
        EXPECT_TRUE(Write(level + 1, "too much detail\n").empty()) << level;
        EXPECT_EQ(settings_.Read(kit::kSharedFile, "KORA_TST", "DebugLevel"), remembered);
    }
}

TEST_F(Trace, ALineBeginsWithTimeProcessSeverityAndSource) {
    utility_.Command(IDM_DEBUG_KORA_TRACE_3);
    const auto lines = Write(5, "100 %d %s \xE9\n");
    ASSERT_EQ(lines.size(), 1u);
    const std::string& line = lines.front();
    ASSERT_GT(line.size(), 6u);
    EXPECT_EQ(line.substr(0, 3).find_first_not_of(" 0123456789"), std::string::npos) << line;
    EXPECT_EQ(line.substr(4, 2).find_first_not_of(" 0123456789ABCDEF"), std::string::npos) << line;
    EXPECT_EQ(line.substr(3, 1) + line.substr(6), "*: [5]KORATST:\t 100 %d %s \xE9\n");
}

TEST_F(Trace, ALineThatIsTooLongIsAnnouncedAndCut) {
    utility_.Command(IDM_DEBUG_KORA_ERROR);
    const std::size_t prefix = Write(1, "").front().size();
    EXPECT_EQ(Write(1, std::string(511 - prefix, 'x')).front().size(), 511u);
    const auto lines = Write(1, std::string(512 - prefix, 'x'));
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_EQ(lines[0], "*** THE FOLLOWING DBGMSG DOES NOT FIT IN STACK ALLOCATED STRING ***\n");
    EXPECT_LE(lines[1].size(), 511u);
    EXPECT_EQ(lines[1].substr(lines[1].size() - 18), "*** Truncated ***\n");
    EXPECT_EQ(Write(1, std::string(900, 'y')).size(), 2u);
}

TEST_F(Trace, AViewerKeepsTheLevelWhileItsOutputModeIsNotZero) {
    kit::RunStep([] { SetDebugOutputLevel(20); });
    EXPECT_TRUE(Write(20, "no viewer\n").empty());
    kit::RunStep([] {
        OpenViewer();
        SetDebugOutputLevel(20);
    });
    EXPECT_EQ(Write(20, "viewer\n").size(), 1u);
    EXPECT_TRUE(Write(21, "more than the level\n").empty());
    monitor_.SetPaused(true);
    kit::RunStep([] { SetDebugOutputLevel(20); });
    EXPECT_TRUE(Write(1, "viewer that is paused\n").empty());
    monitor_.SetPaused(false);
    kit::RunStep([] { SetDebugOutputLevel(20); });
    EXPECT_EQ(Write(20, "viewer that goes on\n").size(), 1u);
}

// The most detailed line that a start under a viewer lets through.
void ExpectLevelAtTheStart(kit::SettingsFolder& settings, int level) {
    DebugMonitor monitor;
    const kit::Utility utility(settings, OpenViewer);
    EXPECT_EQ(WriteAndRead(monitor, level, "the level's own\n").size(), 1u);
    EXPECT_TRUE(WriteAndRead(monitor, level + 1, "more\n").empty());
}

TEST(TraceAtTheStart, HasTheStoredLevel) {
    kit::SettingsFolder settings;
    settings.Write(kit::kSharedFile, "KORA_TST", "DebugLevel", "20");
    ExpectLevelAtTheStart(settings, 20);
}

TEST(TraceAtTheStart, HasLevelOneWhereNoneIsStored) {
    kit::SettingsFolder settings;
    ExpectLevelAtTheStart(settings, 1);
}

TEST(Reports, AFailureNamesTheOperationAndTheError) {
    const kit::Utility utility;
    for (const auto& [code, name] :
         {std::pair{1, "VXD_INVALID_PARAMETER"}, std::pair{13, "VXD_TIMEOUT_FAILURE"},
          std::pair{32, "VXD_PACKET_TOO_BIG"}, std::pair{33, "Unknown Error"},
          std::pair{0xFFFF, "Unknown Error"}, std::pair{0, ""}}) {
        const auto result = static_cast<ResultCode>(code);
        kit::BeginStep([&] { ReportFailure(utility.Window(), result, "vdapi_X"); });
        if (result != VXD_SUCCESS) {
            kit::MeetBox("VxD Test - Warning", std::string("vdapi_X: \n") + name, IDOK,
                         MB_OK | MB_ICONEXCLAMATION);
        }
        kit::ExpectNoBox();
    }
}

TEST(Reports, AMessageHasItsKindsTitleAndIsCutAt255Characters) {
    const kit::Utility utility;
    int answer = 0;
    const auto show = [&](MessageKind kind, const char* text, const char* detail) {
        kit::BeginStep([=, &answer] { answer = ShowMessage(nullptr, kind, text, detail); });
    };
    const std::string longText(252, 'x');
    show(MessageKind::kInformation, longText.c_str(), "y");
    kit::MeetBox("VxD Test - Informative Message", longText + ": \n", IDOK,
                 MB_OK | MB_ICONINFORMATION);
    show(MessageKind::kFatalError, nullptr, "detail alone");
    kit::MeetBox("VxD Test - Fatal Error", ": \ndetail alone", IDOK, MB_OK | MB_ICONHAND);
    show(MessageKind::kQuestion, "Really?", nullptr);
    kit::MeetBox("VxD Test - Informative Message", "Really?", IDNO, MB_YESNO);
    EXPECT_EQ(kit::OnUserInterface([&] { return answer; }), IDNO);
    show(MessageKind::kQuestion, "Really?", nullptr);
    kit::MeetBox("VxD Test - Informative Message", "Really?", IDYES, MB_YESNO);
    EXPECT_EQ(kit::OnUserInterface([&] { return answer; }), IDYES);
    show(static_cast<MessageKind>(4), "nothing", nullptr);
    kit::ExpectNoBox();
}

}  // namespace
