// Debug output through the socket: long texts, and monitors that are dead, stuck or not to be
// trusted.
#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <string>

#include "platform/core/debug_socket.h"
#include "platform/core/descriptor.h"
#include "platform/debug_monitor.h"
#include "platform/win32.h"
#include "tests/platform/temporary_folder.h"

namespace {

using std::chrono::milliseconds;
using std::chrono::steady_clock;

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

TEST_F(DebugOutputPosixTest, AMonitorTakesThePlaceOfADeadOne) {
    Bind();  // and closes it; the file stays
    ASSERT_FALSE(std::filesystem::is_empty(folder_.Path()));
    {
        DebugMonitor monitor;
        ASSERT_TRUE(monitor.IsListening());
        OutputDebugStringA("line");
        EXPECT_TRUE(monitor.Next(milliseconds(5000)));
    }
    EXPECT_TRUE(std::filesystem::is_empty(folder_.Path()));
}

TEST_F(DebugOutputPosixTest, AMonitorThatReadsNothingHoldsNobodyUp) {
    const vxd::Descriptor stuck = Bind();
    const std::string text(4000, 'x');
    const auto start = steady_clock::now();
    for (int i = 0; i < 2000; ++i)
        OutputDebugStringA(text.c_str());
    EXPECT_LT(steady_clock::now() - start, milliseconds(2000));
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

TEST_F(DebugOutputPosixTest, AFolderThatOthersMayWriteIsNotUsed) {
    ASSERT_EQ(chmod(folder_.Path().c_str(), 0777), 0);
    const auto place = vxd::FindDebugSocket(vxd::MissingFolder::kCreate);
    ASSERT_TRUE(place);
    EXPECT_NE(place->folder, folder_.Path().string());
    struct stat status = {};
    ASSERT_EQ(lstat(place->folder.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0700u);
    rmdir(place->folder.c_str());
}

}  // namespace
