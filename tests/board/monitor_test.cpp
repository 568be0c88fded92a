// Monitor bytes: they arrive from the board's own thread, later, or not at all.
#include "driver/low_memory.h"
#include "tests/board/driver_test.h"

using namespace std::chrono_literals;

namespace {

using Bytes = std::array<uint8_t, 3>;

constexpr Bytes kNothing{0xFF, 0xFF, 0xFF};
// The two bytes sent, and who answers.
constexpr Bytes kArcofiAnswers{0xA0, 0x01, 0x82};
constexpr Bytes kSbcxAnswers{0xA0, 0x01, 0x41};

// Long enough for an operation to come in between on the busiest machine.
constexpr auto kLong = 200ms;

}  // namespace

class MonitorBytes : public DriverTest {
  protected:
    ResultCode Receive() {
        return Debug(TALVERO_DBG_MON_TR_RCV,
                     MonitorReceiveBlock{0x0101, transmit_.Address(), 2, receive_.Address()});
    }

    // Waits until an answer has arrived, and gives it.
    Bytes AwaitAnswer() {
        while (board::GetMonitor().answers == answersTaken_) {
            std::this_thread::sleep_for(1ms);
        }
        ++answersTaken_;
        return Received();
    }

    // What the buffer holds, while the board may be writing.
    Bytes Received() const {
        Bytes seen;
        for (std::size_t i = 0; i < seen.size(); ++i)
            seen[i] = std::atomic_ref((*receive_)[i]).load();
        return seen;
    }

    uint32_t answersTaken_ = 0;
    LowObject<uint32_t> transmit_{0x01A0};
    LowObject<Bytes> receive_{kNothing};
};

TEST_F(MonitorBytes, ArriveAfterTheCallHasReturned) {
    board::SetMonitorDelay(kLong);
    EXPECT_EQ(Receive(), VXD_SUCCESS);
    EXPECT_EQ(Received(), kNothing);
    *transmit_ = 0;  // what is sent was taken at the call
    EXPECT_EQ(AwaitAnswer(), kArcofiAnswers);

    board::SetMonitorDelay(1ms);
    *transmit_ = 0x01A0;
    Debug(TALVERO_DBG_MON_TR_DEACT, DeviceBlock{3});
    for (int again = 0; again < 2; ++again) {
        *receive_ = kNothing;
        EXPECT_EQ(Receive(), VXD_SUCCESS);
        EXPECT_EQ(AwaitAnswer(), kSbcxAnswers);
    }
}

TEST_F(MonitorBytes, WantADeviceThatIsActive) {
    Debug(TALVERO_DBG_MON_TR_TERM, DeviceBlock{3});
    Debug(TALVERO_DBG_MON_TR_DEACT, DeviceBlock{12});
    EXPECT_EQ(Receive(), VXD_ILLEGAL_OPERATION);
    Debug(TALVERO_DBG_MON_TR_TERM, DeviceBlock{12});
    EXPECT_EQ(Receive(), VXD_CONFIGURATION_NOT_SET);
}

TEST_F(MonitorBytes, StayAwayWhereTheBoardEndsInBetween) {
    const std::array<std::function<void()>, 5> ends{
        [] { vdapi_Terminate(); },
        [] { KORA_DLL_Terminate(); },
        [] { vdapi_ResetVxD(); },
        [] { vdapi_AUXDEV_HardwareReset(); },
        [] { Debug(TALVERO_DBG_MON_TR_TERM, DeviceBlock{3}); },
    };
    board::SetMonitorDelay(kLong);
    for (size_t end = 0; end < ends.size(); ++end) {
        EXPECT_EQ(Receive(), VXD_SUCCESS);
        ends[end]();
        vdapi_Initialize(0);
        KORA_DLL_Initialize();
        std::this_thread::sleep_for(kLong + 50ms);
        EXPECT_EQ(*receive_, kNothing) << end;
    }
    Debug(TALVERO_DBG_MON_TR_RST, DeviceBlock{12});
    EXPECT_EQ(Receive(), VXD_SUCCESS);
    EXPECT_EQ(AwaitAnswer(), kSbcxAnswers) << "a library that is opened again works as before";
}

TEST_F(MonitorBytes, TouchNoMemoryOnceALibraryHasClosed) {
    board::SetMonitorDelay(1ms);
    for (int round = 0; round < 50; ++round) {
        {
            const LowObject<Bytes> buffer(kNothing);
            Debug(TALVERO_DBG_MON_TR_RCV,
                  MonitorReceiveBlock{0x0101, transmit_.Address(), 2, buffer.Address()});
            std::this_thread::sleep_for(round * 50us);
            vdapi_Terminate();
        }
        const LowObject<Bytes> next(kNothing);  // lies where the buffer was
        std::this_thread::sleep_for(100us);
        EXPECT_EQ(*next, kNothing);
        vdapi_Initialize(0);
    }
}
