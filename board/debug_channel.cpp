#include "board/debug_channel.h"

#include <algorithm>
#include <array>

#include "board/codec_variables.h"
#include "board/gds_dump.h"
#include "board/isac.h"
#include "board/isac_device.h"
#include "board/life_cycle.h"
#include "board/monitor.h"
#include "board/pci.h"
#include "board/sequencer.h"
#include "board/services.h"
#include "board/video_encoder.h"
#include "board/vpic.h"
#include "driver/debug_command.h"
#include "driver/parameter_block.h"

namespace board {
namespace {

constexpr auto kCommands = std::to_array<DebugCommand>({
    {TALVERO_DBG_PCI_OP_INIT, "TALVERO_DBG_PCI_OP_INIT", 0,
     Handle<TakeStep<Service::kPci, kInitialize>>},
    {TALVERO_DBG_PCI_OP_BIOS_PRST, "TALVERO_DBG_PCI_OP_BIOS_PRST", sizeof(PciBiosPresentBlock),
     Handle<FindPciBios>},
    {TALVERO_DBG_PCI_OP_FINDDEV, "TALVERO_DBG_PCI_OP_FINDDEV", sizeof(PciFindDeviceBlock),
     Handle<FindPciDevice>},
    {TALVERO_DBG_PCI_OP_FIND_CLS_CODE, "TALVERO_DBG_PCI_OP_FIND_CLS_CODE",
     sizeof(PciFindClassCodeBlock), Handle<FindPciClass>},
    {TALVERO_DBG_PCI_OP_RD_CNFG_SPACE, "TALVERO_DBG_PCI_OP_RD_CNFG_SPACE",
     sizeof(PciReadConfigBlock), Handle<ReadPciConfig>},
    {TALVERO_DBG_PCI_OP_SIM_INTERRUPT, "TALVERO_DBG_PCI_OP_SIM_INTERRUPT", 0,
     Handle<SimulatePciInterrupt>},
    {TALVERO_DBG_CORE_TR_DUMP_GDS, "TALVERO_DBG_CORE_TR_DUMP_GDS", sizeof(GdsDumpBlock),
     Handle<DumpGds>},
    {TALVERO_DBG_VPIC_OP_BIT_SET, "TALVERO_DBG_VPIC_OP_BIT_SET", sizeof(BitBlock),
     Handle<SetVpicBit>},
    {TALVERO_DBG_VPIC_OP_BIT_CLR, "TALVERO_DBG_VPIC_OP_BIT_CLR", sizeof(BitBlock),
     Handle<ClearVpicBit>},
    {TALVERO_DBG_VPIC_OP_BIT_ST, "TALVERO_DBG_VPIC_OP_BIT_ST", sizeof(BitBlock),
     Handle<TestVpicBit>},
    {TALVERO_DBG_VPIC_TR_TERM, "TALVERO_DBG_VPIC_TR_TERM", 0,
     Handle<TakeStep<Service::kVpic, kTerminate>>},
    {TALVERO_DBG_VPIC_TR_RST, "TALVERO_DBG_VPIC_TR_RST", 0,
     Handle<TakeStep<Service::kVpic, kReset>>},
    {TALVERO_DBG_VPIC_TR_I2C_SET, "TALVERO_DBG_VPIC_TR_I2C_SET", sizeof(I2cLineSetBlock),
     Handle<SetVpicLine>},
    {TALVERO_DBG_VPIC_TR_I2C_GET, "TALVERO_DBG_VPIC_TR_I2C_GET", sizeof(I2cLineGetBlock),
     Handle<GetVpicLine>},
    {TALVERO_DBG_SEQ_TR_INIT, "TALVERO_DBG_SEQ_TR_INIT", 0,
     Handle<TakeStep<Service::kSequencer, kInitialize>>},
    {TALVERO_DBG_SEQ_TR_TERM, "TALVERO_DBG_SEQ_TR_TERM", 0, Handle<TerminateSequencer>},
    {TALVERO_DBG_SEQ_TR_RST, "TALVERO_DBG_SEQ_TR_RST", 0,
     Handle<TakeStep<Service::kSequencer, kReset>>},
    {TALVERO_DBG_SEQ_TR_RGSTR, "TALVERO_DBG_SEQ_TR_RGSTR", sizeof(SequencerRegisterBlock),
     Handle<RegisterSequencer>},
    {TALVERO_DBG_SEQ_TR_UNREG, "TALVERO_DBG_SEQ_TR_UNREG", sizeof(SequencerUnregisterBlock),
     Handle<UnregisterSequencer>},
    {TALVERO_DBG_SEQ_TR_CRITENTER, "TALVERO_DBG_SEQ_TR_CRITENTER", 0, Handle<EnterCriticalSection>},
    {TALVERO_DBG_SEQ_TR_CRITLEAVE, "TALVERO_DBG_SEQ_TR_CRITLEAVE", 0, Handle<LeaveCriticalSection>},
    {TALVERO_DBG_SEQ_TR_ATOMENTER, "TALVERO_DBG_SEQ_TR_ATOMENTER", sizeof(AtomBlock),
     Handle<EnterAtomicSection>},
    {TALVERO_DBG_SEQ_TR_ATOMLEAVE, "TALVERO_DBG_SEQ_TR_ATOMLEAVE", sizeof(AtomBlock),
     Handle<LeaveAtomicSection>},
    {TALVERO_DBG_SEQ_OP_INTERRUPT, "TALVERO_DBG_SEQ_OP_INTERRUPT", sizeof(InterruptBlock),
     Handle<SimulateInterrupts>},
    {TALVERO_DBG_ISAC_OP_INITCHIP, "TALVERO_DBG_ISAC_OP_INITCHIP", sizeof(IsacChipBlock),
     Handle<InitializeIsacChip>},
    {TALVERO_DBG_ISAC_TR_INIT, "TALVERO_DBG_ISAC_TR_INIT", sizeof(IsacInitializeBlock),
     Handle<InitializeIsacDevice>},
    {TALVERO_DBG_ISAC_TR_TERM, "TALVERO_DBG_ISAC_TR_TERM", sizeof(DeviceBlock),
     Handle<TerminateIsacDevice>},
    {TALVERO_DBG_ISAC_TR_RST, "TALVERO_DBG_ISAC_TR_RST", sizeof(DeviceBlock),
     Handle<TakeDeviceStep<IsacDevice, kReset>>},
    {TALVERO_DBG_ISAC_TR_IOM2_ACTV, "TALVERO_DBG_ISAC_TR_IOM2_ACTV", 0,
     Handle<TakeIom2Step<kActivate>>},
    {TALVERO_DBG_ISAC_TR_IOM2_DEACT, "TALVERO_DBG_ISAC_TR_IOM2_DEACT", 0,
     Handle<TakeIom2Step<kDeactivate>>},
    {TALVERO_DBG_ISAC_TR_REG_RD, "TALVERO_DBG_ISAC_TR_REG_RD", sizeof(IsacRegisterReadBlock),
     Handle<ReadIsacRegister>},
    {TALVERO_DBG_ISAC_TR_REG_WR, "TALVERO_DBG_ISAC_TR_REG_WR", sizeof(IsacRegisterWriteBlock),
     Handle<WriteIsacRegister>},
    {TALVERO_DBG_ISAC_OP_BIT_SET, "TALVERO_DBG_ISAC_OP_BIT_SET", sizeof(BitBlock),
     Handle<SetIsacBit>},
    {TALVERO_DBG_ISAC_OP_BIT_CLR, "TALVERO_DBG_ISAC_OP_BIT_CLR", sizeof(BitBlock),
     Handle<ClearIsacBit>},
    {TALVERO_DBG_ISAC_OP_BIT_ST, "TALVERO_DBG_ISAC_OP_BIT_ST", sizeof(BitBlock),
     Handle<TestIsacBit>},
    {TALVERO_DBG_MON_TR_INIT, "TALVERO_DBG_MON_TR_INIT", sizeof(MonitorInitializeBlock),
     Handle<InitializeMonitorDevice>},
    {TALVERO_DBG_MON_TR_TERM, "TALVERO_DBG_MON_TR_TERM", sizeof(DeviceBlock),
     Handle<TakeDeviceStep<MonitorDevice, kTerminate>>},
    {TALVERO_DBG_MON_TR_RST, "TALVERO_DBG_MON_TR_RST", sizeof(DeviceBlock),
     Handle<TakeDeviceStep<MonitorDevice, kReset>>},
    {TALVERO_DBG_MON_TR_ACTV, "TALVERO_DBG_MON_TR_ACTV", sizeof(DeviceBlock),
     Handle<TakeDeviceStep<MonitorDevice, kActivate>>},
    {TALVERO_DBG_MON_TR_DEACT, "TALVERO_DBG_MON_TR_DEACT", sizeof(DeviceBlock),
     Handle<TakeDeviceStep<MonitorDevice, kDeactivate>>},
    {TALVERO_DBG_MON_TR_RCV, "TALVERO_DBG_MON_TR_RCV", sizeof(MonitorReceiveBlock),
     Handle<ReceiveMonitorBytes>},
    {TALVERO_DBG_ARCF_TR_INIT, "TALVERO_DBG_ARCF_TR_INIT", 0,
     Handle<TakeStep<Service::kArcofi, kInitialize>>},
    {TALVERO_DBG_ARCF_TR_TERM, "TALVERO_DBG_ARCF_TR_TERM", 0,
     Handle<TakeStep<Service::kArcofi, kTerminate>>},
    {TALVERO_DBG_ARCF_TR_RST, "TALVERO_DBG_ARCF_TR_RST", 0,
     Handle<TakeStep<Service::kArcofi, kReset>>},
    {TALVERO_DBG_ARCF_TR_ACTV, "TALVERO_DBG_ARCF_TR_ACTV", 0,
     Handle<TakeStep<Service::kArcofi, kActivate>>},
    {TALVERO_DBG_ARCF_TR_DEACT, "TALVERO_DBG_ARCF_TR_DEACT", 0,
     Handle<TakeStep<Service::kArcofi, kDeactivate>>},
    {TALVERO_DBG_ARCF_OP_INIT_SHADOW, "TALVERO_DBG_ARCF_OP_INIT_SHADOW", 0,
     Handle<InitializeArcofiShadow>},
    {TALVERO_DBG_SAEC_TR_INIT, "TALVERO_DBG_SAEC_TR_INIT", 0,
     Handle<TakeStep<Service::kSaec, kInitialize>>},
    {TALVERO_DBG_SAEC_TR_TERM, "TALVERO_DBG_SAEC_TR_TERM", 0,
     Handle<TakeStep<Service::kSaec, kTerminate>>},
    {TALVERO_DBG_SAEC_TR_RST, "TALVERO_DBG_SAEC_TR_RST", 0,
     Handle<TakeStep<Service::kSaec, kReset>>},
    {TALVERO_DBG_VCPXI_REGISTER, "TALVERO_DBG_VCPXI_REGISTER", sizeof(VcpxiRegisterBlock),
     Handle<RegisterCodecProcessor>},
    {TALVERO_DBG_VCPXI_UNREGISTER, "TALVERO_DBG_VCPXI_UNREGISTER", 0,
     Handle<UnregisterCodecProcessor>},
    {TALVERO_DBG_VCPXI_MULTIACCESS, "TALVERO_DBG_VCPXI_MULTIACCESS", sizeof(VcpxiTestBlock),
     Handle<TestCodecVariable>},
    {TALVERO_DBG_I2C_TR_RST, "TALVERO_DBG_I2C_TR_RST", 0, Handle<TakeStep<Service::kI2c, kReset>>},
    {TALVERO_DBG_CAM_DIGIT_TR_RST, "TALVERO_DBG_CAM_DIGIT_TR_RST", 0,
     Handle<TakeStep<Service::kDigitalCamera, kReset>>},
    {TALVERO_DBG_STREAM_TR_INIT, "TALVERO_DBG_STREAM_TR_INIT", 0,
     Handle<TakeStep<Service::kStream, kInitialize>>},
    {TALVERO_DBG_STREAM_TR_TERM, "TALVERO_DBG_STREAM_TR_TERM", 0, Handle<TerminateStreams>},
    {TALVERO_DBG_BT85X_OP_WR_STATE, "TALVERO_DBG_BT85X_OP_WR_STATE", sizeof(Bt85xStateWriteBlock),
     Handle<WriteEncoderState>},
    {TALVERO_DBG_BT85X_OP_RD_STATE, "TALVERO_DBG_BT85X_OP_RD_STATE", sizeof(Bt85xStateReadBlock),
     Handle<ReadEncoderState>},
    {TALVERO_DBG_BT85X_OP_WR_PORT, "TALVERO_DBG_BT85X_OP_WR_PORT", sizeof(Bt85xPortWriteBlock),
     Handle<WriteEncoderPort>},
    {TALVERO_DBG_BT85X_OP_RD_PORT, "TALVERO_DBG_BT85X_OP_RD_PORT", sizeof(Bt85xPortReadBlock),
     Handle<ReadEncoderPort>},
    {TALVERO_DBG_BT85X_OP_RESET, "TALVERO_DBG_BT85X_OP_RESET", 0,
     Handle<TakeStep<Service::kBt85x, kReset>>},
});

}  // namespace

const DebugCommand* FindDebugCommand(uint32_t number) {
    const auto found =
        std::find_if(kCommands.begin(), kCommands.end(),
                     [number](const DebugCommand& command) { return command.number == number; });
    return found == kCommands.end() ? nullptr : &*found;
}

}  // namespace board
