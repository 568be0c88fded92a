#include "driver/low_memory.h"
#include "tests/board/driver_test.h"

using IsacChips = BoardTest;

namespace {

constexpr uint32_t kMode = 0x622;
constexpr uint32_t kStatus = 0x221;   // read-only, at the address of
constexpr uint32_t kCommand = 0x421;  // write-only
constexpr uint32_t kInterrupt = 0x220;
constexpr uint32_t kMask = 0x520;  // read from the driver's copy

struct Reading {
    ResultCode code;
    uint8_t value;
};

Reading ReadRegister(uint16_t chip, uint32_t id) {
    const LowObject<uint8_t> value(0xA5);
    const ResultCode code =
        Debug(TALVERO_DBG_ISAC_TR_REG_RD, IsacRegisterReadBlock{chip, id, value.Address()});
    return {code, *value};
}

ResultCode Write(uint16_t chip, uint32_t id, uint8_t value) {
    return Debug(TALVERO_DBG_ISAC_TR_REG_WR, IsacRegisterWriteBlock{chip, id, value});
}

ResultCode SendBit(uint32_t command, uint16_t chip, uint32_t id, uint32_t mask) {
    return Debug(command, BitBlock{chip, id | mask << 16});
}

}  // namespace

TEST_F(IsacChips, KeepTheirRegistersApartAndTakeWhatARegistersClassAllows) {
    for (const uint16_t chip : {1, 6, 9}) {
        EXPECT_EQ(Write(chip, kMode, static_cast<uint8_t>(0x40 + chip)), VXD_SUCCESS);
        EXPECT_EQ(Write(chip, kMask, static_cast<uint8_t>(0x80 + chip)), VXD_SUCCESS);
    }
    for (const uint16_t chip : {1, 6, 9}) {
        EXPECT_EQ(ReadRegister(chip, kMode).value, 0x40 + chip);
        EXPECT_EQ(ReadRegister(chip, kMask).value, 0x80 + chip);
        EXPECT_EQ(ReadRegister(chip, kInterrupt).value, 0) << "another one at the mask's address";
    }
    EXPECT_EQ(Write(1, kCommand, 0x41), VXD_SUCCESS);
    EXPECT_EQ(ReadRegister(1, kCommand).code, VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(ReadRegister(1, kCommand).value, 0xA5);
    EXPECT_EQ(Write(1, kStatus, 0x41), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(ReadRegister(1, 0x22B).code, VXD_INVALID_PARAMETER) << "of another class only";
}

TEST_F(IsacChips, ShowTheirBitsInTheRegisterAndOnThatChipOnly) {
    for (const uint32_t id : {kMode, 0x537u}) {
        Write(6, id, 0x0F);
        Write(9, id, 0x00);
        EXPECT_EQ(SendBit(TALVERO_DBG_ISAC_OP_BIT_SET, 6, id, 0x80), VXD_SUCCESS);
        EXPECT_EQ(SendBit(TALVERO_DBG_ISAC_OP_BIT_CLR, 6, id, 0x01), VXD_SUCCESS);
        EXPECT_EQ(ReadRegister(6, id).value, 0x8E);
        EXPECT_EQ(SendBit(TALVERO_DBG_ISAC_OP_BIT_ST, 6, id, 0x80), 1);
        EXPECT_EQ(SendBit(TALVERO_DBG_ISAC_OP_BIT_ST, 6, id, 0x01), 0);
        EXPECT_EQ(SendBit(TALVERO_DBG_ISAC_OP_BIT_ST, 9, id, 0x80), 0);
    }
    EXPECT_EQ(SendBit(TALVERO_DBG_ISAC_OP_BIT_CLR, 1, kStatus, 0x40), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(SendBit(TALVERO_DBG_ISAC_OP_BIT_ST, 1, kStatus, 0x40), 1)
        << "the transmit FIFO waits";
}

TEST_F(IsacChips, AreAsManyAsTheBoardsRevisionHasUnlessFewerAreFitted) {
    constexpr std::array<uint16_t, 3> kChips{1, 6, 9};
    using Board = std::tuple<uint16_t, uint32_t, uint32_t>;
    for (const auto& [revision, fitted, chips] :  // 0 fitted: all
         {Board{0x0100, 0, 1}, Board{0x0207, 0, 2}, Board{0xFF8D, 0, 3}, Board{0x1D01, 0, 1},
          Board{0x016D, 2, 2}, Board{0x0107, 3, 2}}) {
        board::SetRevisions({.board = revision});
        board::SetIsacChipsFitted(fitted);
        EXPECT_EQ(Read<uint16_t>(vdapi_AUXDEV_GetField, 10), chips - 1);
        for (uint32_t i = 0; i < kChips.size(); ++i) {
            const ResultCode code = i < chips ? VXD_SUCCESS : VXD_HARDWARE_FAILURE;
            EXPECT_EQ(ReadRegister(kChips[i], kMode).code, code) << std::hex << revision;
            EXPECT_EQ(Debug(TALVERO_DBG_ISAC_OP_INITCHIP, IsacChipBlock{kChips[i]}), code);
        }
    }
    EXPECT_EQ(Debug(TALVERO_DBG_ISAC_OP_INITCHIP, IsacChipBlock{2}), VXD_INVALID_PARAMETER);
}
