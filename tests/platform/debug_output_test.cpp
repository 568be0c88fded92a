// Debug output and the monitor that listens to it.
#include "platform/debug_monitor.h"
#include "platform/win32.h"
#include "tests/platform/difference.h"
#include "tests/platform/temporary_folder.h"

namespace {

using std::chrono::milliseconds;

constexpr milliseconds kPatience(5000);

class DebugOutputTest : public testing::Test {
  protected:
    DebugOutputTest() {
        SetEnvironmentVariableA("XDG_RUNTIME_DIR", folder_.Path().string().c_str());
    }

    TemporaryFolder folder_;
};

TEST_F(DebugOutputTest, ALineComesWithItsProcess) {
    DebugMonitor monitor;
    ASSERT_TRUE(monitor.IsListening());
    OutputDebugStringA("first\n");
    OutputDebugStringA("second");
    for (const char* text : {"first\n", "second"}) {
        const auto line = monitor.Next(kPatience);
        ASSERT_TRUE(line);
        EXPECT_EQ(line->text, text);
        EXPECT_EQ(line->processId, GetCurrentProcessId());
    }
    EXPECT_FALSE(monitor.Next(milliseconds(1)));
}

TEST_F(DebugOutputTest, ALongTextComesInPieces) {
    constexpr std::size_t kPiece = 4091;
    std::string text;
    for (int i = 0; text.size() < 2 * kPiece; ++i)
        text += std::to_string(i) + " ";
    DebugMonitor monitor;
    OutputDebugStringA(text.c_str());
    OutputDebugStringA("next");
    std::string received;
    for (auto line = monitor.Next(kPatience); line && line->text != "next";
         line = monitor.Next(kPatience)) {
        EXPECT_LE(line->text.size(), kPiece);
        received += line->text;
    }
    EXPECT_EQ(received, kit::ExceptOn(WindowSystem::kWine, text.substr(0, kPiece),
                                      "passes on one piece alone", text));
}

TEST_F(DebugOutputTest, OneMonitorListensAtATime) {
    {
        DebugMonitor first;
        ASSERT_TRUE(first.IsListening());
        DebugMonitor second;
        EXPECT_FALSE(second.IsListening());
        EXPECT_FALSE(second.Next(kPatience));
        OutputDebugStringA("for the first");
        EXPECT_TRUE(first.Next(kPatience));
    }
    OutputDebugStringA("for nobody");
    DebugMonitor third;
    EXPECT_TRUE(third.IsListening());
    OutputDebugStringA("for the third");
    const auto line = third.Next(kPatience);
    ASSERT_TRUE(line);
    EXPECT_EQ(line->text, "for the third");
}

TEST_F(DebugOutputTest, ThreadsWriteWholeLinesInTheirOrder) {
    constexpr int kThreads = 4;
    constexpr int kLines = 50;
    DebugMonitor monitor;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([t] {
            for (int i = 0; i < kLines; ++i)
                OutputDebugStringA((std::to_string(t) + " " + std::to_string(i)).c_str());
        });
    }
    std::array<int, kThreads> next = {};
    for (int i = 0; i < kThreads * kLines; ++i) {
        const auto line = monitor.Next(kPatience);
        ASSERT_TRUE(line) << "line " << i;
        const auto thread = static_cast<std::size_t>(line->text[0] - '0');
        ASSERT_LT(thread, next.size());
        EXPECT_EQ(line->text, std::to_string(thread) + " " + std::to_string(next[thread]++));
    }
    for (std::thread& thread : threads)
        thread.join();
}

}  // namespace
