// The debug viewer on a terminal, under floods and kills, and where a disk is full.
#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "platform/core/debug_socket.h"
#include "platform/core/descriptor.h"
#include "tests/dbwin/program.h"
#include "tests/kit/own_time.h"
#include "tests/kit/speed.h"

namespace {

using std::chrono::microseconds;
using std::chrono::milliseconds;

class DbwinPosix : public DbwinProgram {
  protected:
    // Starts it by a shell's line, in which it is "$0".
    void BeginByShell(const std::string& line) {
        viewer_ = std::make_unique<kit::Process>(
            "/bin/sh", std::vector<std::string>{"-c", line, kit::ProgramBeside("dbwin")},
            kit::Streams{"", folder_ / "lines", folder_ / "messages"});
        ASSERT_TRUE(kit::WaitFor([] { return FindWindowA("DBWin", nullptr) != nullptr; }));
    }
};

int OutputMode() {
    const HMODULE library = LoadLibraryA("DBWIN.DLL");
    EXPECT_NE(library, nullptr);
    const FARPROC mode = GetProcAddress(library, "GetOutputMode");
    const int answer = mode != nullptr ? static_cast<int>(mode()) : -1;
    FreeLibrary(library);
    return answer;
}

// Writes one text again and again.
std::jthread Flood(const std::string& text) {
    return std::jthread([text](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            OutputDebugStringA(text.c_str());
        }
    });
}

// As many as the writer and the viewer can keep between them.
TEST_F(DbwinPosix, GetsLinesThatComeAllAtOnceCompleteInOrderAndFast) {
    constexpr int kLines = 20'000;
    BeginAndWait({"-q", "-o", folder_ / "log", "-m", "line [0-9]"});
    const kit::OwnTime time;
    for (int i = 0; i < kLines; ++i) {
        OutputDebugStringA(("412*3F: [30]X:\t line " + std::to_string(i) + "\n").c_str());
    }
    EXPECT_LT(time.Passed(), milliseconds(200) * kit::kSlowdown) << "the writer is held up";
    OutputDebugStringA("another\n");
    EXPECT_TRUE(kit::WaitFor([&] { return Log().ends_with(" line 19999\n"); }));
    EXPECT_EQ(End(), 0);
    EXPECT_EQ(Messages(), "dbwin: 20000 lines shown, 1 left out, 0 lost\n");
    // What the viewer takes for them itself leaves it 200,000 of them a second.
    rusage used = {};
    getrusage(RUSAGE_CHILDREN, &used);
    const auto taken = std::chrono::seconds(used.ru_utime.tv_sec + used.ru_stime.tv_sec) +
                       microseconds(used.ru_utime.tv_usec + used.ru_stime.tv_usec);
    EXPECT_LT(taken, kLines * microseconds(5) * kit::kSlowdown);
    std::istringstream log(Log());
    std::string line;
    for (int i = 0; i < kLines && !HasFailure(); ++i) {
        std::getline(log, line);
        EXPECT_TRUE(line.ends_with(" line " + std::to_string(i))) << line;
    }
}

