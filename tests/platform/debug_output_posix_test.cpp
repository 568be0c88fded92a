// Debug output through the socket, and monitors that are dead or stuck.
#include <sys/socket.h>
#include <sys/stat.h>

#include <cstring>

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
    const mode_t before = umask(0);
    {
        DebugMonitor monitor;
        ASSERT_EQ(monitor.State(), DebugMonitorState::kListens);
        EXPECT_FALSE(IsDebugMonitorPaused()) << "as the dead one was";
        struct stat status = {};
        ASSERT_EQ(stat(monitor.Place().c_str(), &status), 0);
        EXPECT_EQ(status.st_mode & 07777, 0600u);
    }
    umask(before);
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

TEST_F(DebugOutputPosixTest, LinesThatNobodyAsksForTakeBoundedMemory) {
    DebugLineQueue queue;
    for (int i = 0; i < 20'000; ++i)
        queue.Add({1, std::string(4000, 'x')});
    std::uint32_t kept = 0;
    std::uint32_t lost = 0;
    while (const auto line = queue.Take(milliseconds(0))) {
        lost += line->lost;
        kept += line->lost == 0 ? 1 : 0;
    }
    EXPECT_EQ(kept + lost, 20'000u);
    EXPECT_GT(kept, 1000u);
    EXPECT_LT(kept, 5000u);
}

}  // namespace
