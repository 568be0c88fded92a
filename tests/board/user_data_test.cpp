// The user-data channels of a call.
#include "tests/board/driver_test.h"

namespace {

using Bytes = std::vector<uint8_t>;

constexpr uint32_t kLsd = 0;
constexpr uint32_t kHsd = 1;
constexpr uint32_t kMlp = 2;

class UserData : public DriverTest {
  protected:
    static board::UserDataChannel Channel(uint32_t number) {
        return board::GetServices().userData[number];
    }

    // What one reading brings; nothing where it fails.
    static Bytes ReadBytes(uint32_t number) {
        return KORA_DLL_ChannelRead(number) == VXD_SUCCESS ? Channel(number).lastRead : Bytes{};
    }
};

TEST_F(UserData, ComesBackInItsOrderAndAsPacketsWhereThatIsAskedFor) {
    KORA_DLL_ChannelOpen(kLsd, 0x8003);
    KORA_DLL_ChannelOpen(kMlp, 0xA001);
    KORA_DLL_ChannelSend(kMlp, 1);
    for (const uint32_t length : {2, 0, 3, 60}) {
        EXPECT_EQ(KORA_DLL_ChannelSend(kLsd, length), VXD_SUCCESS);
    }
    EXPECT_EQ(ReadBytes(kLsd), (Bytes{0, 1, 2, 3, 4})) << "the next piece is too many for 64";
    EXPECT_EQ(ReadBytes(kLsd).size(), 60u);
    EXPECT_EQ(KORA_DLL_ChannelRead(kLsd), VXD_OPERATION_FAILED);
    EXPECT_EQ(vdapi_LSD_SetPacketized(0, 1), VXD_SUCCESS);
    KORA_DLL_ChannelSend(kLsd, 2);
    KORA_DLL_ChannelSend(kLsd, 3);
    EXPECT_EQ(ReadBytes(kLsd), (Bytes{65, 66}));
    EXPECT_EQ(ReadBytes(kLsd), (Bytes{67, 68, 69}));
    EXPECT_EQ(Channel(kLsd).bytesRead, 70u);
    EXPECT_EQ(ReadBytes(kMlp), Bytes{0});
}

TEST_F(UserData, FlowsOnlyOnAnOpenChannelAndOnlySoMuch) {
    EXPECT_EQ(KORA_DLL_ChannelSend(kHsd, 1), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(KORA_DLL_ChannelRead(kHsd), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(KORA_DLL_ChannelClose(kHsd), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(KORA_DLL_ChannelOpen(kHsd, 0x9006), VXD_INVALID_PARAMETER);
    EXPECT_EQ(KORA_DLL_ChannelOpen(kHsd, 0x8003), VXD_INVALID_PARAMETER) << "another one's rate";
    EXPECT_EQ(KORA_DLL_ChannelOpen(kHsd, 0x90FF), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_ChannelSend(kHsd, 1), VXD_ILLEGAL_OPERATION) << "it is off";
    EXPECT_EQ(KORA_DLL_ChannelOpen(kHsd, 0x9005), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(KORA_DLL_ChannelClose(kHsd), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_ChannelOpen(kHsd, 0x9005), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_ChannelSend(kHsd, 65), VXD_PACKET_TOO_BIG);
    for (int sent = 0; sent < 16; ++sent) {
        EXPECT_EQ(KORA_DLL_ChannelSend(kHsd, 64), VXD_SUCCESS);
    }
    EXPECT_EQ(KORA_DLL_ChannelSend(kHsd, 64), VXD_STREAM_OVERFLOW);
    KORA_DLL_ChannelClose(kHsd);
    KORA_DLL_ChannelOpen(kHsd, 0x9000);
    EXPECT_EQ(KORA_DLL_ChannelRead(kHsd), VXD_OPERATION_FAILED) << "what waited is gone";
}

TEST_F(UserData, EndsWithItsChannelItsServiceOrTheDriver) {
    const auto end = [](uint32_t (*act)()) {
        EXPECT_EQ(KORA_DLL_ChannelOpen(kMlp, 0xA00D), VXD_SUCCESS);
        EXPECT_EQ(act(), VXD_SUCCESS);
        EXPECT_FALSE(Channel(kMlp).rate);
    };
    end([] { return KORA_DLL_ChannelTerminate(kMlp); });
    EXPECT_EQ(KORA_DLL_ChannelOpen(kMlp, 0xA00D), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(KORA_DLL_ChannelInitialize(kMlp), VXD_SUCCESS);
    end([] { return uint32_t{Debug(TALVERO_DBG_STREAM_TR_TERM)}; });
    EXPECT_EQ(KORA_DLL_ChannelInitialize(kMlp), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(KORA_DLL_ChannelOpen(kLsd, 0x8000), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_STREAM_TR_INIT), VXD_SUCCESS);
    end([] { return vdapi_ResetVxD(); });
    end([] { return vdapi_AUXDEV_HardwareReset(); });
}

}  // namespace
