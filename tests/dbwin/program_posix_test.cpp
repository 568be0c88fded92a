// The debug viewer as a program of its own beside one that writes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "platform/core/descriptor.h"
#include "platform/debug_monitor.h"
#include "platform/win32.h"
#include "tests/platform/temporary_folder.h"

namespace {

using std::chrono::milliseconds;

template <typename Condition>
bool WaitFor(Condition condition) {
    for (int i = 0; i < 1000 && !condition(); ++i) {
        std::this_thread::sleep_for(milliseconds(10));
    }
    return condition();
}

class DbwinProgram : public testing::Test {
  protected:
    DbwinProgram() { setenv("XDG_RUNTIME_DIR", folder_.Path().c_str(), 1); }
    ~DbwinProgram() override {
        if (viewer_ > 0) {
            kill(viewer_, SIGKILL);
            waitpid(viewer_, nullptr, 0);
        }
    }

    // Starts the viewer; its input is the descriptor given, its messages come into a file.
    void Begin(std::vector<std::string> arguments, int input = -1) {
        viewer_ = fork();
        if (viewer_ == 0) {
            setsid();
            const int messages =
                open((folder_ / "messages").c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
            const int lines = open((folder_ / "lines").c_str(), O_CREAT | O_TRUNC | O_WRONLY, 0600);
            dup2(lines, STDOUT_FILENO);
            dup2(messages, STDERR_FILENO);
            if (input >= 0) {
                // The first terminal that a session opens is its own.
                close(open(ptsname(input), O_RDWR));
                dup2(open(ptsname(input), O_RDWR), STDIN_FILENO);
            }
            arguments.insert(arguments.begin(), DBWIN_PROGRAM);
            std::vector<char*> raw;
            for (std::string& argument : arguments) {
                raw.push_back(argument.data());
            }
            raw.push_back(nullptr);
            execv(raw[0], raw.data());
            _exit(99);
        }
    }

    void BeginAndWait(const std::vector<std::string>& arguments, int input = -1) {
        Begin(arguments, input);
        ASSERT_TRUE(WaitFor([] { return FindWindowA("DBWin", nullptr) != nullptr; }));
    }

    int End(int signalNumber) {
        if (signalNumber != 0) {
            kill(viewer_, signalNumber);
        }
        int status = 0;
        waitpid(viewer_, &status, 0);
        viewer_ = 0;
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    std::string Messages() const { return ReadBytes(folder_ / "messages"); }

    TemporaryFolder folder_;
    pid_t viewer_ = 0;
};

TEST_F(DbwinProgram, GetsTwoHundredThousandLinesASecondCompleteAndInOrder) {
    constexpr int kLines = 100'000;
    WriteBytes(folder_ / "log", "torn");
    BeginAndWait({"-q", "-o", folder_ / "log", "-m", "line [0-9]"});
    for (int i = 0; i < kLines; ++i) {
        OutputDebugStringA(("412*3F: [30]X:\t line " + std::to_string(i) + "\n").c_str());
        if (i % 100 == 99) {
            std::this_thread::sleep_for(std::chrono::microseconds(500));
        }
    }
    OutputDebugStringA("another\n");
    ASSERT_TRUE(WaitFor([&] {
        return ReadBytes(folder_ / "log").ends_with("line " + std::to_string(kLines - 1) + "\n");
    }));
    struct stat status {};
    stat((folder_ / "vxdtest-debug").c_str(), &status);
    EXPECT_EQ(status.st_mode & 07777, 0600u);
    EXPECT_EQ(End(SIGTERM), 0);
    EXPECT_EQ(Messages(), "dbwin: 100000 lines shown, 1 left out, 0 lost\n");
    const std::string log = ReadBytes(folder_ / "log");
    std::size_t at = log.find('\n') + 1;
    EXPECT_EQ(at, 5u) << "the torn line has its end";
    for (int i = 0; i < kLines && !HasFailure(); ++i) {
        const std::size_t end = log.find('\n', at);
        EXPECT_TRUE(log.substr(at, end - at).ends_with(" line " + std::to_string(i))) << i;
        at = end + 1;
    }
}

TEST_F(DbwinProgram, ThatIsKilledLeavesWholeLinesButForALastOneAndItsPlaceToTheNext) {
    for (int round = 0; round < 3; ++round) {
        BeginAndWait({"-j", "-o", folder_ / "log"});
        const std::string before = ReadBytes(folder_ / "log");
        const auto write = [](int lines) {
            for (int i = 0; i < lines; ++i) {
                OutputDebugStringA(std::string(300, 'x').c_str());
            }
        };
        write(1000);
        ASSERT_TRUE(WaitFor([&] { return ReadBytes(folder_ / "log").size() > before.size(); }));
        write(500);
        kill(viewer_, SIGKILL);
        write(500);
        End(0);
        const std::string killed = ReadBytes(folder_ / "log");
        const std::string whole =
            killed.substr(before.size(), killed.rfind('\n') + 1 - before.size());
        EXPECT_TRUE(whole.ends_with("x\"}\n"));
        EXPECT_EQ(std::ranges::count(whole, '{'), std::ranges::count(whole, '\n'));
        BeginAndWait({"-j", "-o", folder_ / "log"});
        EXPECT_TRUE(ReadBytes(folder_ / "log").ends_with('\n')) << "what was cut is ended";
        kill(viewer_, SIGTERM);
        End(0);
    }
}

TEST_F(DbwinProgram, EndsThoughLinesKeepComing) {
    BeginAndWait({});
    std::atomic<bool> enough = false;
    std::thread flood([&enough] {
        while (!enough) {
            OutputDebugStringA("line\n");
        }
    });
    std::this_thread::sleep_for(milliseconds(300));
    kill(viewer_, SIGTERM);
    bool ended = false;
    WaitFor([&] { return ended = ended || waitpid(viewer_, nullptr, WNOHANG) == viewer_; });
    enough = true;
    flood.join();
    EXPECT_TRUE(ended);
    viewer_ = ended ? 0 : viewer_;
}

TEST_F(DbwinProgram, ListensAloneAndSaysSo) {
    const DebugMonitor monitor;
    ASSERT_TRUE(monitor.IsListening());
    Begin({});
    EXPECT_EQ(End(0), 3);
    EXPECT_EQ(Messages(), "dbwin: another viewer takes the debug output already\n");
    EXPECT_EQ((Begin({"-s", "loud"}), End(0)), 2);
    EXPECT_EQ(Messages(), "dbwin: \"loud\" is no value of -s; see dbwin --help\n");
    EXPECT_EQ((Begin({"-o", folder_ / "no/file"}), End(0)), 1);
    EXPECT_EQ((Begin({"--help"}), End(0)), 0);
}

TEST_F(DbwinProgram, EndsWithItsCommandAndAsItDoes) {
    Begin({"--", "/bin/sh", "-c", "test -S \"$XDG_RUNTIME_DIR/vxdtest-debug\" && exit 7"});
    EXPECT_EQ(End(0), 7);
    Begin({"--", "/bin/sh", "-c", "kill -15 $$"});
    EXPECT_EQ(End(0), 128 + SIGTERM);
    Begin({"--", folder_ / "nothing"});
    EXPECT_EQ(End(0), 127);
    EXPECT_NE(Messages().find("nothing can't be started"), std::string::npos) << Messages();
}

TEST_F(DbwinProgram, IsPausedByItsKeyAndKeepsWhatComesMeanwhile) {
    const vxd::Descriptor terminal(posix_openpt(O_RDWR | O_NOCTTY));
    ASSERT_EQ(grantpt(terminal.Get()) + unlockpt(terminal.Get()), 0);
    BeginAndWait({}, terminal.Get());
    const auto outputMode = [] {
        const HMODULE library = LoadLibraryA("DBWIN.DLL");
        EXPECT_NE(library, nullptr);
        const FARPROC mode = GetProcAddress(library, "GetOutputMode");
        const auto answer = mode != nullptr ? static_cast<int>(mode()) : -1;
        FreeLibrary(library);
        return answer;
    };
    EXPECT_EQ(outputMode(), 1);
    ASSERT_EQ(write(terminal.Get(), "p", 1), 1);
    EXPECT_TRUE(WaitFor([&] { return outputMode() == 0; }));
    OutputDebugStringA("while it is paused\n");
    std::this_thread::sleep_for(milliseconds(200));
    EXPECT_EQ(ReadBytes(folder_ / "lines"), "");
    ASSERT_EQ(write(terminal.Get(), " ", 1), 1);
    EXPECT_TRUE(WaitFor([&] { return outputMode() == 1; }));
    EXPECT_TRUE(
        WaitFor([&] { return ReadBytes(folder_ / "lines").ends_with("while it is paused\n"); }));
    ASSERT_EQ(write(terminal.Get(), "q", 1), 1);
    EXPECT_EQ(End(0), 0);
}

}  // namespace
