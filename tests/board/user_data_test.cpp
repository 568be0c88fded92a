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
    static Bytes Read(uint32_t number) {
        return KORA_DLL_ChannelRead(number) == VXD_SUCCESS ? Channel(number).lastRead : Bytes{};
    }
};

TEST_F(UserData, ComesBackInItsOrderAndAsPacketsWhereThatIsAskedFor) {
    KORA_DLL_ChannelOpen(kLsd, 0x8003);
    KORA_DLL_ChannelOpen(kMlp, 0xA001);
    const auto send = [](uint32_t channel, std::initializer_list<uint32_t> lengths) {
        for (const uint32_t length : lengths) {
            EXPECT_EQ(KORA_DLL_ChannelSend(channel, length), VXD_SUCCESS);
        }
    };
    send(kMlp, {1});
    send(kLsd, {2, 0, 3, 60});
    EXPECT_EQ(Read(kLsd), (Bytes{0, 1, 2, 3, 4})) << "the next piece is too many for 64";
    EXPECT_EQ(Read(kLsd).size(), 60u);
    EXPECT_EQ(KORA_DLL_ChannelRead(kLsd), VXD_OPERATION_FAILED);
    EXPECT_EQ(vdapi_LSD_SetPacketized(0, 1), VXD_SUCCESS);
    send(kLsd, {2, 3});
    EXPECT_EQ(Read(kLsd), (Bytes{65, 66}));
    EXPECT_EQ(Read(kLsd), (Bytes{67, 68, 69}));
    EXPECT_EQ(Channel(kLsd).bytesRead, 70u);
    EXPECT_EQ(Read(kMlp), Bytes{0});
    EXPECT_EQ(vdapi_LSD_SetPacketized(1, 1), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_LSD_SetPacketized(0, 2), VXD_INVALID_PARAMETER);
}

TEST_F(UserData, FlowsOnlyOnAnOpenChannelAndOnlySoMuch) {
    EXPECT_EQ(KORA_DLL_ChannelSend(kHsd, 1), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(KORA_DLL_ChannelRead(kHsd), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(KORA_DLL_ChannelClose(kHsd), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(KORA_DLL_ChannelOpen(3, 0xB000), VXD_INVALID_PARAMETER);
    for (const uint32_t rate : {0x8FFFu, 0x9006u, 0x90FEu, 0x9100u, 0x8003u, 0u}) {
        EXPECT_EQ(KORA_DLL_ChannelOpen(kHsd, rate), VXD_INVALID_PARAMETER) << rate;
    }
    EXPECT_EQ(KORA_DLL_ChannelOpen(kHsd, 0x90FF), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_ChannelSend(kHsd, 1), VXD_ILLEGAL_OPERATION) << "it is off";
    EXPECT_EQ(KORA_DLL_ChannelOpen(kHsd, 0x9005), VXD_OPERATION_ALREADY_DONE);
    EXPECT_EQ(KORA_DLL_ChannelClose(kHsd), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_ChannelOpen(kHsd, 0x9005), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_ChannelSend(kHsd, 65), VXD_PACKET_TOO_BIG);
    int sent = 0;
    ResultCode code = VXD_SUCCESS;
    for (; sent < 100 && code == VXD_SUCCESS; ++sent) {
        code = CodeOf(KORA_DLL_ChannelSend(kHsd, 64));
    }
    EXPECT_EQ(code, VXD_STREAM_OVERFLOW);
    EXPECT_EQ(sent, 17);
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