// Lines that lie across the pages of the file: the kernel ends a killed program's write between
// two.
TEST_F(DbwinPosix, ThatIsKilledWithItsGroupLeavesWholeLines) {
    prctl(PR_SET_CHILD_SUBREAPER, 1);  // what the viewer leaves behind is waited for here
    WriteBytes(folder_ / "log", "torn");
    std::jthread flood = Flood(std::string(4000, '\xE9'));  // 20 KB as JSON
    for (int round = 0; round < 25; ++round) {
        const auto before = std::filesystem::file_size(folder_ / "log");
        BeginAndWait({"-q", "-j", "-o", folder_ / "log"});
        EXPECT_TRUE(kit::WaitFor(
            [&] { return std::filesystem::file_size(folder_ / "log") > before + 100'000; }));
        std::this_thread::sleep_for(microseconds(777 * round));
        viewer_->Kill();
        viewer_->ExitCode();
        while (waitpid(-1, nullptr, 0) > 0) {
        }
        EXPECT_TRUE(Log().ends_with("\"}\n")) << round;
    }
    flood = {};
    std::istringstream log(Log());
    std::string line;
    std::getline(log, line);
    EXPECT_EQ(line, "torn") << "a line that was cut before has its end";
    while (std::getline(log, line) && !HasFailure()) {
        EXPECT_TRUE(line.starts_with("{\"time\"") && line.ends_with("}")) << line;
        EXPECT_EQ(std::ranges::count(line, '{'), 1) << line;
    }
}

TEST_F(DbwinPosix, TellsWhyAFileTakesNothingAndWhereLinesAreMissing) {
    const auto write = [](const std::string& text) {
        OutputDebugStringA(text.c_str());
        std::this_thread::sleep_for(milliseconds(300));
    };
    std::string rows;
    for (int i = 0; i < 250; ++i) {
        rows += "another row\n";
    }
    BeginByShell("ulimit -f 16; exec \"$0\" -q -o " + folder_ / "log");  // 8 KB
    for (const std::string& text : {std::string("first"), rows, rows, std::string("last")}) {
        write(text);
    }
    EXPECT_EQ(End(), 1);
    const std::string failure = "; lines that the file does not take are counted\n";
    EXPECT_EQ(Messages(), "dbwin: " + folder_ / "log" + ": File too large" + failure +
                              "dbwin: 4 lines shown, 0 left out, 0 lost, 2 not in the file\n");
    EXPECT_EQ(std::ranges::count(Log(), '\n'), 3) << Log();
    EXPECT_NE(Log().find("*** 2 lines lost here\n"), std::string::npos) << Log();

    BeginAndWait({"-q", "-o", "/dev/full"});
    write("line");
    EXPECT_EQ(End(), 1);
    EXPECT_EQ(Messages(), "dbwin: /dev/full: No space left on device" + failure +
                              "dbwin: 1 line shown, 0 left out, 0 lost, 1 not in the file\n");

    BeginByShell("exec \"$0\" >/dev/full");
    OutputDebugStringA("line\n");
    EXPECT_EQ(viewer_->ExitCode(), 1);
    EXPECT_EQ(Messages(),
              "dbwin: the output takes no more lines: No space left on device\n"
              "dbwin: 0 lines shown, 0 left out, 0 lost, 1 not taken by the output\n");
}

// A reader that stands still keeps it from its end for a second or two, one that reads slowly gets
// all.
TEST_F(DbwinPosix, EndsThoughLinesKeepComingOrNobodyTakesThem) {
    struct Case {
        const char* options;
        bool isRead;
        std::string message;
    };
    const std::string pipe = folder_ / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    for (const Case& each :
         {Case{">", false, "dbwin: the output takes no more lines: it takes nothing\n"},
          Case{">", true, "dbwin: 2000 lines shown, 0 left out, 0 lost\n"},
          Case{"-q -o ", false, "/pipe: it takes nothing; lines that the file does not take"}}) {
        const vxd::Descriptor reader(open(pipe.c_str(), O_RDWR | O_NONBLOCK));
        BeginByShell("exec \"$0\" " + (each.options + pipe));
        for (int i = 0; i < 2000; ++i) {
            OutputDebugStringA((std::string(300, 'x') + "\n").c_str());
        }
        EXPECT_TRUE(kit::WaitFor([&] {
            pollfd pipeEnd = {reader.Get(), POLLIN, 0};
            return poll(&pipeEnd, 1, 0) == 1;
        }));
        std::this_thread::sleep_for(milliseconds(300));
        viewer_->AskForEnd();
        EXPECT_TRUE(each.isRead || kit::WaitFor([&] { return viewer_->HasEnded(); }));
        std::ptrdiff_t lines = 0;
        std::string text(4096, ' ');
        for (ssize_t length = 1; length > 0 || !viewer_->HasEnded();) {
            length = read(reader.Get(), text.data(), text.size());
            lines += std::count(text.begin(), text.begin() + std::max<ssize_t>(length, 0), '\n');
            std::this_thread::sleep_for(milliseconds(2));
        }
        EXPECT_EQ(lines == 2000, each.isRead) << lines;
        EXPECT_EQ(viewer_->ExitCode(), each.isRead ? 0 : 1);
        EXPECT_NE(Messages().find(each.message), std::string::npos) << Messages();
    }
    BeginAndWait({});
    const std::jthread flood = Flood("line\n");
    std::this_thread::sleep_for(milliseconds(300));
    viewer_->AskForEnd();
    EXPECT_TRUE(kit::WaitFor([&] { return viewer_->HasEnded(); }));
}

TEST_F(DbwinPosix, IsPausedByItsKeyAndKeepsWhatComesMeanwhile) {
    const vxd::Descriptor terminal(posix_openpt(O_RDWR | O_NOCTTY));
    ASSERT_EQ(grantpt(terminal.Get()) + unlockpt(terminal.Get()), 0);
    const auto press = [&](char key) { EXPECT_EQ(write(terminal.Get(), &key, 1), 1); };
    BeginAndWait({}, ptsname(terminal.Get()));
    EXPECT_EQ(OutputMode(), 1);
    press('p');
    EXPECT_TRUE(kit::WaitFor([] { return OutputMode() == 0; }));
    OutputDebugStringA("while it is paused\n");
    std::this_thread::sleep_for(milliseconds(200));
    EXPECT_EQ(Lines(), "");
    press(' ');
    EXPECT_TRUE(kit::WaitFor([] { return OutputMode() == 1; }));
    EXPECT_TRUE(kit::WaitFor([&] { return Lines().ends_with("while it is paused\n"); }));
    press('q');
    EXPECT_EQ(viewer_->ExitCode(), 0);
}

TEST_F(DbwinPosix, EndsAsItsCommandAlsoWhereASignalEndsThat) {
    EXPECT_EQ(Run({"--", "/bin/sh", "-c", "kill -15 $$"}), 128 + SIGTERM);
}

TEST_F(DbwinPosix, UsesNoFolderInWhichAnotherUserMayWrite) {
    namespace fs = std::filesystem;
    const fs::path folder = vxd::DebugFolderInTmp();
    fs::permissions(folder_.Path(), fs::perms::all);
    BeginAndWait({});
    EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all) << "in its own one then";
    EXPECT_TRUE(fs::exists(folder / "vxdtest-debug"));
    EXPECT_EQ(End(), 0) << Messages();
    fs::permissions(folder, fs::perms::all);
    EXPECT_EQ(Run({}), 4);
    EXPECT_EQ(Messages(), "dbwin: " + folder.string() +
                              " is not a folder of this user's alone: another user may have made "
                              "it. Remove it, or set XDG_RUNTIME_DIR to a folder of your own\n");
    EXPECT_TRUE(fs::is_empty(folder));
    fs::remove_all(folder);
}

}  // namespace
