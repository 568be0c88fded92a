// The PCI bus as the debug channel's queries find it.
#include <tuple>

#include "driver/low_memory.h"
#include "tests/board/driver_test.h"

using PciQueries = DriverTest;

namespace {

struct Place {
    ResultCode code;
    uint8_t bus;
    uint8_t deviceAndFunction;

    bool operator==(const Place&) const = default;
};

// What is left of the outputs where nothing is found.
constexpr uint8_t kUntouched = 0xEE;

Place FindDevice(uint16_t vendor, uint16_t device, uint16_t index = 0) {
    const LowObject<uint8_t> bus(kUntouched);
    const LowObject<uint8_t> deviceAndFunction(kUntouched);
    const ResultCode code = Debug(
        TALVERO_DBG_PCI_OP_FINDDEV,
        PciFindDeviceBlock{device, vendor, index, bus.Address(), deviceAndFunction.Address()});
    return {code, *bus, *deviceAndFunction};
}

Place FindClass(uint32_t classCode, uint16_t index = 0) {
    const LowObject<uint8_t> bus(kUntouched);
    const LowObject<uint8_t> deviceAndFunction(kUntouched);
    const ResultCode code =
        Debug(TALVERO_DBG_PCI_OP_FIND_CLS_CODE,
              PciFindClassCodeBlock{classCode, index, bus.Address(), deviceAndFunction.Address()});
    return {code, *bus, *deviceAndFunction};
}

struct Reading {
    ResultCode code;
    uint32_t value;

    bool operator==(const Reading&) const = default;
};

Reading Read(uint8_t access, uint8_t bus, uint8_t deviceAndFunction, uint8_t number) {
    const LowObject<uint32_t> value(0x12345678);
    const ResultCode code =
        Debug(TALVERO_DBG_PCI_OP_RD_CNFG_SPACE,
              PciReadConfigBlock{access, bus, deviceAndFunction, number, value.Address()});
    return {code, *value};
}

}  // namespace

TEST_F(PciQueries, FindTheBoardBehindTheBridgeAndReadItsConfigurationInEveryWidth) {
    EXPECT_EQ(Debug(TALVERO_DBG_PCI_OP_INIT), VXD_SUCCESS);
    EXPECT_EQ(FindClass(0x060400), (Place{VXD_SUCCESS, 0, 0}));
    const Place board = FindDevice(0x1061, 0x0002);
    ASSERT_EQ(board, FindClass(0));
    using Register = std::tuple<uint8_t, uint8_t, uint32_t>;
    for (const auto& [access, number, value] :
         {Register{PCI_READ_CONFIG_DWORD, 0, 0x00021061}, Register{PCI_READ_CONFIG_WORD, 0, 0x1061},
          Register{PCI_READ_CONFIG_WORD, 2, 0x0002}, Register{PCI_READ_CONFIG_BYTE, 0, 0x61},
          Register{PCI_READ_CONFIG_BYTE, 1, 0x10},
          Register{PCI_READ_CONFIG_BYTE, 8, 0x1D},  // the revision
          Register{PCI_READ_CONFIG_DWORD, 0xFC, 0}})
        EXPECT_EQ(Read(access, board.bus, board.deviceAndFunction, number),
                  (Reading{VXD_SUCCESS, value}))
            << int{number};
}

TEST_F(PciQueries, FindNothingWhereNothingIs) {
    const Place nowhere{VXD_ERR_BIOS, kUntouched, kUntouched};
    EXPECT_EQ(FindDevice(0x1061, 0x0002, 1), nowhere);
    EXPECT_EQ(FindDevice(0x0002, 0x1061), nowhere);
    EXPECT_EQ(FindClass(0x030000), nowhere);
    EXPECT_EQ(FindClass(0, 1), nowhere);
    EXPECT_EQ(Read(PCI_READ_CONFIG_BYTE, 0, 0x10, 0), (Reading{VXD_SUCCESS, 0xFF}));
    EXPECT_EQ(Read(PCI_READ_CONFIG_DWORD, 2, 0, 0), (Reading{VXD_SUCCESS, 0xFFFFFFFF}));
}

TEST_F(PciQueries, RefuseAnAccessThatIsMisshapen) {
    const Reading refused{VXD_INVALID_PARAMETER, 0x12345678};
    EXPECT_EQ(Read(7, 0, 0, 0), refused);
    EXPECT_EQ(Read(11, 0, 0, 0), refused);
    EXPECT_EQ(Read(PCI_READ_CONFIG_WORD, 0, 0, 1), refused);
    EXPECT_EQ(Read(PCI_READ_CONFIG_DWORD, 0, 0, 2), refused);
    EXPECT_EQ(Debug(TALVERO_DBG_PCI_OP_RD_CNFG_SPACE,
                    PciReadConfigBlock{PCI_READ_CONFIG_BYTE, 0, 0, 0, 0}),
              VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_PCI_OP_BIOS_PRST, PciBiosPresentBlock{0, 0, 0}),
              VXD_INVALID_PARAMETER);
    EXPECT_EQ(Debug(TALVERO_DBG_PCI_OP_FINDDEV, PciFindDeviceBlock{2, 0x1061, 0, 0, 0}),
              VXD_INVALID_PARAMETER);
}
