// The parameter blocks of the debug channel, vdapi_Debug: sequences of 32-bit slots, little-endian.
// A slot holds a value in its low part (what is left of the slot is sent as zero) or the 32-bit
// address of a location that the driver reads or fills before the call returns.
#pragma once

#include <cstddef>
#include <cstdint>

#include "driver/slot.h"

// A slot whose low part holds a value of fewer than 32 bits.
template <typename Value>
struct alignas(Slot) ValueSlot {
    constexpr ValueSlot(Value initial = 0) : value(initial) {}

    Value value;
    uint8_t unused[sizeof(Slot) - sizeof(Value)]{};
};
using ByteSlot = ValueSlot<uint8_t>;
using WordSlot = ValueSlot<uint16_t>;
static_assert(sizeof(ByteSlot) == 4 && sizeof(WordSlot) == 4);

// TALVERO_DBG_PCI_OP_BIOS_PRST
struct PciBiosPresentBlock {
    Slot hardwareMechanism;  // uint8_t, out
    Slot interfaceVersion;   // uint16_t, out
    Slot lastBus;            // uint8_t, out
};
static_assert(sizeof(PciBiosPresentBlock) == 12);
static_assert(offsetof(PciBiosPresentBlock, interfaceVersion) == 4);
static_assert(offsetof(PciBiosPresentBlock, lastBus) == 8);

// TALVERO_DBG_PCI_OP_FINDDEV
struct PciFindDeviceBlock {
    WordSlot deviceId;
    WordSlot vendorId;
    WordSlot index;
    Slot bus;                // uint8_t, out
    Slot deviceAndFunction;  // uint8_t, out
};
static_assert(sizeof(PciFindDeviceBlock) == 20);
static_assert(offsetof(PciFindDeviceBlock, vendorId) == 4);
static_assert(offsetof(PciFindDeviceBlock, index) == 8);
static_assert(offsetof(PciFindDeviceBlock, bus) == 12);
static_assert(offsetof(PciFindDeviceBlock, deviceAndFunction) == 16);

// TALVERO_DBG_PCI_OP_FIND_CLS_CODE
struct PciFindClassCodeBlock {
    uint32_t classCode;
    WordSlot index;
    Slot bus;                // uint8_t, out
    Slot deviceAndFunction;  // uint8_t, out
};
static_assert(sizeof(PciFindClassCodeBlock) == 16);
static_assert(offsetof(PciFindClassCodeBlock, index) == 4);
static_assert(offsetof(PciFindClassCodeBlock, bus) == 8);
static_assert(offsetof(PciFindClassCodeBlock, deviceAndFunction) == 12);

// The access that PciReadConfigBlock asks for: its width.
enum : uint8_t {
    PCI_READ_CONFIG_BYTE = 8,
    PCI_READ_CONFIG_WORD = 9,
    PCI_READ_CONFIG_DWORD = 10,
};

// TALVERO_DBG_PCI_OP_RD_CNFG_SPACE
struct PciReadConfigBlock {
    ByteSlot access;
    ByteSlot bus;
    ByteSlot deviceAndFunction;
    ByteSlot registerNumber;
    Slot result;  // uint32_t, out
};
static_assert(sizeof(PciReadConfigBlock) == 20);
static_assert(offsetof(PciReadConfigBlock, bus) == 4);
static_assert(offsetof(PciReadConfigBlock, deviceAndFunction) == 8);
static_assert(offsetof(PciReadConfigBlock, registerNumber) == 12);
static_assert(offsetof(PciReadConfigBlock, result) == 16);

// TALVERO_DBG_CORE_TR_DUMP_GDS
struct GdsDumpBlock {
    uint32_t module;  // 0xFFFFFFFF: all modules
};
static_assert(sizeof(GdsDumpBlock) == 4);

// TALVERO_DBG_VPIC_OP_BIT_SET, _CLR and _ST; TALVERO_DBG_ISAC_OP_BIT_SET, _CLR and _ST
struct BitBlock {
    WordSlot chip;  // an ISAC's chip code; 0 for the VPIC
    uint32_t bit;
};
static_assert(sizeof(BitBlock) == 8);
static_assert(offsetof(BitBlock, bit) == 4);

// The VPIC's two I2C lines, as the line blocks number them.
enum : uint16_t {
    VPIC_I2C_LINE_CLOCK = 1,
    VPIC_I2C_LINE_DATA = 2,
};

// TALVERO_DBG_VPIC_TR_I2C_SET
struct I2cLineSetBlock {
    WordSlot line;
    WordSlot level;  // 0 or 1
};
static_assert(sizeof(I2cLineSetBlock) == 8);
static_assert(offsetof(I2cLineSetBlock, level) == 4);

// TALVERO_DBG_VPIC_TR_I2C_GET
struct I2cLineGetBlock {
    WordSlot line;
    Slot level;  // uint16_t, out
};
static_assert(sizeof(I2cLineGetBlock) == 8);
static_assert(offsetof(I2cLineGetBlock, level) == 4);

// TALVERO_DBG_SEQ_TR_RGSTR
struct SequencerRegisterBlock {
    WordSlot reserved;      // 0
    uint32_t registration;  // from KORA_DLL_GetSeqHandle
};
static_assert(sizeof(SequencerRegisterBlock) == 8);
static_assert(offsetof(SequencerRegisterBlock, registration) == 4);

