// The older board's commands that are one call each, a table for each kind of call. A command
// stands in one table only, which the dispatcher checks along with its own.
#pragma once

#include <algorithm>
#include <array>
#include <bit>
#include <cstddef>
#include <cstdint>

#include "debug/select_device.h"
#include "driver/debug_command.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "driver/slot.h"
#include "platform/win32.h"
#include "regs/isac_device.h"
#include "regs/monitor_device.h"
#include "regs/select_irq.h"
#include "res/resource.h"

namespace chip {

// A debug command's name stands in the driver's header; a failure is reported under it.
struct DebugCommand {
    uint32_t id;
    uint32_t number;
    const char* name;
};

// The block of a debug command, where it is always the same.
struct FixedBlock {
    uint32_t size;
    std::array<Slot, 2> slots;
};

struct FixedCommand {
    uint32_t id;
    uint32_t number;
    const char* name;
    FixedBlock block;
};

// A debug command that is sent once the engineer has confirmed a choice, which fills its one slot.
struct ChoiceCommand {
    uint32_t id;
    uint32_t number;
    const char* name;
    INT_PTR (*choose)(HINSTANCE instance, HWND owner);
    Slot (*chosen)();
};

struct Operation {
    uint32_t id;
    uint32_t(WINAPI* call)();
    const char* name;
};

struct OperationWithArgument {
    uint32_t id;
    uint32_t(WINAPI* call)(uint32_t argument);
    uint32_t argument;
    const char* name;
};

// A command that has no call behind it, and what its box says.
struct UnsupportedCommand {
    uint32_t id;
    const char* text;
};

template <typename Block>
constexpr FixedBlock BlockOf(const Block& block) {
    FixedBlock fixed{sizeof block, {}};
    std::ranges::copy(std::bit_cast<std::array<Slot, sizeof block / sizeof(Slot)>>(block),
                      fixed.slots.begin());
    return fixed;
}

template <typename Block, auto kQuery>
Slot Chosen() {
    return std::bit_cast<Slot>(Block{kQuery()});
}

inline constexpr auto kDebugCommands = std::to_array<DebugCommand>({
    {IDM_PCI_INITIALIZE, TALVERO_DBG_PCI_OP_INIT, "TALVERO_DBG_PCI_OP_INIT"},
    {IDM_PCI_SIMULATE_INTERRUPT, TALVERO_DBG_PCI_OP_SIM_INTERRUPT,
     "TALVERO_DBG_PCI_OP_SIM_INTERRUPT"},
    {IDM_VPIC_TERMINATE, TALVERO_DBG_VPIC_TR_TERM, "TALVERO_DBG_VPIC_TR_TERM"},
    {IDM_VPIC_RESET, TALVERO_DBG_VPIC_TR_RST, "TALVERO_DBG_VPIC_TR_RST"},
    {IDM_SEQ_INITIALIZE, TALVERO_DBG_SEQ_TR_INIT, "TALVERO_DBG_SEQ_TR_INIT"},
    {IDM_SEQ_TERMINATE, TALVERO_DBG_SEQ_TR_TERM, "TALVERO_DBG_SEQ_TR_TERM"},
    {IDM_SEQ_RESET, TALVERO_DBG_SEQ_TR_RST, "TALVERO_DBG_SEQ_TR_RST"},
    {IDM_SEQ_CRIT_ENTER, TALVERO_DBG_SEQ_TR_CRITENTER, "TALVERO_DBG_SEQ_TR_CRITENTER"},
    {IDM_SEQ_CRIT_LEAVE, TALVERO_DBG_SEQ_TR_CRITLEAVE, "TALVERO_DBG_SEQ_TR_CRITLEAVE"},
    {IDM_ISAC_ACTIVATE_IOM2, TALVERO_DBG_ISAC_TR_IOM2_ACTV, "TALVERO_DBG_ISAC_TR_IOM2_ACTV"},
    {IDM_ISAC_DEACTIVATE_IOM2, TALVERO_DBG_ISAC_TR_IOM2_DEACT, "TALVERO_DBG_ISAC_TR_IOM2_DEACT"},
    {IDM_ARCOFI_INITIALIZE, TALVERO_DBG_ARCF_TR_INIT, "TALVERO_DBG_ARCF_TR_INIT"},
    {IDM_ARCOFI_TERMINATE, TALVERO_DBG_ARCF_TR_TERM, "TALVERO_DBG_ARCF_TR_TERM"},
    {IDM_ARCOFI_RESET, TALVERO_DBG_ARCF_TR_RST, "TALVERO_DBG_ARCF_TR_RST"},
    {IDM_ARCOFI_ACTIVATE, TALVERO_DBG_ARCF_TR_ACTV, "TALVERO_DBG_ARCF_TR_ACTV"},
    {IDM_ARCOFI_DEACTIVATE, TALVERO_DBG_ARCF_TR_DEACT, "TALVERO_DBG_ARCF_TR_DEACT"},
    {IDM_ARCOFI_INIT_SHADOW, TALVERO_DBG_ARCF_OP_INIT_SHADOW, "TALVERO_DBG_ARCF_OP_INIT_SHADOW"},
    {IDM_SAEC_INITIALIZE, TALVERO_DBG_SAEC_TR_INIT, "TALVERO_DBG_SAEC_TR_INIT"},
    {IDM_SAEC_TERMINATE, TALVERO_DBG_SAEC_TR_TERM, "TALVERO_DBG_SAEC_TR_TERM"},
    {IDM_SAEC_RESET, TALVERO_DBG_SAEC_TR_RST, "TALVERO_DBG_SAEC_TR_RST"},
    {IDM_VCPXI_UNREGISTER, TALVERO_DBG_VCPXI_UNREGISTER, "TALVERO_DBG_VCPXI_UNREGISTER"},
    {IDM_I2C_RESET, TALVERO_DBG_I2C_TR_RST, "TALVERO_DBG_I2C_TR_RST"},
    {IDM_CAMERA_RESET, TALVERO_DBG_CAM_DIGIT_TR_RST, "TALVERO_DBG_CAM_DIGIT_TR_RST"},
    {IDM_STREAM_INITIALIZE, TALVERO_DBG_STREAM_TR_INIT, "TALVERO_DBG_STREAM_TR_INIT"},
    {IDM_STREAM_TERMINATE, TALVERO_DBG_STREAM_TR_TERM, "TALVERO_DBG_STREAM_TR_TERM"},
    {IDM_BROOKTREE_SW_RESET, TALVERO_DBG_BT85X_OP_RESET, "TALVERO_DBG_BT85X_OP_RESET"},
});

inline constexpr auto kFixedCommands = std::to_array<FixedCommand>({
    {IDM_SEQ_UNREGISTER, TALVERO_DBG_SEQ_TR_UNREG, "TALVERO_DBG_SEQ_TR_UNREG",
     BlockOf(SequencerUnregisterBlock{})},
    {IDM_ISAC_CHIP_1, TALVERO_DBG_ISAC_OP_INITCHIP, "TALVERO_DBG_ISAC_OP_INITCHIP",
     BlockOf(IsacChipBlock{1})},
    {IDM_ISAC_CHIP_2, TALVERO_DBG_ISAC_OP_INITCHIP, "TALVERO_DBG_ISAC_OP_INITCHIP",
     BlockOf(IsacChipBlock{6})},
    {IDM_ISAC_CHIP_3, TALVERO_DBG_ISAC_OP_INITCHIP, "TALVERO_DBG_ISAC_OP_INITCHIP",
     BlockOf(IsacChipBlock{9})},
    {IDM_VCPXI_REGISTER, TALVERO_DBG_VCPXI_REGISTER, "TALVERO_DBG_VCPXI_REGISTER",
     BlockOf(VcpxiRegisterBlock{})},
});

inline constexpr auto kChoiceCommands = std::to_array<ChoiceCommand>({
    {IDM_SEQ_ATOM_ENTER, TALVERO_DBG_SEQ_TR_ATOMENTER, "TALVERO_DBG_SEQ_TR_ATOMENTER",
     OpenSelectDevice, Chosen<AtomBlock, SelectedDevice>},
    {IDM_SEQ_ATOM_LEAVE, TALVERO_DBG_SEQ_TR_ATOMLEAVE, "TALVERO_DBG_SEQ_TR_ATOMLEAVE",
     OpenSelectDevice, Chosen<AtomBlock, SelectedDevice>},
    {IDM_SEQ_SIMULATE_INTERRUPT, TALVERO_DBG_SEQ_OP_INTERRUPT, "TALVERO_DBG_SEQ_OP_INTERRUPT",
     OpenSelectIrq, Chosen<InterruptBlock, SelectedInterrupts>},
    {IDM_ISAC_TERMINATE, TALVERO_DBG_ISAC_TR_TERM, "TALVERO_DBG_ISAC_TR_TERM", OpenSelectIsacDevice,
     Chosen<DeviceBlock, SelectedIsacDevice>},
    {IDM_ISAC_RESET, TALVERO_DBG_ISAC_TR_RST, "TALVERO_DBG_ISAC_TR_RST", OpenSelectIsacDevice,
     Chosen<DeviceBlock, SelectedIsacDevice>},
    {IDM_MONITOR_TERMINATE, TALVERO_DBG_MON_TR_TERM, "TALVERO_DBG_MON_TR_TERM",
     OpenSelectMonitorDevice, Chosen<DeviceBlock, SelectedMonitorDevice>},
    {IDM_MONITOR_RESET, TALVERO_DBG_MON_TR_RST, "TALVERO_DBG_MON_TR_RST", OpenSelectMonitorDevice,
     Chosen<DeviceBlock, SelectedMonitorDevice>},
    {IDM_MONITOR_ACTIVATE, TALVERO_DBG_MON_TR_ACTV, "TALVERO_DBG_MON_TR_ACTV",
     OpenSelectMonitorDevice, Chosen<DeviceBlock, SelectedMonitorDevice>},
    {IDM_MONITOR_DEACTIVATE, TALVERO_DBG_MON_TR_DEACT, "TALVERO_DBG_MON_TR_DEACT",
     OpenSelectMonitorDevice, Chosen<DeviceBlock, SelectedMonitorDevice>},
});

inline constexpr auto kOperations = std::to_array<Operation>({
    {IDM_I2C_INITIALIZE, vdapi_I2C_Initialize, "vdapi_I2C_Initialize"},
    {IDM_I2C_TERMINATE, vdapi_I2C_Terminate, "vdapi_I2C_Terminate"},
    {IDM_CAMERA_INITIALIZE, vdapi_CAM_Digit_Initialize, "vdapi_CAM_Digit_Initialize"},
    {IDM_CAMERA_TERMINATE, vdapi_CAM_Digit_Terminate, "vdapi_CAM_Digit_Terminate"},
    {IDM_ANALOG_CAMERA_INITIALIZE, vdapi_CAM_ACIF_Initialize, "vdapi_CAM_ACIF_Initialize"},
    {IDM_ANALOG_CAMERA_TERMINATE, vdapi_CAM_ACIF_Terminate, "vdapi_CAM_ACIF_Terminate"},
    {IDM_BROOKTREE_INITIALIZE, vdapi_BT85X_Initialize, "vdapi_BT85X_Initialize"},
    {IDM_BROOKTREE_TERMINATE, vdapi_BT85X_Terminate, "vdapi_BT85X_Terminate"},
    {IDM_BROOKTREE_RESET, vdapi_BT85X_Reset, "vdapi_BT85X_Reset"},
    {IDM_EEPROM_INITIALIZE, vdapi_EPROM_Initialize, "vdapi_EPROM_Initialize"},
    {IDM_EEPROM_TERMINATE, vdapi_EPROM_Terminate, "vdapi_EPROM_Terminate"},
    {IDM_MBE_OPEN_OUTGOING, vdapi_MBE_RegisterOutgoingStream,
     "MainWndProc: vdapi_MBE_RegisterOutgoingStream()"},
    {IDM_MBE_TERMINATE, vdapi_MBE_Terminate, "MainWndProc: vdapi_MBE_Terminate()"},
    {IDM_BAS_INITIALIZE, vdapi_BAS_Initialize, "MainWndProc: vdapi_BAS_Initialize()"},
    {IDM_BAS_TERMINATE, vdapi_BAS_Terminate, "MainWndProc: vdapi_BAS_Terminate()"},
    {IDM_VPP_ACTIVATE, vdapi_VPP_Activate, "vdapi_VPP_Activate"},
    {IDM_VPP_DEACTIVATE, vdapi_VPP_Deactivate, "vdapi_VPP_Deactivate"},
});

inline constexpr auto kOperationsWithArgument = std::to_array<OperationWithArgument>({
    {IDM_ARCOFI_CHANNEL_1, vdapi_ARCOFI_SelectChannel, 0, "vdapi_ARCOFI_SelectChannel"},
    {IDM_ARCOFI_CHANNEL_2, vdapi_ARCOFI_SelectChannel, 0x40, "vdapi_ARCOFI_SelectChannel"},
    {IDM_BROOKTREE_NTSC, vdapi_BT85X_SetDisplayType, 0, "vdapi_BT85X_SetDisplayType"},
    {IDM_BROOKTREE_PAL, vdapi_BT85X_SetDisplayType, 1, "vdapi_BT85X_SetDisplayType"},
    {IDM_JADE_RESET, vdapi_JADE_Reset, 0x32, "vdapi_JADE_Reset"},
});

inline constexpr auto kUnsupportedCommands = std::to_array<UnsupportedCommand>({
    {IDM_PCI_WRITE_CONFIG_SPACE, "TALVERO_DBG_PCI_OP_WR_CNFG_SPACE - "},
    {IDM_PCI_READ_PORT, "TALVERO_DBG_VPIC_OP_PORT_RD - "},
    {IDM_PCI_WRITE_PORT, "TALVERO_DBG_VPIC_OP_PORT_WR - "},
    {IDM_PCI_SET_BIT_IN_PORT, "TALVERO_DBG_VPIC_OP_BIT_SET - "},
    {IDM_PCI_CLEAR_BIT_IN_PORT, "TALVERO_DBG_VPIC_OP_BIT_CLR - "},
    {IDM_PCI_TEST_BIT_IN_PORT, "TALVERO_DBG_VPIC_OP_BIT_ST - "},
    {IDM_PCI_READ_IO_BYTE, "TALVERO_DBG_PCI_OP_RD_IO_BYTE - "},
    {IDM_PCI_READ_IO_WORD, "TALVERO_DBG_PCI_OP_RD_IO_WORD - "},
    {IDM_PCI_READ_IO_DWORD, "TALVERO_DBG_PCI_OP_RD_IO_DWORD - "},
    {IDM_VPIC_INITIALIZE, "TALVERO_DBG_VPIC_TR_INIT"},
    {IDM_VPIC_DMA_CHANNEL_RESET, "TALVERO_DBG_VPIC_TR_DMA_CHAN_RST - "},
    {IDM_VPIC_READ_VCP_PORT, "TALVERO_DBG_VPIC_TR_VCP_PORT_RD - "},
    {IDM_VPIC_WRITE_VCP_PORT, "TALVERO_DBG_VPIC_TR_VCP_PORT_WR - "},
    {IDM_VPIC_READ_VIDEO_PORT, "TALVERO_DBG_VPIC_TR_VID_PORT_RD - "},
    {IDM_SEQ_READ_REG, "TALVERO_DBG_SEQ_TR_REG_RD - "},
    {IDM_SEQ_WRITE_REG, "TALVERO_DBG_SEQ_TR_REG_WR - "},
    {IDM_SEQ_ACCESS_VPIC, "TALVERO_DBG_SEQ_TR_ACCESS_VPIC - "},
});

}  // namespace chip
