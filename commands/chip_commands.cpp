#include "commands/chip_commands.h"

#include <algorithm>
#include <array>
#include <bit>
#include <variant>

#include "debug/select_device.h"
#include "driver/debug_command.h"
#include "driver/papi.h"
#include "driver/parameter_block.h"
#include "regs/isac_device.h"
#include "regs/monitor_device.h"
#include "regs/select_irq.h"
#include "res/resource.h"
#include "services/application.h"
#include "services/diagnostics.h"

namespace {

constexpr std::size_t kMostSlots = 2;

// A debug command with a block that is always the same.
struct DebugCommand {
    uint32_t number;
    uint32_t size = 0;
    std::array<Slot, kMostSlots> block{};
};

// A debug command that is sent once the engineer has confirmed a choice, which fills its one slot.
struct ChoiceCommand {
    uint32_t number;
    INT_PTR (*choose)(HINSTANCE instance, HWND owner);
    Slot (*chosen)();
};

struct Operation {
    uint32_t(WINAPI* call)();
};

struct OperationWithArgument {
    uint32_t(WINAPI* call)(uint32_t argument);
    uint32_t argument;
};

struct NotSupported {};

struct ChipCommand {
    uint32_t id;
    const char* name;  // names a failure
    std::variant<DebugCommand, ChoiceCommand, Operation, OperationWithArgument, NotSupported>
        action;
};

constexpr DebugCommand Debug(uint32_t number) {
    return {number};
}

template <typename Block>
constexpr DebugCommand Debug(uint32_t number, const Block& block) {
    DebugCommand command{number, sizeof block};
    std::ranges::copy(std::bit_cast<std::array<Slot, sizeof block / sizeof(Slot)>>(block),
                      command.block.begin());
    return command;
}

constexpr ChoiceCommand Debug(uint32_t number, INT_PTR (*choose)(HINSTANCE, HWND),
                              Slot (*chosen)()) {
    return {number, choose, chosen};
}

template <typename Block, auto kQuery>
Slot Chosen() {
    return std::bit_cast<Slot>(Block{kQuery()});
}

constexpr Operation Call(uint32_t(WINAPI* operation)()) {
    return {operation};
}

constexpr OperationWithArgument Call(uint32_t(WINAPI* operation)(uint32_t), uint32_t argument) {
    return {operation, argument};
}

// A name and an action of the same command or operation.
#define DEBUG_COMMAND(command, ...) \
    "vdapi_Debug: " #command, Debug(command __VA_OPT__(, ) __VA_ARGS__)
#define LIBRARY_CALL(operation, ...) #operation, Call(operation __VA_OPT__(, ) __VA_ARGS__)

constexpr auto kAtomDevice = Chosen<AtomBlock, SelectedDevice>;
constexpr auto kInterrupts = Chosen<InterruptBlock, SelectedInterrupts>;
constexpr auto kIsacDevice = Chosen<DeviceBlock, SelectedIsacDevice>;
constexpr auto kMonitorDevice = Chosen<DeviceBlock, SelectedMonitorDevice>;

constexpr auto kCommands = std::to_array<ChipCommand>({
    {IDM_PCI_INITIALIZE, DEBUG_COMMAND(TALVERO_DBG_PCI_OP_INIT)},
    {IDM_PCI_SIMULATE_INTERRUPT, DEBUG_COMMAND(TALVERO_DBG_PCI_OP_SIM_INTERRUPT)},
    {IDM_PCI_WRITE_CONFIG_SPACE, "TALVERO_DBG_PCI_OP_WR_CNFG_SPACE - ", NotSupported{}},
    {IDM_PCI_READ_PORT, "TALVERO_DBG_VPIC_OP_PORT_RD - ", NotSupported{}},
    {IDM_PCI_WRITE_PORT, "TALVERO_DBG_VPIC_OP_PORT_WR - ", NotSupported{}},
    {IDM_PCI_SET_BIT_IN_PORT, "TALVERO_DBG_VPIC_OP_BIT_SET - ", NotSupported{}},
    {IDM_PCI_CLEAR_BIT_IN_PORT, "TALVERO_DBG_VPIC_OP_BIT_CLR - ", NotSupported{}},
    {IDM_PCI_TEST_BIT_IN_PORT, "TALVERO_DBG_VPIC_OP_BIT_ST - ", NotSupported{}},
    {IDM_PCI_READ_IO_BYTE, "TALVERO_DBG_PCI_OP_RD_IO_BYTE - ", NotSupported{}},
    {IDM_PCI_READ_IO_WORD, "TALVERO_DBG_PCI_OP_RD_IO_WORD - ", NotSupported{}},
    {IDM_PCI_READ_IO_DWORD, "TALVERO_DBG_PCI_OP_RD_IO_DWORD - ", NotSupported{}},

    {IDM_VPIC_INITIALIZE, "TALVERO_DBG_VPIC_TR_INIT", NotSupported{}},
    {IDM_VPIC_TERMINATE, DEBUG_COMMAND(TALVERO_DBG_VPIC_TR_TERM)},
    {IDM_VPIC_RESET, DEBUG_COMMAND(TALVERO_DBG_VPIC_TR_RST)},
    {IDM_VPIC_DMA_CHANNEL_RESET, "TALVERO_DBG_VPIC_TR_DMA_CHAN_RST - ", NotSupported{}},
    {IDM_VPIC_READ_VCP_PORT, "TALVERO_DBG_VPIC_TR_VCP_PORT_RD - ", NotSupported{}},
    {IDM_VPIC_WRITE_VCP_PORT, "TALVERO_DBG_VPIC_TR_VCP_PORT_WR - ", NotSupported{}},
    {IDM_VPIC_READ_VIDEO_PORT, "TALVERO_DBG_VPIC_TR_VID_PORT_RD - ", NotSupported{}},

    {IDM_SEQ_INITIALIZE, DEBUG_COMMAND(TALVERO_DBG_SEQ_TR_INIT)},
    {IDM_SEQ_TERMINATE, DEBUG_COMMAND(TALVERO_DBG_SEQ_TR_TERM)},
    {IDM_SEQ_RESET, DEBUG_COMMAND(TALVERO_DBG_SEQ_TR_RST)},
    {IDM_SEQ_UNREGISTER, DEBUG_COMMAND(TALVERO_DBG_SEQ_TR_UNREG, SequencerUnregisterBlock{})},
    {IDM_SEQ_CRIT_ENTER, DEBUG_COMMAND(TALVERO_DBG_SEQ_TR_CRITENTER)},
    {IDM_SEQ_CRIT_LEAVE, DEBUG_COMMAND(TALVERO_DBG_SEQ_TR_CRITLEAVE)},
    {IDM_SEQ_ATOM_ENTER,
     DEBUG_COMMAND(TALVERO_DBG_SEQ_TR_ATOMENTER, OpenSelectDevice, kAtomDevice)},
    {IDM_SEQ_ATOM_LEAVE,
     DEBUG_COMMAND(TALVERO_DBG_SEQ_TR_ATOMLEAVE, OpenSelectDevice, kAtomDevice)},
    {IDM_SEQ_SIMULATE_INTERRUPT,
     DEBUG_COMMAND(TALVERO_DBG_SEQ_OP_INTERRUPT, OpenSelectIrq, kInterrupts)},
    {IDM_SEQ_READ_REG, "TALVERO_DBG_SEQ_TR_REG_RD - ", NotSupported{}},
    {IDM_SEQ_WRITE_REG, "TALVERO_DBG_SEQ_TR_REG_WR - ", NotSupported{}},
    {IDM_SEQ_ACCESS_VPIC, "TALVERO_DBG_SEQ_TR_ACCESS_VPIC - ", NotSupported{}},

    {IDM_ISAC_CHIP_1, DEBUG_COMMAND(TALVERO_DBG_ISAC_OP_INITCHIP, IsacChipBlock{1})},
    {IDM_ISAC_CHIP_2, DEBUG_COMMAND(TALVERO_DBG_ISAC_OP_INITCHIP, IsacChipBlock{6})},
    {IDM_ISAC_CHIP_3, DEBUG_COMMAND(TALVERO_DBG_ISAC_OP_INITCHIP, IsacChipBlock{9})},
    {IDM_ISAC_TERMINATE,
     DEBUG_COMMAND(TALVERO_DBG_ISAC_TR_TERM, OpenSelectIsacDevice, kIsacDevice)},
    {IDM_ISAC_RESET, DEBUG_COMMAND(TALVERO_DBG_ISAC_TR_RST, OpenSelectIsacDevice, kIsacDevice)},
    {IDM_ISAC_ACTIVATE_IOM2, DEBUG_COMMAND(TALVERO_DBG_ISAC_TR_IOM2_ACTV)},
    {IDM_ISAC_DEACTIVATE_IOM2, DEBUG_COMMAND(TALVERO_DBG_ISAC_TR_IOM2_DEACT)},

    {IDM_MONITOR_TERMINATE,
     DEBUG_COMMAND(TALVERO_DBG_MON_TR_TERM, OpenSelectMonitorDevice, kMonitorDevice)},
    {IDM_MONITOR_RESET,
     DEBUG_COMMAND(TALVERO_DBG_MON_TR_RST, OpenSelectMonitorDevice, kMonitorDevice)},
    {IDM_MONITOR_ACTIVATE,
     DEBUG_COMMAND(TALVERO_DBG_MON_TR_ACTV, OpenSelectMonitorDevice, kMonitorDevice)},
    {IDM_MONITOR_DEACTIVATE,
     DEBUG_COMMAND(TALVERO_DBG_MON_TR_DEACT, OpenSelectMonitorDevice, kMonitorDevice)},

    {IDM_ARCOFI_INITIALIZE, DEBUG_COMMAND(TALVERO_DBG_ARCF_TR_INIT)},
    {IDM_ARCOFI_TERMINATE, DEBUG_COMMAND(TALVERO_DBG_ARCF_TR_TERM)},
    {IDM_ARCOFI_RESET, DEBUG_COMMAND(TALVERO_DBG_ARCF_TR_RST)},
    {IDM_ARCOFI_ACTIVATE, DEBUG_COMMAND(TALVERO_DBG_ARCF_TR_ACTV)},
    {IDM_ARCOFI_DEACTIVATE, DEBUG_COMMAND(TALVERO_DBG_ARCF_TR_DEACT)},
    {IDM_ARCOFI_INIT_SHADOW, DEBUG_COMMAND(TALVERO_DBG_ARCF_OP_INIT_SHADOW)},
    {IDM_ARCOFI_CHANNEL_1, LIBRARY_CALL(vdapi_ARCOFI_SelectChannel, 0)},
    {IDM_ARCOFI_CHANNEL_2, LIBRARY_CALL(vdapi_ARCOFI_SelectChannel, 0x40)},

    {IDM_SAEC_INITIALIZE, DEBUG_COMMAND(TALVERO_DBG_SAEC_TR_INIT)},
    {IDM_SAEC_TERMINATE, DEBUG_COMMAND(TALVERO_DBG_SAEC_TR_TERM)},
    {IDM_SAEC_RESET, DEBUG_COMMAND(TALVERO_DBG_SAEC_TR_RST)},

    {IDM_VCPXI_REGISTER, DEBUG_COMMAND(TALVERO_DBG_VCPXI_REGISTER, VcpxiRegisterBlock{})},
    {IDM_VCPXI_UNREGISTER, DEBUG_COMMAND(TALVERO_DBG_VCPXI_UNREGISTER)},

    {IDM_I2C_INITIALIZE, LIBRARY_CALL(vdapi_I2C_Initialize)},
    {IDM_I2C_TERMINATE, LIBRARY_CALL(vdapi_I2C_Terminate)},
    {IDM_I2C_RESET, DEBUG_COMMAND(TALVERO_DBG_I2C_TR_RST)},

    {IDM_CAMERA_INITIALIZE, LIBRARY_CALL(vdapi_CAM_Digit_Initialize)},
    {IDM_CAMERA_TERMINATE, LIBRARY_CALL(vdapi_CAM_Digit_Terminate)},
    {IDM_CAMERA_RESET, DEBUG_COMMAND(TALVERO_DBG_CAM_DIGIT_TR_RST)},

    {IDM_ANALOG_CAMERA_INITIALIZE, LIBRARY_CALL(vdapi_CAM_ACIF_Initialize)},
    {IDM_ANALOG_CAMERA_TERMINATE, LIBRARY_CALL(vdapi_CAM_ACIF_Terminate)},

    {IDM_BROOKTREE_INITIALIZE, LIBRARY_CALL(vdapi_BT85X_Initialize)},
    {IDM_BROOKTREE_TERMINATE, LIBRARY_CALL(vdapi_BT85X_Terminate)},
    {IDM_BROOKTREE_RESET, LIBRARY_CALL(vdapi_BT85X_Reset)},
    {IDM_BROOKTREE_NTSC, LIBRARY_CALL(vdapi_BT85X_SetDisplayType, 0)},
    {IDM_BROOKTREE_PAL, LIBRARY_CALL(vdapi_BT85X_SetDisplayType, 1)},
    {IDM_BROOKTREE_SW_RESET, DEBUG_COMMAND(TALVERO_DBG_BT85X_OP_RESET)},

    {IDM_EEPROM_INITIALIZE, LIBRARY_CALL(vdapi_EPROM_Initialize)},
    {IDM_EEPROM_TERMINATE, LIBRARY_CALL(vdapi_EPROM_Terminate)},

    {IDM_JADE_RESET, LIBRARY_CALL(vdapi_JADE_Reset, 0x32)},
});

#undef DEBUG_COMMAND
#undef LIBRARY_CALL

void Run(HWND window, const char* name, const DebugCommand& command) {
    auto block = command.block;
    void* const sent = command.size != 0 ? block.data() : nullptr;
    ReportFailure(window, CodeOf(vdapi_Debug(command.number, command.size, sent)), name);
}

void Run(HWND window, const char* name, const ChoiceCommand& command) {
    if (command.choose(AppInstance, window) == 1)
        Run(window, name, DebugCommand{command.number, sizeof(Slot), {command.chosen()}});
}

void Run(HWND window, const char* name, const Operation& operation) {
    ReportFailure(window, CodeOf(operation.call()), name);
}

void Run(HWND window, const char* name, const OperationWithArgument& operation) {
    ReportFailure(window, CodeOf(operation.call(operation.argument)), name);
}

void Run(HWND window, const char* name, const NotSupported& /*action*/) {
    ShowMessage(window, MessageKind::kWarning, name, "Not supported");
}

}  // namespace

void RunChipCommand(HWND window, uint32_t command) {
    const auto found = std::ranges::find(kCommands, command, &ChipCommand::id);
    if (found != kCommands.end())
        std::visit([&](const auto& action) { Run(window, found->name, action); }, found->action);
}
