// Debug output through the socket: long texts, and monitors that are dead, stuck or not to be
// trusted.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstring>
#include <string>
#include <thread>
#include <vector>

#include "platform/core/debug_socket.h"
#include "platform/core/descriptor.h"
#include "platform/debug_line_queue.h"
#include "platform/debug_monitor.h"
#include "platform/win32.h"
#include "tests/kit/own_time.h"
#include "tests/kit/speed.h"
#include "tests/platform/temporary_folder.h"

namespace {

using std::chrono::milliseconds;

class DebugOutputPosixTest : public testing::Test {
  protected:
    DebugOutputPosixTest() {
        SetEnvironmentVariableA("XDG_RUNTIME_DIR", folder_.Path().string().c_str());
    }

    // A socket in the monitor's place.
    static vxd::Descriptor Bind() {
        const auto place = vxd::FindDebugSocket(vxd::MissingFolder::kLeave);
        vxd::Descriptor bound(socket(AF_UNIX, SOCK_DGRAM, 0));
        EXPECT_EQ(bind(bound.Get(), reinterpret_cast<const sockaddr*>(&place->address),
                       sizeof place->address),
                  0);
        return bound;
    }

    TemporaryFolder folder_;
};

TEST_F(DebugOutputPosixTest, AMonitorTakesThePlaceOfADeadOneAndOnlyItsUserWritesToIt) {
    Bind();  // and closes it; the file stays
    WriteBytes(folder_ / "vxdtest-debug-paused", "");
    ASSERT_FALSE(std::filesystem::is_empty(folder_.Path()));
    {
        for (const mode_t mask : {mode_t{0}, mode_t{0777}}) {
            const mode_t before = umask(mask);
            DebugMonitor monitor;
            umask(before);
            ASSERT_EQ(monitor.State(), DebugMonitorState::kListens);
            EXPECT_FALSE(IsDebugMonitorPaused()) << "as the dead one was";
            struct stat status = {};
            ASSERT_EQ(stat(monitor.Place().c_str(), &status), 0);
            EXPECT_EQ(status.st_mode & 07777, 0600u);
            OutputDebugStringA("line");
            EXPECT_TRUE(monitor.Next(milliseconds(5000)));
            monitor.SetPaused(true);
            EXPECT_TRUE(IsDebugMonitorPaused());
        }
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

// Of this thread's own time, in which load does not count: one round, the first of the process.
TEST_F(DebugOutputPosixTest, AMonitorThatReadsNothingHoldsNobodyUpAndIsToldWhatItMissed) {
    constexpr std::uint64_t kLines = 100'000;
    const vxd::Descriptor stuck = Bind();
    const std::string text(100, 'x');
    const kit::OwnTime time;
    for (std::uint64_t i = 0; i < kLines; ++i)
        OutputDebugStringA(text.c_str());
    EXPECT_LT(time.Passed(), milliseconds(10) * kit::kSlowdown);

    std::uint64_t received = 0;
    std::uint64_t lost = 0;
    std::vector<char> datagram(std::size_t{64} << 10);
    while (received + lost < kLines) {
        const ssize_t length = recv(stuck.Get(), datagram.data(), datagram.size(), 0);
        vxd::DebugDatagramHeader header;
        ASSERT_GE(length, static_cast<ssize_t>(sizeof header));
        std::memcpy(&header, datagram.data(), sizeof header);
        received += static_cast<std::uint64_t>(
            std::count(datagram.begin() + sizeof header, datagram.begin() + length, '\0'));
        lost += header.lost;
    }
    EXPECT_EQ(received + lost, kLines);
    EXPECT_GT(lost, 0u) << "memory is bounded";
}

TEST_F(DebugOutputPosixTest, AMonitorThatReadsNowAndThenDelaysNoCall) {
    const vxd::Descriptor slow = Bind();
    std::vector<char> datagram(std::size_t{64} << 10);
    std::jthread reader([&](const std::stop_token& stop) {
        while (!stop.stop_requested()) {
            recv(slow.Get(), datagram.data(), datagram.size(), MSG_DONTWAIT);
            std::this_thread::sleep_for(milliseconds(2));
        }
    });
    const std::string text(4000, 'x');
    std::chrono::nanoseconds longest{};
    kit::OwnTime time;
    for (int i = 0; i < 20'000; ++i) {
        time.Restart();
        OutputDebugStringA(text.c_str());
        longest = std::max(longest, time.Passed());
    }
    EXPECT_LT(longest, milliseconds(1) * kit::kSlowdown);
}

TEST_F(DebugOutputPosixTest, LinesThatNobodyAsksForTakeBoundedMemory) {
    constexpr std::uint32_t kLines = 20'000;
    const std::string text(4000, 'x');
    DebugLineQueue queue;
    for (std::uint32_t i = 0; i < kLines; ++i)
        queue.Add({1, text});
    std::uint32_t kept = 0;
    std::uint32_t lost = 0;
    while (const auto line = queue.Take(milliseconds(0))) {
        lost += line->lost;
        kept += line->lost == 0 ? 1 : 0;
    }
    EXPECT_EQ(kept + lost, kLines);
    EXPECT_GT(kept, 1000u);
    EXPECT_LT(kept, 5000u);
    queue.Add({1, "next"});
    EXPECT_EQ(queue.Take(milliseconds(0))->text, "next");
}

TEST_F(DebugOutputPosixTest, AProgramThatEndsAtOnceLeavesItsLines) {
    DebugMonitor monitor;
    const pid_t child = fork();
    if (child == 0) {
        OutputDebugStringA("last words");
        _exit(0);
    }
    waitpid(child, nullptr, 0);
    const auto line = monitor.Next(milliseconds(5000));
    ASSERT_TRUE(line);
    EXPECT_EQ(line->text, "last words");
    EXPECT_EQ(line->processId, static_cast<std::uint32_t>(child));
}

TEST_F(DebugOutputPosixTest, ALongTextComesInPieces) {
    std::string text;
    for (int i = 0; text.size() < 10'000; ++i)
        text += std::to_string(i) + "\u20AC\u20AC";
    DebugMonitor monitor;
    OutputDebugStringA(text.c_str());
    std::string received;
    while (received.size() < text.size()) {
        const auto line = monitor.Next(milliseconds(5000));
        ASSERT_TRUE(line);
        EXPECT_LE(line->text.size(), 4091u);
        EXPECT_NE(static_cast<unsigned char>(line->text[0]) & 0xC0, 0x80) << "half a character";
        received += line->text;
    }
    EXPECT_EQ(received, text);
}

}  // namespace
