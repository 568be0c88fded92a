#include <array>

#include "driver/low_memory.h"
#include "tests/board/driver_test.h"

using VpicPorts = BoardTest;

namespace {

constexpr uint32_t kControl = 0x4020;
constexpr uint32_t kFifoOutControl = 0x8002;
constexpr uint32_t kMark = 0x04000000;
constexpr uint32_t kMarks = 0xA5A5A5A5;  // what no port holds here

uint32_t Read(uint32_t port) {
    uint32_t value = kMarks;
    EXPECT_EQ(vdapi_VPIC_ReadPort(port, &value), VXD_SUCCESS) << std::hex << port;
    return value;
}

ResultCode Write(uint32_t port, uint32_t value) {
    return CodeOf(vdapi_VPIC_WritePort(port, &value));
}

uint32_t Bit(uint32_t port, uint32_t number) {
    return port | number << 21;
}

ResultCode SendBit(uint32_t command, uint32_t bit) {
    return Debug(command, BitBlock{0, bit});
}

}  // namespace

TEST_F(VpicPorts, KeepAllBitsApartFromEachOther) {
    // Numbers that differ only in their group, and neighbours.
    constexpr auto kPorts =
        std::to_array<uint32_t>({kControl, 0x2024, 0x2000, 0xA000, 0x0004, 0x7C, 0xC029, 0xA028});
    for (const uint32_t port : kPorts) {
        EXPECT_EQ(Write(port, 0x81000000 | port), VXD_SUCCESS);
    }
    for (const uint32_t port : kPorts) {
        EXPECT_EQ(Read(port), 0x81000000 | port);
    }
}

TEST_F(VpicPorts, AreTheSameWithAndWithoutTheDriversMark) {
    EXPECT_EQ(Write(kFifoOutControl, 6), VXD_SUCCESS);
    EXPECT_EQ(Read(kFifoOutControl | kMark), 6u);
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_ST, Bit(kFifoOutControl | kMark, 3)), 1);
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_ST, Bit(kFifoOutControl | kMark, 1)), 0);
}

TEST_F(VpicPorts, HoldFieldsThatChangeTheirOwnBitsOnly) {
    struct Case {
        uint32_t field;
        uint32_t port;
        uint32_t written;
        uint32_t portAfterwards;  // from all ones
        uint32_t readBack;
    };
    constexpr auto kCases = std::to_array<Case>({
        {0x44C20, kControl, 0x5, 0xFFFF5FFF, 0x5},     // auxiliary control
        {0x24820, kControl, 0x2, 0xFFFFFEFF, 0x2},     // auxiliary outputs
        {0x34520, kControl, 0x0, 0xFFFFFF1F, 0x0},     // reserved bits
        {0x8D801, 0xC001, 0x12, 0x12FFFFFF, 0x12},     // the highest byte
        {0xBD003, 0xC003, 0x400, 0xFC00FFFF, 0x400},   // a line number in the upper half
        {0x2C519, 0xC019, 0x1, 0xFFFFFFBF, 0x1},       // wait states
        {0xBA007, 0xA007, 0x2801, 0xFFFFF801, 0x001},  // cut to 11 bits
    });
    for (const Case& tried : kCases) {
        Write(tried.port, 0xFFFFFFFF);
        EXPECT_EQ(Write(tried.field, tried.written), VXD_SUCCESS);
        EXPECT_EQ(Read(tried.port), tried.portAfterwards) << std::hex << tried.field;
        EXPECT_EQ(Read(tried.field), tried.readBack) << std::hex << tried.field;
    }
}

TEST_F(VpicPorts, ShowTheirBitsAndTheBitsShowThePort) {
    Write(kControl, 0);
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_SET, Bit(kControl, 16)), VXD_SUCCESS);
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_SET, Bit(kControl, 1)), VXD_SUCCESS);
    EXPECT_EQ(Read(kControl), 0x8001u);
    EXPECT_EQ(Read(0x44C20), 0x8u) << "the bit is in the field too";
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_CLR, Bit(kControl, 1)), VXD_SUCCESS);
    EXPECT_EQ(Read(kControl), 0x8000u);

    Write(kControl, 0x10);
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_ST, Bit(kControl, 5)), 1);
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_ST, Bit(kControl, 16)), 0);
}

TEST_F(VpicPorts, RefuseWritesToStatusAndWhatTheChipDoesNotHave) {
    for (const uint32_t port : {0x4028u, 0x14u, 0x58u, 0xC01Bu, 0xC01Cu, 0xA004u, 0xC006u}) {
        const uint32_t before = Read(port);
        EXPECT_EQ(Write(port, ~before), VXD_ILLEGAL_OPERATION) << std::hex << port;
        EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_SET, Bit(port, 2)), VXD_ILLEGAL_OPERATION);
        EXPECT_EQ(Read(port), before);
    }
    EXPECT_EQ(Write(0xBC01B, 1), VXD_ILLEGAL_OPERATION) << "a field of a status port";

    for (const uint32_t id : {0x80u, 0xC000u, 0x0u, 0x4021u, 0x08004020u, 0xBA030u}) {
        uint32_t value = kMarks;
        EXPECT_EQ(vdapi_VPIC_ReadPort(id, &value), VXD_INVALID_PARAMETER) << std::hex << id;
        EXPECT_EQ(value, kMarks);
        EXPECT_EQ(Write(id, 0), VXD_INVALID_PARAMETER) << std::hex << id;
    }
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_SET, kControl), VXD_INVALID_PARAMETER)
        << "a port is no bit";
    EXPECT_EQ(vdapi_VPIC_ReadPort(kControl, nullptr), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_VPIC_WritePort(kControl, nullptr), VXD_INVALID_PARAMETER);
}

TEST_F(VpicPorts, ShowTheBoardsRevisionInAPortOfItsOwn) {
    board::SetRevisions({.board = 0x0107});
    EXPECT_EQ(Read(0x58), 0x07u);
}

TEST_F(VpicPorts, ShowTheStatusThatTheHardwareHas) {
    board::Hardware hardware = board::GetHardware();
    hardware.vpic.ports.values[0x4028] = 0x2400;
    board::SetHardware(hardware);
    EXPECT_EQ(Read(0x4028 | kMark), 0x2400u);
    EXPECT_EQ(Read(0x44A28 | kMark), 0x9u) << "the interrupt inputs";
}

TEST_F(VpicPorts, HaveTwoI2cLinesAndNoOthers) {
    for (const uint16_t line : {0, 3}) {
        const LowObject<uint16_t> level(99);
        EXPECT_EQ(Debug(TALVERO_DBG_VPIC_TR_I2C_SET, I2cLineSetBlock{line, 0}),
                  VXD_INVALID_PARAMETER);
        EXPECT_EQ(Debug(TALVERO_DBG_VPIC_TR_I2C_GET, I2cLineGetBlock{line, level.Address()}),
                  VXD_INVALID_PARAMETER);
        EXPECT_EQ(*level, 99);
    }
    EXPECT_EQ(Debug(TALVERO_DBG_VPIC_TR_I2C_GET, I2cLineGetBlock{VPIC_I2C_LINE_DATA, 0}),
              VXD_INVALID_PARAMETER);
}
