#include "commands/pci_queries.h"

#include <cstdint>

#include "driver/debug_command.h"
#include "driver/low_memory.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "services/diagnostics.h"

namespace {

constexpr uint16_t kBoardVendor = 0x1061;
constexpr uint16_t kBoardDevice = 0x0002;

}  // namespace

void QueryPciBios(HWND window) {
    const LowObject<uint8_t> mechanism;
    const LowObject<uint16_t> version;
    const LowObject<uint8_t> lastBus;
    PciBiosPresentBlock block{mechanism.Address(), version.Address(), lastBus.Address()};
    ReportFailure(window, CodeOf(vdapi_Debug(TALVERO_DBG_PCI_OP_BIOS_PRST, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_PCI_OP_BIOS_PRST");
    DbgMsg(1,
           "TALVERO_DBG_PCI_OP_BIOS_PRST: H/W mechanism %d, I/F version 0x%02X, "
           "Last PCI bus 0x%X\n",
           *mechanism, *version, *lastBus);
}

void FindPciDevice(HWND window) {
    const LowObject<uint8_t> bus;
    const LowObject<uint8_t> deviceAndFunction;
    PciFindDeviceBlock block{kBoardDevice, kBoardVendor, 0, bus.Address(),
                             deviceAndFunction.Address()};
    ReportFailure(window, CodeOf(vdapi_Debug(TALVERO_DBG_PCI_OP_FINDDEV, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_PCI_OP_FINDDEV");
    DbgMsg(1, "TALVERO_DBG_PCI_OP_FINDDEV: BusNumber 0x%02X, Dev&Func 0x%02X\n", *bus,
           *deviceAndFunction);
}

void FindPciClassCode(HWND window) {
    const LowObject<uint8_t> bus;
    const LowObject<uint8_t> deviceAndFunction;
    PciFindClassCodeBlock block{0, 0, bus.Address(), deviceAndFunction.Address()};
    ReportFailure(window,
                  CodeOf(vdapi_Debug(TALVERO_DBG_PCI_OP_FIND_CLS_CODE, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_PCI_OP_FIND_CLS_CODE");
    DbgMsg(1, "TALVERO_DBG_PCI_OP_FIND_CLS_CODE: BusNumber 0x%02X, Dev&Func 0x%02X\n", *bus,
           *deviceAndFunction);
}

void ReadPciConfigSpace(HWND window) {
    const LowObject<uint32_t> result;
    PciReadConfigBlock block{PCI_READ_CONFIG_BYTE, 0, 0, 0, result.Address()};
    ReportFailure(window,
                  CodeOf(vdapi_Debug(TALVERO_DBG_PCI_OP_RD_CNFG_SPACE, sizeof block, &block)),
                  "vdapi_Debug: TALVERO_DBG_PCI_OP_RD_CNFG_SPACE");
    // The driver may have read in another width than it was asked for, and says so in the block.
    switch (block.access.value) {
        case PCI_READ_CONFIG_BYTE:
            DbgMsg(1, "TALVERO_DBG_PCI_OP_RD_CNFG_SPACE: PCI_READ_CONFIG_BYTE: 0x%02X\n",
                   LOWORD(*result));
            break;
        case PCI_READ_CONFIG_WORD:
            DbgMsg(1, "TALVERO_DBG_PCI_OP_RD_CNFG_SPACE: PCI_READ_CONFIG_WORD: 0x%04X\n",
                   LOWORD(*result));
            break;
        case PCI_READ_CONFIG_DWORD:
            DbgMsg(1, "TALVERO_DBG_PCI_OP_RD_CNFG_SPACE: PCI_READ_CONFIG_DWORD: 0x%08lX\n",
                   *result);
            break;
        default:
            DbgMsg(1, "TALVERO_DBG_PCI_OP_RD_CNFG_SPACE: Invalid command\n");
            break;
    }
}
