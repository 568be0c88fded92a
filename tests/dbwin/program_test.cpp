// The debug viewer beside programs that write, on every system.
#include "tests/dbwin/program.h"

#include "platform/debug_monitor.h"

namespace {

// What stands behind the first `word` of each line.
std::vector<std::string> Behind(const std::string& word, const std::string& text) {
    std::vector<std::string> found;
    for (std::size_t at = 0; at < text.size();) {
        const std::size_t end = std::min(text.find('\n', at), text.size());
        const std::string line = text.substr(at, end - at);
        const std::size_t begin = line.find(word);
        found.push_back(begin == line.npos ? line : line.substr(begin + word.size()));
        at = end + 1;
    }
    return found;
}

TEST_F(DbwinProgram, StartsAProgramThatFindsItAndShowsAndStoresWhatItWrites) {
    const std::string talker = kit::ProgramBeside("dbwin_talker");
    EXPECT_EQ(Run({"--json", "-o", folder_ / "log", "--", talker, "1"}), 40 + 2 + 1);
    EXPECT_EQ(Messages(), "dbwin: 4 lines shown, 0 left out, 0 lost\n");
    EXPECT_EQ(Log(), Lines());
    const auto processes = Behind("\"process\":", Lines());
    ASSERT_EQ(processes.size(), 4u) << Lines();
    EXPECT_NE(std::stoul(processes[0]), GetCurrentProcessId());
    EXPECT_NE(std::stoul(processes[0]), viewer_->Id());
    const std::string process = processes[0].substr(0, processes[0].find(','));
    const std::string inTheMiddle = "\"milliseconds\":412,\"prefixProcess\":\"3F\",\"text\":\"";
    EXPECT_EQ(processes,
              (std::vector<std::string>{
                  process + ",\"severity\":1,\"level\":\"error\",\"source\":\"KORATST\"," +
                      inTheMiddle + std::string(600, 'x') + "\"}",
                  process + ",\"severity\":20,\"level\":\"warn\",\"source\":\"JADE\"," +
                      inTheMiddle + "100 % of %d %s %n\"}",
                  process + ",\"text\":\"no prefix \xEF\xBF\xBD\xEF\xBF\xBD\",\"bytes\":"
                            "\"6E6F2070726566697820E9FF\"}",
                  process + ",\"text\":\"line 0\"}"}));

    EXPECT_EQ(Run({"-s", "warn,none", "-M", "line [0-9]", "--paused", "--", talker, "20"}), 42);
    EXPECT_EQ(Behind("warn ", Lines())[0], "   JADE      100 % of %d %s %n");
    EXPECT_TRUE(Lines().ends_with(" no prefix \\xE9\\xFF\n")) << Lines();
    EXPECT_EQ(Messages(), "dbwin: paused; p goes on\ndbwin: 2 lines shown, 21 left out, 0 lost\n");
}

TEST_F(DbwinProgram, ListensAloneAndNamesWhatItCantDo) {
    {
        const DebugMonitor own;
        EXPECT_EQ(FindWindowA("DBWin", nullptr), nullptr);
    }
    BeginAndWait({});
    EXPECT_NE(FindWindowA("dbwin", nullptr), nullptr) << "in any case, as classes are found";
    EXPECT_EQ(FindWindowA("DBWin", "Another title"), nullptr);
    EXPECT_EQ(FindWindowA("Another class", nullptr), nullptr);
    const std::unique_ptr<kit::Process> first = std::move(viewer_);
    const kit::Streams streams{"", "", folder_ / "second"};
    const auto second = [&](const std::vector<std::string>& arguments) {
        kit::Process viewer(kit::ProgramBeside("dbwin"), arguments, streams);
        const int code = viewer.ExitCode();
        std::string messages = ReadBytes(folder_ / "second");
        std::erase(messages, '\r');
        return std::pair(code, messages);
    };
    using Answer = std::pair<int, std::string>;
    EXPECT_EQ(second({"-o", folder_ / "log"}),
              Answer(3, "dbwin: another viewer takes the debug output already\n"));
    EXPECT_EQ(second({"-s", "loud"}),
              Answer(2, "dbwin: \"loud\" is no value of -s; see dbwin --help\n"));
    EXPECT_EQ(second({"-q"}), Answer(2, "dbwin: --quiet shows nothing without --output\n"));
    EXPECT_EQ(second({"-o", folder_ / "no/file"}),
              Answer(1, "dbwin: " + folder_ / "no/file" + ": No such file or directory\n"));
    EXPECT_EQ(second({"--help"}), Answer(0, ""));
    OutputDebugStringA("for the first\n");
    EXPECT_TRUE(kit::WaitFor([&] { return Lines().ends_with("for the first\n"); }));
    first->AskForEnd();
    EXPECT_EQ(first->ExitCode(), 0);
    EXPECT_EQ(Messages(), "dbwin: 1 line shown, 0 left out, 0 lost\n");
    EXPECT_EQ(FindWindowA("DBWin", nullptr), nullptr);
    EXPECT_EQ(Run({"--", folder_ / "nothing"}), 127);
    EXPECT_NE(Messages().find("nothing can't be started: "), std::string::npos) << Messages();
}

TEST_F(DbwinProgram, ThatIsKilledWhileLinesComeHoldsNobodyUpAndLeavesItsPlaceToTheNext) {
    BeginAndWait({"-q", "-o", folder_ / "log"});
    kit::Process writer(kit::ProgramBeside("dbwin_talker"), {"20000"}, {});
    ASSERT_TRUE(kit::WaitFor([&] { return Log().size() > 10'000; }));
    viewer_->Kill();
    viewer_->ExitCode();
    EXPECT_EQ(writer.ExitCode(), 40 + 2 + 1);
    EXPECT_EQ(FindWindowA("DBWin", nullptr), nullptr);
    BeginAndWait({"-j", "-o", folder_ / "log"});
    OutputDebugStringA("for the next\n");
    EXPECT_TRUE(kit::WaitFor([&] { return Lines().ends_with("\"for the next\"}\n"); }));
    EXPECT_EQ(End(), 0);
    auto lines = Behind("line ", Log());
    EXPECT_TRUE(lines.back().ends_with("\"for the next\"}"));
    lines.pop_back();
    for (std::size_t i = 3; i < lines.size() && !HasFailure(); ++i) {
        EXPECT_EQ(lines[i], std::to_string(i - 3));
    }
}

}  // namespace
