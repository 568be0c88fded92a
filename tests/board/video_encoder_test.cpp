// The video encoders' registers and fields, and what of them ends with a reset.
#include <array>
#include <cstdint>

#include "driver/low_memory.h"
#include "tests/board/driver_test.h"

using VideoEncoders = DriverTest;

namespace {

uint32_t Read(uint32_t encoder, uint32_t id) {
    uint32_t value = 0xA5A5A5A5;
    EXPECT_EQ(vdapi_BT85X_ReadCtrlRegister(encoder, id, &value), VXD_SUCCESS) << std::hex << id;
    return value;
}

ResultCode Write(uint32_t encoder, uint32_t id, uint32_t value) {
    return CodeOf(vdapi_BT85X_WriteCtrlRegister(encoder, id, value));
}

}  // namespace

TEST_F(VideoEncoders, HoldFieldsThatChangeTheirOwnBitsOfTheirOwnRegistersOnly) {
    struct Case {
        uint32_t field;
        uint32_t written;
        uint32_t registerAfterwards;  // from 0x5A
        uint32_t readBack;
    };
    for (const Case& tried : std::to_array<Case>({{0x9701, 1, 0xDA, 1},    // the highest bit
                                                  {0xA002, 0x7, 0x5B, 3},  // cut to the field
                                                  {0xC400, 0x0C, 0xCA, 0xC},
                                                  {0xB00B, 0x1FFFF, 0x5F, 7},
                                                  {0xC00D, 0, 0x50, 0}})) {
        const uint32_t whole = tried.field & 0xFF;
        EXPECT_EQ(Write(1, whole, 0x15A), VXD_SUCCESS);
        const uint32_t other = Read(0, whole);
        EXPECT_EQ(Write(1, tried.field, tried.written), VXD_SUCCESS);
        EXPECT_EQ(Read(1, whole), tried.registerAfterwards) << std::hex << tried.field;
        EXPECT_EQ(Read(1, tried.field), tried.readBack) << std::hex << tried.field;
        EXPECT_EQ(Read(0, whole), other) << std::hex << tried.field;
    }
}

TEST_F(VideoEncoders, RefuseTheStatusAndWhatTheChipDoesNotHave) {
    EXPECT_EQ(Write(0, 0x9004, 0), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(Write(0, 0x04, 0xE0), VXD_SUCCESS);
    EXPECT_EQ(Read(0, 0x04), 0xE1u) << "the status stays";
    uint32_t value = 0xA5A5A5A5;
    // Without a register, without a width, beyond the register, with bits above.
    for (const uint32_t id : {0x05u, 0x10u, 0x9010u, 0x8001u, 0xA701u, 0x19701u}) {
        EXPECT_EQ(vdapi_BT85X_ReadCtrlRegister(0, id, &value), VXD_INVALID_PARAMETER) << id;
        EXPECT_EQ(Write(0, id, 1), VXD_INVALID_PARAMETER) << id;
    }
    EXPECT_EQ(vdapi_BT85X_ReadCtrlRegister(2, 0, &value), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_BT85X_ReadCtrlRegister(0, 0, nullptr), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_BT85X_ReadFromOverlay(1, 16, &value), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_BT85X_ReadFromOverlay(2, 1, &value), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_BT85X_WriteToPalette(256, 0), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_BT85X_DownloadPalette(nullptr), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_BT85X_RetrieveOverlay(1, nullptr), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_BT85X_ReadPixelMask(0, &value), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_BT85X_OP_RD_STATE, Bt85xStateReadBlock{}), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_BT85X_OP_WR_PORT, Bt85xPortWriteBlock{2, 1}),
              VXD_INVALID_PARAMETER);
    EXPECT_EQ(value, 0xA5A5A5A5);
}

TEST_F(VideoEncoders, AreResetByTheirOwnBitOrAllTogetherAndNeedToBeUp) {
    const LowObject<uint32_t> mode;
    const auto change = [] {
        EXPECT_EQ(Write(0, 0x0C, 0x11), VXD_SUCCESS);
        EXPECT_EQ(Write(1, 0x0C, 0x22), VXD_SUCCESS);
        EXPECT_EQ(vdapi_BT85X_WriteToPalette(7, 0xFF123456), VXD_SUCCESS);
        EXPECT_EQ(Debug(TALVERO_DBG_BT85X_OP_WR_STATE, Bt85xStateWriteBlock{0x33}), VXD_SUCCESS);
    };
    const auto colour = [] {
        std::array<uint32_t, 256> palette{};
        EXPECT_EQ(vdapi_BT85X_RetrievePalette(palette.data()), VXD_SUCCESS);
        return palette[7];
    };
    const uint32_t atPowerOn = Read(0, 0x0C);
    change();
    EXPECT_EQ(Write(1, 0x9202, 1), VXD_SUCCESS);
    EXPECT_EQ(Read(1, 0x9202), 0u);
    EXPECT_EQ(Read(1, 0x0C), atPowerOn);
    EXPECT_EQ(Read(0, 0x0C), 0x11u) << "the other one's";
    EXPECT_EQ(colour(), 0x123456u);

    EXPECT_EQ(vdapi_BT85X_Reset(), VXD_SUCCESS);
    EXPECT_EQ(Read(0, 0x0C), atPowerOn);
    EXPECT_EQ(colour(), 0x070707u);
    EXPECT_EQ(Debug(TALVERO_DBG_BT85X_OP_RD_STATE, Bt85xStateReadBlock{mode.Address()}),
              VXD_SUCCESS);
    EXPECT_EQ(*mode, 0u);

    EXPECT_EQ(vdapi_BT85X_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(Write(0, 0x0C, 1), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(vdapi_BT85X_WritePixelMask(1, 0), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(Debug(TALVERO_DBG_BT85X_OP_RD_STATE, Bt85xStateReadBlock{mode.Address()}),
              VXD_CONFIGURATION_NOT_SET);
}
