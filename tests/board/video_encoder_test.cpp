// The video encoders' registers and fields, and what of them ends with a reset.
#include "driver/low_memory.h"
#include "tests/board/driver_test.h"

using VideoEncoders = DriverTest;

namespace {

uint32_t ReadRegister(uint32_t encoder, uint32_t id) {
    return Read(vdapi_BT85X_ReadCtrlRegister, encoder, id);
}

ResultCode Write(uint32_t encoder, uint32_t id, uint32_t value) {
    return CodeOf(vdapi_BT85X_WriteCtrlRegister(encoder, id, value));
}

}  // namespace

TEST_F(VideoEncoders, HoldFieldsThatChangeTheirOwnBitsOfTheirOwnRegistersOnly) {
    // Of a field: its id, what is written, its register then (from 0x5A), what is read back.
    for (const auto& [field, written, whole, readBack] :
         std::to_array<std::array<uint32_t, 4>>({{0x9701, 1, 0xDA, 1},    // the highest bit
                                                 {0xA002, 0x7, 0x5B, 3},  // cut to the field
                                                 {0xB00B, 0x1FFFF, 0x5F, 7},
                                                 {0xC00D, 0, 0x50, 0}})) {
        const uint32_t id = field & 0xFF;
        EXPECT_EQ(Write(1, id, 0x15A), VXD_SUCCESS);
        const uint32_t other = ReadRegister(0, id);
        EXPECT_EQ(Write(1, field, written), VXD_SUCCESS);
        EXPECT_EQ(ReadRegister(1, id), whole) << std::hex << field;
        EXPECT_EQ(ReadRegister(1, field), readBack) << std::hex << field;
        EXPECT_EQ(ReadRegister(0, id), other) << std::hex << field;
    }
    EXPECT_EQ(Write(0, 0x9004, 0), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(Write(0, 0x04, 0xE0), VXD_SUCCESS);
    EXPECT_EQ(ReadRegister(0, 0x04), 0xE1u) << "the status stays";
    EXPECT_EQ(Read(vdapi_BT85X_ReadFromOverlay, 1, 16), kUntouched);
    EXPECT_EQ(vdapi_BT85X_WriteToPalette(256, 0), VXD_INVALID_PARAMETER);
}

TEST_F(VideoEncoders, AreResetByTheirOwnBitOrAllTogetherAndNeedToBeUp) {
    const LowObject<uint32_t> mode;
    const auto colour = [] {
        std::array<uint32_t, 256> palette{};
        EXPECT_EQ(vdapi_BT85X_RetrievePalette(palette.data()), VXD_SUCCESS);
        return palette[7];
    };
    const uint32_t atPowerOn = ReadRegister(0, 0x0C);
    EXPECT_EQ(Write(0, 0x0C, 0x11), VXD_SUCCESS);
    EXPECT_EQ(Write(1, 0x0C, 0x22), VXD_SUCCESS);
    EXPECT_EQ(vdapi_BT85X_WriteToPalette(7, 0xFF123456), VXD_SUCCESS);
    EXPECT_EQ(Debug(TALVERO_DBG_BT85X_OP_WR_STATE, Bt85xStateWriteBlock{0x33}), VXD_SUCCESS);
    EXPECT_EQ(Write(1, 0x9202, 1), VXD_SUCCESS);
    EXPECT_EQ(ReadRegister(1, 0x9202), 0u);
    EXPECT_EQ(ReadRegister(1, 0x0C), atPowerOn);
    EXPECT_EQ(ReadRegister(0, 0x0C), 0x11u) << "the other one's";
    EXPECT_EQ(colour(), 0x123456u);

    EXPECT_EQ(vdapi_BT85X_Reset(), VXD_SUCCESS);
    EXPECT_EQ(ReadRegister(0, 0x0C), atPowerOn);
    EXPECT_EQ(colour(), 0x070707u);
    *mode = 0x33;
    Debug(TALVERO_DBG_BT85X_OP_RD_STATE, Bt85xStateReadBlock{mode.Address()});
    EXPECT_EQ(*mode, 0u);

    EXPECT_EQ(vdapi_BT85X_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(Write(0, 0x0C, 1), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_BT85X_WritePixelMask(1, 0), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_BT85X_OP_RD_STATE, Bt85xStateReadBlock{mode.Address()}),
              VXD_CONFIGURATION_NOT_SET);
}
