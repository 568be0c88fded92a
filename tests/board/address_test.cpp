// What is reached by its plain address: memory, I/O ports, the JADE's registers.
#include <array>

#include "driver/firmware_command.h"
#include "tests/board/board_test.h"

using Addresses = BoardTest;

namespace {

constexpr uint32_t kUntouched = 0xA5A5A5A5;

uint32_t ReadMemory(uint32_t address, uint32_t unitSize) {
    uint32_t value = kUntouched;
    vdapi_MEM_Read(address, unitSize, &value);
    return value;
}

uint32_t ReadPort(uint32_t port, uint32_t unitSize) {
    uint32_t value = kUntouched;
    vdapi_IO_Read(port, unitSize, &value);
    return value;
}

uint32_t ReadJade(uint32_t number) {
    uint32_t value = kUntouched;
    vdapi_JADE_Read(number, &value);
    return value;
}

}  // namespace

TEST_F(Addresses, HoldUnitsOfOneTwoAndFourBytesLowestFirst) {
    EXPECT_EQ(vdapi_MEM_Write(0xD0001000, 4, 0x11223344), VXD_SUCCESS);
    EXPECT_EQ(ReadMemory(0xD0001000, 1), 0x44u);
    EXPECT_EQ(ReadMemory(0xD0001001, 2), 0x2233u);
    EXPECT_EQ(vdapi_MEM_Write(0xD0001003, 1, 0xFFAA), VXD_SUCCESS);
    EXPECT_EQ(ReadMemory(0xD0001000, 4), 0xAA223344u);
    EXPECT_EQ(ReadMemory(0xD0001004, 4), 0u);

    EXPECT_EQ(vdapi_IO_Write(0x3F8, 2, 0x98761234), VXD_SUCCESS);
    EXPECT_EQ(ReadPort(0x3F9, 1), 0x12u);
    EXPECT_EQ(ReadPort(0x3F8, 2), 0x1234u);
    EXPECT_EQ(ReadMemory(0x3F8, 2), 0u) << "ports are not memory";
    EXPECT_EQ(Send(PELLAN_COMMAND_486_READ_MEM, 0xD0001000).first, 0xAA223344u)
        << "the firmware sees the same memory";
}

TEST_F(Addresses, RefuseOtherUnitsAndUnitsBeyondTheEnd) {
    for (const uint32_t unitSize : {0u, 3u, 8u}) {
        EXPECT_EQ(vdapi_MEM_Write(0x1000, unitSize, 0), VXD_INVALID_PARAMETER);
        EXPECT_EQ(ReadMemory(0x1000, unitSize), kUntouched);
    }
    EXPECT_EQ(vdapi_IO_Write(0x3F8, 4, 0), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_IO_Write(0xFFFF, 2, 0x1111), VXD_INVALID_PARAMETER);
    EXPECT_EQ(ReadPort(0xFFFF, 1), 0u) << "nothing half-written";
    EXPECT_EQ(vdapi_IO_Write(0x10000, 1, 0), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_MEM_Write(0xFFFFFFFE, 4, 0x1111), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_MEM_Write(0xFFFFFFFE, 2, 0x2222), VXD_SUCCESS);
    EXPECT_EQ(ReadMemory(0xFFFFFFFF, 1), 0x22u);
    EXPECT_EQ(vdapi_MEM_Read(0x1000, 1, nullptr), VXD_INVALID_PARAMETER);
}

TEST_F(Addresses, ReachTheJadesRegistersOfWhichSomeCannotBeWritten) {
    EXPECT_EQ(vdapi_JADE_Write(0x00, 0x1A5), VXD_SUCCESS);
    EXPECT_EQ(ReadJade(0x00), 0xA5u);
    EXPECT_EQ(vdapi_JADE_Write(0xFF, 0x3C), VXD_SUCCESS);
    EXPECT_EQ(Send(PELLAN_COMMAND_JADE_READ_REG, 0xFF).first, 0x3Cu);

    board::SetRevisions({.jade = 0x33});
    EXPECT_EQ(ReadJade(0xF0), 0x33u);
    EXPECT_EQ(vdapi_JADE_Write(0xF0, 0), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(vdapi_JADE_Write(0xF1, 0), VXD_ILLEGAL_OPERATION);
    EXPECT_NE(ReadJade(0xF1), 0u);
    EXPECT_EQ(vdapi_JADE_Write(0x100, 0), VXD_INVALID_PARAMETER);
    EXPECT_EQ(ReadJade(0x100), kUntouched);
}
