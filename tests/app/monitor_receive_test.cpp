// Bytes on the IOM-2 monitor channel.
#include "commands/monitor_receive.h"

#include "board/control.h"
#include "tests/app/traced_utility.h"
#include "tests/kit/dialog.h"
#include "tests/kit/user_interface.h"

namespace {

using Bytes = std::array<uint8_t, 3>;

constexpr Bytes kNothing{0xFF, 0xFF, 0xFF};

Bytes Received() {
    return kit::OnUserInterface(MonitorRxBytes);
}

class MonitorReceive : public testing::Test {
  protected:
    // Names the main window to the driver.
    MonitorReceive() {
        utility_->Command(IDM_MONITOR_INITIALIZE);
        kit::WaitForDialog("Initialize IOM2 Monitor").Press(IDOK);
    }

    TracedUtility utility_;
};

TEST_F(MonitorReceive, ReturnsAtOnceAndTracesTheBytesWhenTheyArrive) {
    EXPECT_EQ(board::GetMonitor().window, utility_->Window());
    PostMessageA(utility_->Window(), WM_USER + 1, 0, 0);
    EXPECT_EQ(utility_.NextTrace(), "TALVERO_DBG_MON_TR_RCV: [0xFF] [0xFF] [0xFF]\n");
    board::SetMonitorDelay(std::chrono::milliseconds(300));
    utility_->Command(IDM_MONITOR_RECEIVE);
    EXPECT_EQ(Received(), kNothing) << "the utility has waited";
    EXPECT_EQ(utility_.NextTrace(), "TALVERO_DBG_MON_TR_RCV: [0xA0] [0x00] [0x82]\n");
}

TEST_F(MonitorReceive, ForgetsTheLastBytesBeforeItAsksForMore) {
    utility_->Command(IDM_MONITOR_RECEIVE);
    utility_.NextTrace();
    EXPECT_NE(Received(), kNothing);
    board::FailAlways("TALVERO_DBG_MON_TR_RCV", VXD_BUSY_WITH_PRIOR_REQUEST);
    utility_->Command(IDM_MONITOR_RECEIVE);
    kit::MeetBox("VxD Test - Warning",
                 "vdapi_Debug: TALVERO_DBG_MON_TR_RCV: \nVXD_BUSY_WITH_PRIOR_REQUEST");
    EXPECT_EQ(Received(), kNothing);
}

TEST_F(MonitorReceive, CanBeAskedForWhileBytesArrive) {
    constexpr int kRequests = 20;
    board::SetMonitorDelay(std::chrono::milliseconds(1));
    for (int request = 0; request < kRequests; ++request)
        utility_->Command(IDM_MONITOR_RECEIVE);
    // A request that comes between bytes and their trace empties the buffer again.
    for (int request = 0; request < kRequests; ++request)
        EXPECT_TRUE(utility_.NextTrace().starts_with("TALVERO_DBG_MON_TR_RCV: [0x"));
    EXPECT_EQ(Received(), (Bytes{0xA0, 0x00, 0x82}));
}

TEST_F(MonitorReceive, BytesOnTheirWayWhenTheUtilityClosesAreLost) {
    board::SetMonitorDelay(std::chrono::milliseconds(100));
    utility_->Command(IDM_MONITOR_RECEIVE);
    utility_->Close();
    std::this_thread::sleep_for(std::chrono::milliseconds(250));
    EXPECT_EQ(MonitorRxBytes(), kNothing);
}

}  // namespace
