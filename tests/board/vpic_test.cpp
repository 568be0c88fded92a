#include "tests/board/driver_test.h"

using VpicPorts = BoardTest;

namespace {

constexpr uint32_t kControl = 0x4020;
constexpr uint32_t kFifoOutControl = 0x8002;
constexpr uint32_t kMark = 0x04000000;

uint32_t ReadPort(uint32_t port) {
    return Read(vdapi_VPIC_ReadPort, port);
}

ResultCode Write(uint32_t port, uint32_t value) {
    return CodeOf(vdapi_VPIC_WritePort(port, &value));
}

ResultCode SendBit(uint32_t command, uint32_t port, uint32_t number) {
    return Debug(command, BitBlock{0, port | number << 21});
}

}  // namespace

TEST_F(VpicPorts, KeepAllBitsApartFromEachOtherWithAndWithoutTheDriversMark) {
    // Numbers that differ only in their group, and neighbours.
    constexpr auto kPorts =
        std::to_array<uint32_t>({kControl, 0x2024, 0x2000, 0xA000, 0x0004, 0x7C, 0xC029, 0xA028});
    for (const uint32_t port : kPorts) {
        EXPECT_EQ(Write(port, 0x81000000 | port), VXD_SUCCESS);
    }
    for (const uint32_t port : kPorts) {
        EXPECT_EQ(ReadPort(port), 0x81000000 | port);
        EXPECT_EQ(ReadPort(port | kMark), 0x81000000 | port);
    }
    EXPECT_EQ(ReadPort(0x4021), kUntouched) << "there is none";
}

TEST_F(VpicPorts, HoldFieldsThatChangeTheirOwnBitsOnly) {
    // Of a field: its id, what is written, its port then (from all ones), what is read back.
    for (const auto& [field, written, whole, readBack] : std::to_array<std::array<uint32_t, 4>>({
             {0x44C20, 0x5, 0xFFFF5FFF, 0x5},       // auxiliary control
             {0x34520, 0x0, 0xFFFFFF1F, 0x0},       // reserved bits
             {0x8D801, 0x12, 0x12FFFFFF, 0x12},     // the highest byte
             {0xBD003, 0x400, 0xFC00FFFF, 0x400},   // a line number in the upper half
             {0xBA007, 0x2801, 0xFFFFF801, 0x001},  // cut to 11 bits
         })) {
        const uint32_t port = field & 0xE0FF;
        Write(port, 0xFFFFFFFF);
        EXPECT_EQ(Write(field, written), VXD_SUCCESS);
        EXPECT_EQ(ReadPort(port), whole) << std::hex << field;
        EXPECT_EQ(ReadPort(field), readBack) << std::hex << field;
    }
}

TEST_F(VpicPorts, ShowTheirBitsAndTheBitsShowThePort) {
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_SET, kControl, 16), VXD_SUCCESS);
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_SET, kControl, 1), VXD_SUCCESS);
    EXPECT_EQ(ReadPort(kControl), 0x8001u);
    EXPECT_EQ(ReadPort(0x44C20), 0x8u) << "the bit is in the field too";
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_CLR, kControl, 1), VXD_SUCCESS);
    EXPECT_EQ(ReadPort(kControl), 0x8000u);
    Write(kFifoOutControl, 0x6);
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_ST, kFifoOutControl | kMark, 3), 1);
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_ST, kFifoOutControl | kMark, 1), 0);
}

TEST_F(VpicPorts, RefuseWritesToStatusAndShowWhatTheHardwareHas) {
    for (const uint32_t port : {0x4028u, 0x14u, 0x58u, 0xC01Bu, 0xC01Cu, 0xA004u, 0xC006u}) {
        EXPECT_EQ(Write(port, ~ReadPort(port)), VXD_ILLEGAL_OPERATION) << std::hex << port;
    }
    EXPECT_EQ(SendBit(TALVERO_DBG_VPIC_OP_BIT_SET, 0x14, 2), VXD_ILLEGAL_OPERATION);
    board::SetRevisions({.board = 0x0107});
    EXPECT_EQ(ReadPort(0x58), 0x07u);
    board::Hardware hardware = board::GetHardware();
    hardware.vpic.ports.values[0x4028] = 0x2400;
    board::SetHardware(hardware);
    EXPECT_EQ(ReadPort(0x4028 | kMark), 0x2400u);
    EXPECT_EQ(ReadPort(0x44A28 | kMark), 0x9u) << "the interrupt inputs";
}
