// The I2C bus and the two cameras on it.
#include "driver/firmware_command.h"
#include "tests/board/driver_test.h"

using I2cTransfers = BoardTest;
using Cameras = BoardTest;

namespace {

constexpr uint16_t kRead = 0x100;

uint32_t Transfer(const std::vector<uint16_t>& items) {
    return Read(vdapi_I2C_Transfer, items.data(), static_cast<uint32_t>(items.size()));
}

uint8_t ReadDigital(uint32_t id) {
    return Read<uint8_t>(vdapi_CAM_Digit_Read, id);
}

uint8_t ReadAnalog(uint32_t id) {
    return Read<uint8_t>(vdapi_CAM_ACIF_Read, id);
}

}  // namespace

TEST_F(I2cTransfers, WriteAndReadTheRegisterOfEachChipThatWasNamedLast) {
    Transfer({0x48, 0x0A, 0x37});
    EXPECT_EQ(Transfer({0x49, kRead}), 0x37u);
    EXPECT_EQ(Transfer({0x49, kRead}), 0x37u) << "reading stays at the register";
    EXPECT_EQ(Transfer({0x48, 0x0D, 0x11, 0x22}), kUntouched) << "nothing was read";
    Transfer({0x20, 0x02});
    Transfer({0xA0, 0x10, 0x99});
    EXPECT_EQ(Transfer({0x49, kRead}), 0x11u);
    EXPECT_EQ(Transfer({0x49, kRead, kRead}), 0x22u) << "bytes go to successive registers";
    EXPECT_EQ(Transfer({0x21, kRead}), 0x80u);
    EXPECT_EQ(Transfer({0xA1, kRead}), 0x99u);
}

TEST_F(I2cTransfers, AreRefusedWhereNoChipAnswersTheOrderIsWrongOrTheBusIsDown) {
    using Case = std::pair<std::vector<uint16_t>, ResultCode>;
    const auto codeOf = [](const std::vector<uint16_t>& items) {
        uint32_t result = 0;
        return CodeOf(
            vdapi_I2C_Transfer(items.data(), static_cast<uint32_t>(items.size()), &result));
    };
    for (const auto& [items, code] :
         {Case{{0x60, 0x00}, VXD_HARDWARE_FAILURE}, Case{{0x61, kRead}, VXD_HARDWARE_FAILURE},
          Case{{0x48, kRead}, VXD_INVALID_PARAMETER}, Case{{0x49, 0x00}, VXD_INVALID_PARAMETER},
          Case{{0x48, 0x1F, 0x00}, VXD_ILLEGAL_OPERATION},
          Case{{0x48, 0x20, 0x00}, VXD_INVALID_PARAMETER}}) {
        EXPECT_EQ(codeOf(items), code) << testing::PrintToString(items);
    }
    EXPECT_EQ(vdapi_I2C_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(codeOf({0x48, 0x0A}), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_I2C_Initialize(), VXD_SUCCESS);
    EXPECT_EQ(codeOf({0x48, 0x0A}), VXD_SUCCESS);
}

TEST_F(Cameras, AreReachedByTheirRegisterIdsAndOverTheBusAndBothByTheirOwnReset) {
    EXPECT_EQ(ReadDigital(0x302), 0x80);
    EXPECT_EQ(vdapi_CAM_Digit_Write(0x302, 0x55), VXD_SUCCESS);
    EXPECT_EQ(ReadDigital(0x302), 0x55);
    Transfer({0x20, 0x02});
    EXPECT_EQ(Transfer({0x21, kRead}), 0x55u);

    EXPECT_EQ(ReadAnalog(0x30A), 0x8B);
    EXPECT_EQ(vdapi_CAM_ACIF_Write(0x30A, 0x77), VXD_SUCCESS);
    EXPECT_EQ(ReadAnalog(0x30A), 0x77);
    EXPECT_EQ(Send(PELLAN_COMMAND_SAA7111_READ_REG, 0x0A).first, 0x77u);
    EXPECT_EQ(ReadDigital(0x300), 0x00) << "the other camera is another chip";

    EXPECT_EQ(vdapi_CAM_Digit_Write(0x30F, 0), VXD_SUCCESS);
    EXPECT_EQ(ReadDigital(0x302), 0x80) << "a master reset";
    vdapi_CAM_Digit_Write(0x302, 0x55);
    EXPECT_EQ(Debug(TALVERO_DBG_CAM_DIGIT_TR_RST), VXD_SUCCESS);
    EXPECT_EQ(ReadDigital(0x302), 0x80);
    EXPECT_EQ(ReadAnalog(0x30A), 0x77);
}

TEST_F(Cameras, RefuseWhatCannotBeReadOrWritten) {
    const uint8_t version = ReadDigital(0x20E);
    EXPECT_EQ(vdapi_CAM_Digit_Write(0x20E, 0x77), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(ReadDigital(0x20E), version);
    EXPECT_EQ(ReadDigital(0x30F), 0xA5) << "can be written alone";
    EXPECT_EQ(vdapi_CAM_ACIF_Write(0x200, 0x77), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(vdapi_CAM_ACIF_Write(0x61F, 0x77), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(vdapi_CAM_Digit_Write(0x309, 0), VXD_INVALID_PARAMETER);
}