// TALVERO_DBG_SEQ_TR_UNREG
struct SequencerUnregisterBlock {
    WordSlot reserved;  // 0
};
static_assert(sizeof(SequencerUnregisterBlock) == 4);

// TALVERO_DBG_SEQ_TR_ATOMENTER and _ATOMLEAVE
struct AtomBlock {
    WordSlot device;
};
static_assert(sizeof(AtomBlock) == 4);

// TALVERO_DBG_SEQ_OP_INTERRUPT
struct InterruptBlock {
    uint32_t mask;  // one bit per interrupt source
};
static_assert(sizeof(InterruptBlock) == 4);

// TALVERO_DBG_ISAC_OP_INITCHIP
struct IsacChipBlock {
    WordSlot chip;  // 1, 6 or 9
};
static_assert(sizeof(IsacChipBlock) == 4);

// TALVERO_DBG_ISAC_TR_INIT
struct IsacInitializeBlock {
    WordSlot device;
    uint32_t registration;  // from KORA_DLL_GetIsacHandle
    ByteSlot initializeChip;
};
static_assert(sizeof(IsacInitializeBlock) == 12);
static_assert(offsetof(IsacInitializeBlock, registration) == 4);
static_assert(offsetof(IsacInitializeBlock, initializeChip) == 8);

// TALVERO_DBG_ISAC_TR_TERM and _RST; TALVERO_DBG_MON_TR_TERM, _RST, _ACTV and _DEACT
struct DeviceBlock {
    WordSlot device;
};
static_assert(sizeof(DeviceBlock) == 4);

// TALVERO_DBG_ISAC_TR_REG_RD
struct IsacRegisterReadBlock {
    WordSlot chip;
    uint32_t registerId;
    Slot value;  // uint8_t, out
};
static_assert(sizeof(IsacRegisterReadBlock) == 12);
static_assert(offsetof(IsacRegisterReadBlock, registerId) == 4);
static_assert(offsetof(IsacRegisterReadBlock, value) == 8);

// TALVERO_DBG_ISAC_TR_REG_WR
struct IsacRegisterWriteBlock {
    WordSlot chip;
    uint32_t registerId;
    ByteSlot value;
};
static_assert(sizeof(IsacRegisterWriteBlock) == 12);
static_assert(offsetof(IsacRegisterWriteBlock, registerId) == 4);
static_assert(offsetof(IsacRegisterWriteBlock, value) == 8);

// TALVERO_DBG_MON_TR_INIT
struct MonitorInitializeBlock {
    WordSlot device;
    uint32_t registration;  // from KORA_DLL_GetMonitorHandle
    uint32_t initializeChip;
};
static_assert(sizeof(MonitorInitializeBlock) == 12);
static_assert(offsetof(MonitorInitializeBlock, registration) == 4);
static_assert(offsetof(MonitorInitializeBlock, initializeChip) == 8);

// TALVERO_DBG_MON_TR_RCV. The received bytes arrive after the call has returned, so the receive
// buffer must stay for the whole run.
struct MonitorReceiveBlock {
    WordSlot request;  // 0x0101
    Slot transmitData;
    WordSlot transmitCount;  // 2
    Slot receiveBuffer;      // three bytes, out
};
static_assert(sizeof(MonitorReceiveBlock) == 16);
static_assert(offsetof(MonitorReceiveBlock, transmitData) == 4);
static_assert(offsetof(MonitorReceiveBlock, transmitCount) == 8);
static_assert(offsetof(MonitorReceiveBlock, receiveBuffer) == 12);

// TALVERO_DBG_VCPXI_REGISTER
struct VcpxiRegisterBlock {
    uint32_t reserved[2];  // zeros
};
static_assert(sizeof(VcpxiRegisterBlock) == 8);

// TALVERO_DBG_VCPXI_MULTIACCESS
struct VcpxiTestBlock {
    Slot name;  // zero-ended text
    uint32_t value;
    WordSlot repeatCount;
};
static_assert(sizeof(VcpxiTestBlock) == 12);
static_assert(offsetof(VcpxiTestBlock, value) == 4);
static_assert(offsetof(VcpxiTestBlock, repeatCount) == 8);

// TALVERO_DBG_BT85X_OP_WR_STATE
struct Bt85xStateWriteBlock {
    ByteSlot state;
};
static_assert(sizeof(Bt85xStateWriteBlock) == 4);

// TALVERO_DBG_BT85X_OP_RD_STATE
struct Bt85xStateReadBlock {
    Slot state;  // uint32_t, out
};
static_assert(sizeof(Bt85xStateReadBlock) == 4);

// TALVERO_DBG_BT85X_OP_WR_PORT
struct Bt85xPortWriteBlock {
    WordSlot encoder;  // 0 BT855, 1 BT858
    ByteSlot value;
};
static_assert(sizeof(Bt85xPortWriteBlock) == 8);
static_assert(offsetof(Bt85xPortWriteBlock, value) == 4);

// TALVERO_DBG_BT85X_OP_RD_PORT
struct Bt85xPortReadBlock {
    WordSlot encoder;
    Slot value;  // uint32_t, out
};
static_assert(sizeof(Bt85xPortReadBlock) == 8);
static_assert(offsetof(Bt85xPortReadBlock, value) == 4);
