// The services that carry data beside a call: messages over MBE, still images over Annex-D.
#include <numeric>

#include "tests/board/board_test.h"

using DataServices = BoardTest;

namespace {

constexpr uint8_t kMark = 0xEE;

ResultCode SendText(const std::string& text) {
    return CodeOf(vdapi_MBE_Write(text.c_str(), 1, static_cast<uint32_t>(text.size()), 0xFE));
}

// The bytes that came into the buffer, the end of the line among them, and behind it the length
// that was told.
std::string ReceiveText() {
    std::array<uint8_t, 110> buffer;
    buffer.fill(kMark);
    uint16_t length = 0xA5A5;
    uint32_t reserved = 0;
    EXPECT_EQ(vdapi_MBE_Read(buffer.data(), &length, &reserved), VXD_SUCCESS);
    const std::string text(buffer.begin(), buffer.end());
    return text.substr(0, text.find(static_cast<char>(kMark))) + std::to_string(length);
}

}  // namespace

TEST_F(DataServices, BringMessagesBackInTheirOrderAndOfTheSizeAgreed) {
    const std::string longest(100, 'a');
    EXPECT_EQ(ReceiveText(), "0");
    EXPECT_EQ(SendText("first"), VXD_SUCCESS);
    EXPECT_EQ(SendText(""), VXD_SUCCESS);
    EXPECT_EQ(SendText(longest + "x"), VXD_SUCCESS);
    EXPECT_EQ(ReceiveText(),
              "first\xFE"
              "5");
    EXPECT_EQ(ReceiveText(),
              "\xFE"
              "0");
    EXPECT_EQ(ReceiveText(), longest + "101") << "cut to the buffer";
    EXPECT_EQ(ReceiveText(), "0");

    SendText("lost");
    EXPECT_EQ(vdapi_MBE_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(SendText("text"), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_MBE_RegisterOutgoingStream(), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_MBE_Initialize(0, 10), VXD_SUCCESS);
    EXPECT_EQ(SendText("text"), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(vdapi_MBE_RegisterOutgoingStream(), VXD_SUCCESS);
    EXPECT_EQ(SendText("0123456789"), VXD_SUCCESS);
    EXPECT_EQ(SendText("0123456789a"), VXD_PACKET_TOO_BIG);
    EXPECT_EQ(ReceiveText(),
              "0123456789\xFE"
              "10");
    for (int sent = 0; sent < 16; ++sent) {
        EXPECT_EQ(SendText("again"), VXD_SUCCESS);
    }
    EXPECT_EQ(SendText("again"), VXD_STREAM_OVERFLOW);
}

TEST_F(DataServices, KeepTheLastBasCommandsOfTheBytesThatCount) {
    std::array<uint8_t, 6> bytes{0x20, 0xA1, 0xFF, 0, 5, 6};
    const auto send = [&](int32_t commands, int32_t repeats, int32_t length) {
        return vdapi_BAS_Write(commands, repeats, bytes.data(), length);
    };
    EXPECT_EQ(send(0, 1, 1), VXD_INVALID_PARAMETER);
    EXPECT_EQ(send(1, 0, 1), VXD_INVALID_PARAMETER);
    EXPECT_EQ(send(1, 1, 0), VXD_INVALID_PARAMETER);
    EXPECT_EQ(send(1, 1, 7), VXD_INVALID_PARAMETER);
    for (; bytes[0] < 0x40; ++bytes[0]) {
        EXPECT_EQ(send(1, 3, 2), VXD_SUCCESS);
    }
    EXPECT_EQ(send(2, 1, 6), VXD_SUCCESS);
    const board::Bas bas = board::GetServices().bas;
    EXPECT_EQ(bas.sendings, 33u);
    ASSERT_EQ(bas.last.size(), 16u);
    EXPECT_EQ(bas.last.front().bytes, (std::vector<uint8_t>{0x31, 0xA1}));
    EXPECT_EQ(bas.last.back().bytes, (std::vector<uint8_t>{0x40, 0xA1, 0xFF, 0, 5, 6}));
    EXPECT_EQ(vdapi_BAS_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(send(1, 1, 1), VXD_CONFIGURATION_NOT_SET);
}

TEST_F(DataServices, LoadAnImageWithItsSumBehindIt) {
    std::array<uint8_t, 2050> buffer;
    uint32_t bytes = 0;
    for (const auto& [wanted, expected] : {std::pair{2048u, 1584u}, std::pair{100u, 100u}}) {
        buffer.fill(kMark);
        EXPECT_EQ(vdapi_ANNEXD_Download(1, wanted, buffer.data(), &bytes), VXD_SUCCESS);
        EXPECT_EQ(bytes, expected);
        const uint32_t sum = std::accumulate(buffer.begin(), buffer.begin() + bytes, 0u);
        EXPECT_EQ(buffer[bytes] + 256u * buffer[bytes + 1], sum & 0xFFFF);
        EXPECT_EQ(buffer[bytes + 2], kMark);
    }
    EXPECT_GT(buffer[43], buffer[0]) << "brighter to the right";
    EXPECT_EQ(vdapi_ANNEXD_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(vdapi_ANNEXD_Download(1, 2048, buffer.data(), &bytes), VXD_CONFIGURATION_NOT_SET);
}
