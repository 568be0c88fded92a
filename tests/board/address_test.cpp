// What is reached by its plain address: memory, I/O ports, the JADE's registers.
#include "driver/firmware_command.h"
#include "tests/board/board_test.h"

using Addresses = BoardTest;

TEST_F(Addresses, HoldUnitsOfOneTwoAndFourBytesLowestFirst) {
    EXPECT_EQ(vdapi_MEM_Write(0xD0001000, 4, 0x11223344), VXD_SUCCESS);
    EXPECT_EQ(Read(vdapi_MEM_Read, 0xD0001001, 2), 0x2233u);
    EXPECT_EQ(vdapi_MEM_Write(0xD0001003, 1, 0xFFAA), VXD_SUCCESS);
    EXPECT_EQ(Read(vdapi_MEM_Read, 0xD0001000, 4), 0xAA223344u);
    EXPECT_EQ(Read(vdapi_MEM_Read, 0xD0001004, 4), 0u);
    EXPECT_EQ(vdapi_IO_Write(0x3F8, 2, 0x98761234), VXD_SUCCESS);
    EXPECT_EQ(Read(vdapi_IO_Read, 0x3F9, 1), 0x12u);
    EXPECT_EQ(Read(vdapi_MEM_Read, 0x3F8, 2), 0u) << "ports are not memory";

    // The firmware sees the same, in the widest unit where none is named.
    EXPECT_EQ(Send(PELLAN_COMMAND_486_READ_MEM, 0xD0001000).first, 0xAA223344u);
    EXPECT_EQ(Send(PELLAN_COMMAND_486_READ_MEM, 0xD0001001, 1).first, 0x33u);
    EXPECT_EQ(Send(PELLAN_COMMAND_486_WRITE_IO, 0x3F8, 0, 0xFFFF5678).first, 0x5678u);
    EXPECT_EQ(Send(PELLAN_COMMAND_486_READ_IO, 0x3F9, 1).first, 0x56u);
    Send(PELLAN_COMMAND_486_WRITE_MEM, 0x3F8, 0, 0x11223344);
    EXPECT_EQ(Read(vdapi_MEM_Read, 0x3F8, 4), 0x11223344u);
}

TEST_F(Addresses, RefuseOtherUnitsAndUnitsBeyondTheEnd) {
    EXPECT_EQ(Read(vdapi_MEM_Read, 0x1000, 3), kUntouched);
    EXPECT_EQ(vdapi_IO_Write(0x3F8, 4, 0), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_IO_Write(0xFFFF, 2, 0x1111), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Read(vdapi_IO_Read, 0xFFFF, 1), 0u) << "nothing half-written";
    EXPECT_EQ(vdapi_MEM_Write(0xFFFFFFFE, 4, 0x1111), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_MEM_Write(0xFFFFFFFE, 2, 0x2222), VXD_SUCCESS);
}

TEST_F(Addresses, ReachTheJadesRegistersSomeOfThemReadOnlyAndItsReset) {
    EXPECT_EQ(vdapi_JADE_Write(0xFF, 0x13C), VXD_SUCCESS);
    EXPECT_EQ(Read(vdapi_JADE_Read, 0xFF), 0x3Cu);
    EXPECT_EQ(Send(PELLAN_COMMAND_JADE_READ_REG, 0xFF).first, 0x3Cu);
    board::SetRevisions({.jade = 0x33});
    EXPECT_EQ(Read(vdapi_JADE_Read, 0xF0), 0x33u);
    EXPECT_EQ(vdapi_JADE_Write(0xF0, 0), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(vdapi_JADE_Write(0xF1, 0), VXD_ILLEGAL_OPERATION);
    EXPECT_EQ(vdapi_JADE_Write(0x100, 0), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Read(vdapi_JADE_Read, 0x100), kUntouched);

    EXPECT_EQ(vdapi_JADE_Reset(0x33), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Read(vdapi_JADE_Read, 0xFF), 0x3Cu);
    EXPECT_EQ(vdapi_JADE_Reset(0x32), VXD_SUCCESS);
    EXPECT_EQ(Read(vdapi_JADE_Read, 0xFF), 0u);
}
