// The exports of PAPI: each one a frame around what the simulated board does.
#include "driver/papi.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <span>

#include "board/arcofi.h"
#include "board/call.h"
#include "board/debug_channel.h"
#include "board/eeprom.h"
#include "board/firmware.h"
#include "board/i2c_bus.h"
#include "board/jade.h"
#include "board/life_cycle.h"
#include "board/operation.h"
#include "board/services.h"
#include "board/settings.h"
#include "board/state.h"
#include "board/vpic.h"
#include "driver/result_code.h"

using namespace board;

namespace {

// How many bytes callers hand in by address.
constexpr uint32_t kEpromBytes = 8;
constexpr uint32_t kMostI2cItems = 256;
constexpr size_t kBasBytes = 6;
constexpr size_t kVppParameters = 6;
constexpr size_t kPaletteEntries = 256;
constexpr size_t kOverlayEntries = 16;

// A transfer's size is a 16-bit quantity.
size_t VariableBytes(uint32_t unitSize, int32_t count) {
    constexpr uint64_t kMost = 0xFFFF;
    return count <= 0 ? 0 : static_cast<size_t>(std::min(kMost, uint64_t{unitSize} * count));
}

// An operation that needs the library open and a board.
template <typename Work>
uint32_t OnBoard(Call call, Work work, void (*refused)(State&) = nullptr) {
    return Perform(std::move(call), kPapiOpen | kBoard, work, refused);
}

// The same for one that also needs a service to be up.
template <typename Work>
uint32_t OnService(Service service, Call call, Work work) {
    return OnBoard(std::move(call), [=](State& state) -> ResultCode {
        const ResultCode code = NeedUp(state, service);
        return code == VXD_SUCCESS ? work(state) : code;
    });
}

// Reads into a caller's output, which must be there and is written only on success.
template <typename Output, typename Read>
ResultCode ReadInto(const State& state, Output* output, Read read) {
    if (!output) {
        return VXD_INVALID_PARAMETER;
    }
    uint32_t value = 0;
    const ResultCode code = read(value);
    if (code == VXD_SUCCESS) {
        state.Give(*output, value);
    }
    return code;
}

}  // namespace

// --- Library ---

uint32_t WINAPI vdapi_Initialize(uint32_t reserved) {
    return Perform({"vdapi_Initialize", {reserved}}, kNothing, [](State& state) {
        ReadSettings(state);
        return Open(state.papiOpen);
    });
}

uint32_t WINAPI vdapi_Terminate() {
    return Close({"vdapi_Terminate"}, kPapiOpen, [](State& state) { state.papiOpen = false; });
}

uint32_t WINAPI vdapi_GetVersion(uint16_t* boardRevision, uint8_t* vpicRevision,
                                 uint16_t* driverRevision, uint8_t* jadeRevision) {
    return OnBoard(
        {"vdapi_GetVersion", {boardRevision, vpicRevision, driverRevision, jadeRevision}},
        [=](State& state) {
            if (!boardRevision || !vpicRevision || !driverRevision || !jadeRevision) {
                return VXD_INVALID_PARAMETER;
            }
            state.Give(*boardRevision, state.revisions.board);
            state.Give(*vpicRevision, state.revisions.vpic);
            state.Give(*driverRevision, state.revisions.driver);
            state.Give(*jadeRevision, state.revisions.jade);
            return VXD_SUCCESS;
        });
}

uint32_t WINAPI vdapi_ResetVxD() {
    return OnBoard({"vdapi_ResetVxD"}, [](State& state) {
        state.RestartDriver();
        return VXD_SUCCESS;
    });
}

// --- Debug channel (older board) ---

uint32_t WINAPI vdapi_Debug(uint32_t command, uint32_t size, void* block) {
    const DebugCommand* known = FindDebugCommand(command);
    // Of a block no more is looked at than both sides agree on.
    const size_t bytes = known ? std::min<size_t>(size, known->blockSize) : 0;
    return OnBoard(
        {"vdapi_Debug", {command, size, block}, BytesAt(block, bytes), known ? known->name : ""},
        [=](State& state) {
            if (!known) {
                return VXD_INVALID_DEBUG_COMMAND_ID;
            }
            if (size != known->blockSize || (size != 0 && !block)) {
                return VXD_INVALID_PARAMETER;
            }
            return known->handle ? known->handle(state, block) : NotYetSimulated(state);
        });
}

// --- Firmware (newer board) ---

uint32_t WINAPI vdapi_SendCommand(uint32_t command, uint32_t parameter1, uint32_t parameter2,
                                  uint32_t parameter3, uint32_t* response1, uint32_t* response2,
                                  uint16_t* response3) {
    const FirmwareCommand* known = FindFirmwareCommand(command);
    return OnBoard({"vdapi_SendCommand",
                    {command, parameter1, parameter2, parameter3, response1, response2, response3},
                    {},
                    known ? known->name : ""},
                   [=](State& state) {
                       if (!known) {
                           return VXD_OPERATION_NOT_SUPPORTED;
                       }
                       if (!response1 || !response2 || !response3) {
                           return VXD_INVALID_PARAMETER;
                       }
                       FirmwareResponses responses;
                       const ResultCode code =
                           known->run(state, {parameter1, parameter2, parameter3}, responses);
                       if (code == VXD_SUCCESS) {
                           state.Give(*response1, responses.first);
                           state.Give(*response2, responses.second);
                           state.Give(*response3, responses.third);
                       }
                       return code;
                   });
}

uint32_t WINAPI vdapi_GetModuleDebugLevel(uint32_t module, uint16_t* level) {
    return OnBoard({"vdapi_GetModuleDebugLevel", {module, level}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_SetModuleDebugLevel(uint32_t module, uint32_t level) {
    return OnBoard({"vdapi_SetModuleDebugLevel", {module, level}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_Stream_Open(uint32_t stream, uint32_t reserved1, uint32_t reserved2) {
    return OnBoard({"vdapi_Stream_Open", {stream, reserved1, reserved2}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_Stream_Close(uint32_t stream) {
    return OnBoard({"vdapi_Stream_Close", {stream}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_GetBandwidth(int32_t* bandwidth) {
    return OnBoard({"vdapi_GetBandwidth", {bandwidth}}, NotYetSimulated);
}

// --- Bus interface and interrupt controller (VPIC) ---

uint32_t WINAPI vdapi_VPIC_ReadPort(uint32_t port, uint32_t* value) {
    return OnBoard({"vdapi_VPIC_ReadPort", {port, value}}, [=](State& state) {
        return ReadInto(state, value,
                        [&](uint32_t& read) { return ReadVpicPort(state, port, read); });
    });
}

uint32_t WINAPI vdapi_VPIC_WritePort(uint32_t port, const uint32_t* value) {
    return OnBoard(
        {"vdapi_VPIC_WritePort", {port, value}, BytesAt(value, sizeof *value)}, [=](State& state) {
            return value ? state.hardware.vpic.Write(port, *value) : VXD_INVALID_PARAMETER;
        });
}

// --- Auxiliary device ---

uint32_t WINAPI vdapi_AUXDEV_Initialize() {
    return OnBoard(
        {"vdapi_AUXDEV_Initialize"},
        [](State& state) { return state.auxiliaryDevice.Initialize(); },
        [](State& state) { state.auxiliaryDevice.FailToInitialize(); });
}

uint32_t WINAPI vdapi_AUXDEV_Terminate() {
    return OnBoard({"vdapi_AUXDEV_Terminate"},
                   [](State& state) { return state.auxiliaryDevice.Terminate(); });
}

uint32_t WINAPI vdapi_AUXDEV_HardwareReset() {
    return OnBoard({"vdapi_AUXDEV_HardwareReset"}, [](State& state) {
        if (!state.auxiliaryDevice.IsUp()) {
            return VXD_CONFIGURATION_NOT_SET;
        }
        state.PowerOn();
        return VXD_SUCCESS;
    });
}

uint32_t WINAPI vdapi_AUXDEV_Activate(uint32_t feature) {
    return OnBoard({"vdapi_AUXDEV_Activate", {feature}},
                   [=](State& state) { return state.auxiliaryDevice.Switch(feature, true); });
}

uint32_t WINAPI vdapi_AUXDEV_Deactivate(uint32_t feature) {
    return OnBoard({"vdapi_AUXDEV_Deactivate", {feature}},
                   [=](State& state) { return state.auxiliaryDevice.Switch(feature, false); });
}

uint32_t WINAPI vdapi_AUXDEV_GetFeature(uint32_t feature, uint16_t* value) {
    return OnBoard({"vdapi_AUXDEV_GetFeature", {feature, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& active) {
            return state.auxiliaryDevice.Test(feature, active);
        });
    });
}

uint32_t WINAPI vdapi_AUXDEV_SetField(uint32_t field, uint32_t value) {
    return OnBoard({"vdapi_AUXDEV_SetField", {field, value}},
                   [=](State& state) { return state.auxiliaryDevice.SetField(field, value); });
}

uint32_t WINAPI vdapi_AUXDEV_GetField(uint32_t field, uint16_t* value) {
    return OnBoard({"vdapi_AUXDEV_GetField", {field, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& read) {
            return state.auxiliaryDevice.IsUp() ? ReadAuxiliaryField(state, field, read)
                                                : VXD_CONFIGURATION_NOT_SET;
        });
    });
}

// --- I2C bus ---

uint32_t WINAPI vdapi_I2C_Initialize() {
    return OnBoard({"vdapi_I2C_Initialize"}, TakeStep<Service::I2c, kInitialize>);
}

uint32_t WINAPI vdapi_I2C_Terminate() {
    return OnBoard({"vdapi_I2C_Terminate"}, TakeStep<Service::I2c, kTerminate>);
}

uint32_t WINAPI vdapi_I2C_Transfer(const uint16_t* items, uint32_t count, uint32_t* result) {
    // More items than any transfer has can only be a mistake, and are not looked at.
    const std::span<const uint16_t> known(items, items && count <= kMostI2cItems ? count : 0);
    return OnService(
        Service::I2c,
        {"vdapi_I2C_Transfer", {items, count, result}, BytesAt(items, known.size_bytes())},
        [=](State& state) {
            const ResultCode code = state.hardware.i2cBus.Transfer(known, result);
            if (code == VXD_SUCCESS && known.back() == I2cBus::kReadByte) {
                state.Give(*result, *result);
            }
            return code;
        });
}

// --- Memory and I/O ports ---

uint32_t WINAPI vdapi_MEM_Read(uint32_t address, uint32_t unitSize, uint32_t* value) {
    return OnBoard({"vdapi_MEM_Read", {address, unitSize, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& read) {
            return state.hardware.memory.Read(address, unitSize, read);
        });
    });
}

uint32_t WINAPI vdapi_MEM_Write(uint32_t address, uint32_t unitSize, uint32_t value) {
    return OnBoard({"vdapi_MEM_Write", {address, unitSize, value}}, [=](State& state) {
        return state.hardware.memory.Write(address, unitSize, value);
    });
}

uint32_t WINAPI vdapi_IO_Read(uint32_t port, uint32_t unitSize, uint32_t* value) {
    return OnBoard({"vdapi_IO_Read", {port, unitSize, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& read) {
            return state.hardware.ports.Read(port, unitSize, read);
        });
    });
}

uint32_t WINAPI vdapi_IO_Write(uint32_t port, uint32_t unitSize, uint32_t value) {
    return OnBoard({"vdapi_IO_Write", {port, unitSize, value}},
                   [=](State& state) { return state.hardware.ports.Write(port, unitSize, value); });
}

// --- Cameras ---

uint32_t WINAPI vdapi_CAM_Digit_Initialize() {
    return OnBoard({"vdapi_CAM_Digit_Initialize"}, TakeStep<Service::DigitalCamera, kInitialize>);
}

uint32_t WINAPI vdapi_CAM_Digit_Terminate() {
    return OnBoard({"vdapi_CAM_Digit_Terminate"}, TakeStep<Service::DigitalCamera, kTerminate>);
}

uint32_t WINAPI vdapi_CAM_Digit_Read(uint32_t registerId, uint8_t* value) {
    return OnService(
        Service::DigitalCamera, {"vdapi_CAM_Digit_Read", {registerId, value}}, [=](State& state) {
            return ReadInto(state, value, [&](uint32_t& read) {
                return state.hardware.i2cBus.Read(kDigitalCamera, CameraRegister(registerId), read);
            });
        });
}

uint32_t WINAPI vdapi_CAM_Digit_Write(uint32_t registerId, uint32_t value) {
    return OnService(
        Service::DigitalCamera, {"vdapi_CAM_Digit_Write", {registerId, value}}, [=](State& state) {
            return state.hardware.i2cBus.Write(kDigitalCamera, CameraRegister(registerId), value);
        });
}

uint32_t WINAPI vdapi_CAM_ACIF_Initialize() {
    return OnBoard({"vdapi_CAM_ACIF_Initialize"}, TakeStep<Service::AnalogCamera, kInitialize>);
}

uint32_t WINAPI vdapi_CAM_ACIF_Terminate() {
    return OnBoard({"vdapi_CAM_ACIF_Terminate"}, TakeStep<Service::AnalogCamera, kTerminate>);
}

uint32_t WINAPI vdapi_CAM_ACIF_Read(uint32_t registerId, uint8_t* value) {
    return OnService(
        Service::AnalogCamera, {"vdapi_CAM_ACIF_Read", {registerId, value}}, [=](State& state) {
            return ReadInto(state, value, [&](uint32_t& read) {
                return state.hardware.i2cBus.Read(kVideoDecoder, CameraRegister(registerId), read);
            });
        });
}

uint32_t WINAPI vdapi_CAM_ACIF_Write(uint32_t registerId, uint32_t value) {
    return OnService(
        Service::AnalogCamera, {"vdapi_CAM_ACIF_Write", {registerId, value}}, [=](State& state) {
            return state.hardware.i2cBus.Write(kVideoDecoder, CameraRegister(registerId), value);
        });
}

// --- ARCOFI audio codec ---

uint32_t WINAPI vdapi_ARCOFI_Read(uint32_t id, uint8_t* buffer) {
    return OnService(Service::Arcofi, {"vdapi_ARCOFI_Read", {id, buffer}}, [=](State& state) {
        const ResultCode code = state.hardware.arcofi.Read(id, buffer);
        for (size_t i = 0; code == VXD_SUCCESS && i < Arcofi::ByteCount(id); ++i) {
            state.Give(buffer[i], buffer[i]);
        }
        return code;
    });
}

uint32_t WINAPI vdapi_ARCOFI_Write(uint32_t id, const uint8_t* buffer) {
    return OnService(Service::Arcofi,
                     {"vdapi_ARCOFI_Write", {id, buffer}, BytesAt(buffer, Arcofi::ByteCount(id))},
                     [=](State& state) { return state.hardware.arcofi.Write(id, buffer); });
}

uint32_t WINAPI vdapi_ARCOFI_SelectChannel(uint32_t channelCode) {
    return OnBoard({"vdapi_ARCOFI_SelectChannel", {channelCode}},
                   [=](State& state) { return SelectArcofiChannel(state, channelCode); });
}

// --- Echo cancellers ---

uint32_t WINAPI vdapi_SAEC_Read(uint32_t registerId, uint32_t* value) {
    return OnService(Service::Saec, {"vdapi_SAEC_Read", {registerId, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& read) {
            return state.hardware.saec.Read(registerId, GetTickCount(), read);
        });
    });
}

uint32_t WINAPI vdapi_SAEC_Write(uint32_t registerId, const uint32_t* value) {
    return OnService(
        Service::Saec, {"vdapi_SAEC_Write", {registerId, value}, BytesAt(value, sizeof *value)},
        [=](State& state) {
            return value ? state.hardware.saec.Write(registerId, *value) : VXD_INVALID_PARAMETER;
        });
}

uint32_t WINAPI vdapi_AEC_Initialize() {
    return OnBoard({"vdapi_AEC_Initialize"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_AEC_Terminate() {
    return OnBoard({"vdapi_AEC_Terminate"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_AEC_SetMode(uint32_t code) {
    return OnBoard({"vdapi_AEC_SetMode", {code}}, NotYetSimulated);
}

// --- AKM audio codec ---

uint32_t WINAPI vdapi_AKM_ReadRegister(uint32_t registerNumber, uint8_t* value) {
    return OnBoard({"vdapi_AKM_ReadRegister", {registerNumber, value}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_AKM_WriteRegister(uint32_t registerNumber, uint32_t value) {
    return OnBoard({"vdapi_AKM_WriteRegister", {registerNumber, value}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_AKM_SetSwitch(uint32_t switchNumber, uint32_t on) {
    return OnBoard({"vdapi_AKM_SetSwitch", {switchNumber, on}}, NotYetSimulated);
}

// --- JADE ---

uint32_t WINAPI vdapi_JADE_Reset(uint32_t code) {
    return OnBoard({"vdapi_JADE_Reset", {code}},
                   [=](State& state) { return ResetJade(state, code); });
}

uint32_t WINAPI vdapi_JADE_Read(uint32_t registerNumber, uint32_t* value) {
    return OnBoard({"vdapi_JADE_Read", {registerNumber, value}}, [=](State& state) {
        return ReadInto(state, value,
                        [&](uint32_t& read) { return ReadJade(state, registerNumber, read); });
    });
}

uint32_t WINAPI vdapi_JADE_Write(uint32_t registerNumber, uint32_t value) {
    return OnBoard({"vdapi_JADE_Write", {registerNumber, value}},
                   [=](State& state) { return state.hardware.jade.Write(registerNumber, value); });
}

// --- EEPROM ---

uint32_t WINAPI vdapi_EPROM_Initialize() {
    return OnBoard({"vdapi_EPROM_Initialize"}, TakeStep<Service::Eprom, kInitialize>);
}

uint32_t WINAPI vdapi_EPROM_Terminate() {
    return OnBoard({"vdapi_EPROM_Terminate"}, TakeStep<Service::Eprom, kTerminate>);
}

uint32_t WINAPI vdapi_EPROM_Read(uint32_t address, uint8_t* buffer, uint32_t length,
                                 uint32_t constant) {
    return OnService(Service::Eprom, {"vdapi_EPROM_Read", {address, buffer, length, constant}},
                     [=](State& state) { return StartEepromRead(state, address, buffer, length); });
}

uint32_t WINAPI vdapi_EPROM_Write(uint32_t address, const uint8_t* buffer, uint32_t length,
                                  uint32_t constant) {
    return OnService(
        Service::Eprom,
        {"vdapi_EPROM_Write",
         {address, buffer, length, constant},
         BytesAt(buffer, std::min(length, kEpromBytes))},
        [=](State& state) { return StartEepromWrite(state, address, buffer, length); });
}

// --- Codec processor (VCPXi) ---

uint32_t WINAPI vdapi_VCPXI_VCPVariable_GetValue(const char* name, uint32_t unitSize, int32_t count,
                                                 void* buffer, uint32_t constant) {
    return OnBoard({"vdapi_VCPXI_VCPVariable_GetValue", {name, unitSize, count, buffer, constant}},
                   NotYetSimulated);
}

uint32_t WINAPI vdapi_VCPXI_VCPVariable_SetValue(const char* name, uint32_t unitSize, int32_t count,
                                                 const void* buffer, uint32_t constant) {
    return OnBoard({"vdapi_VCPXI_VCPVariable_SetValue",
                    {name, unitSize, count, buffer, constant},
                    BytesAt(buffer, VariableBytes(unitSize, count))},
                   NotYetSimulated);
}

uint32_t WINAPI vdapi_VcpCode_Download(const char* monitorPath, const char* codecPath,
                                       const char* vcpIniPath, const char* vpCodePath,
                                       uint32_t sectionCount, const char* const* sections) {
    return OnBoard({"vdapi_VcpCode_Download",
                    {monitorPath, codecPath, vcpIniPath, vpCodePath, sectionCount, sections}},
                   NotYetSimulated);
}

// --- Video inlay and post-processing ---

uint32_t WINAPI vdapi_VIDINLAY_SetFrameDispMode(uint32_t mode) {
    return OnBoard({"vdapi_VIDINLAY_SetFrameDispMode", {mode}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_VPP_Initialize() {
    return OnBoard({"vdapi_VPP_Initialize"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_VPP_Terminate() {
    return OnBoard({"vdapi_VPP_Terminate"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_VPP_Activate() {
    return OnBoard({"vdapi_VPP_Activate"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_VPP_Deactivate() {
    return OnBoard({"vdapi_VPP_Deactivate"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_VPP_SetMode(uint32_t modeWord, const uint32_t* parameters) {
    return OnBoard({"vdapi_VPP_SetMode",
                    {modeWord, parameters},
                    BytesAt(parameters, kVppParameters * sizeof *parameters)},
                   NotYetSimulated);
}

// --- Video encoder (BT855, BT858) and palettes ---

uint32_t WINAPI vdapi_BT85X_Initialize() {
    return OnBoard({"vdapi_BT85X_Initialize"}, TakeStep<Service::Bt85x, kInitialize>);
}

uint32_t WINAPI vdapi_BT85X_Terminate() {
    return OnBoard({"vdapi_BT85X_Terminate"}, TakeStep<Service::Bt85x, kTerminate>);
}

uint32_t WINAPI vdapi_BT85X_Reset() {
    return OnBoard({"vdapi_BT85X_Reset"}, TakeStep<Service::Bt85x, kReset>);
}

uint32_t WINAPI vdapi_BT85X_SetDisplayType(uint32_t type) {
    return OnBoard({"vdapi_BT85X_SetDisplayType", {type}},
                   [=](State& state) { return SetDisplayType(state, type); });
}

uint32_t WINAPI vdapi_BT85X_WriteCtrlRegister(uint32_t encoder, uint32_t fieldId, uint32_t value) {
    return OnBoard({"vdapi_BT85X_WriteCtrlRegister", {encoder, fieldId, value}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_ReadCtrlRegister(uint32_t encoder, uint32_t fieldId, uint32_t* value) {
    return OnBoard({"vdapi_BT85X_ReadCtrlRegister", {encoder, fieldId, value}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_WriteToPalette(uint32_t entry, uint32_t colour) {
    return OnBoard({"vdapi_BT85X_WriteToPalette", {entry, colour}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_ReadFromPalette(uint32_t entry, uint32_t* colour) {
    return OnBoard({"vdapi_BT85X_ReadFromPalette", {entry, colour}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_DownloadPalette(const uint32_t* table) {
    return OnBoard(
        {"vdapi_BT85X_DownloadPalette", {table}, BytesAt(table, kPaletteEntries * sizeof *table)},
        NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_RetrievePalette(uint32_t* table) {
    return OnBoard({"vdapi_BT85X_RetrievePalette", {table}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_WriteToOverlay(uint32_t constant, uint32_t entry, uint32_t colour) {
    return OnBoard({"vdapi_BT85X_WriteToOverlay", {constant, entry, colour}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_ReadFromOverlay(uint32_t constant, uint32_t entry, uint32_t* colour) {
    return OnBoard({"vdapi_BT85X_ReadFromOverlay", {constant, entry, colour}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_DownloadOverlay(uint32_t constant, const uint32_t* table) {
    return OnBoard({"vdapi_BT85X_DownloadOverlay",
                    {constant, table},
                    BytesAt(table, kOverlayEntries * sizeof *table)},
                   NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_RetrieveOverlay(uint32_t constant, uint32_t* table) {
    return OnBoard({"vdapi_BT85X_RetrieveOverlay", {constant, table}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_WritePixelMask(uint32_t constant, uint32_t mask) {
    return OnBoard({"vdapi_BT85X_WritePixelMask", {constant, mask}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BT85X_ReadPixelMask(uint32_t constant, uint32_t* mask) {
    return OnBoard({"vdapi_BT85X_ReadPixelMask", {constant, mask}}, NotYetSimulated);
}

// --- MBE data channel ---

uint32_t WINAPI vdapi_MBE_Initialize(uint32_t channel, uint32_t capacity) {
    return OnBoard({"vdapi_MBE_Initialize", {channel, capacity}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_MBE_Terminate() {
    return OnBoard({"vdapi_MBE_Terminate"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_MBE_RegisterOutgoingStream() {
    return OnBoard({"vdapi_MBE_RegisterOutgoingStream"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_MBE_Read(void* buffer, uint16_t* length, uint32_t* scratch) {
    return OnBoard({"vdapi_MBE_Read", {buffer, length, scratch}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_MBE_Write(const char* text, uint32_t constant, uint32_t length,
                                uint32_t terminator) {
    return OnBoard({"vdapi_MBE_Write", {text, constant, length, terminator}}, NotYetSimulated);
}

// --- BAS ---

uint32_t WINAPI vdapi_BAS_Initialize() {
    return OnBoard({"vdapi_BAS_Initialize"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BAS_Terminate() {
    return OnBoard({"vdapi_BAS_Terminate"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_BAS_Write(int32_t commandCount, int32_t repeatCount, const uint8_t* data,
                                int32_t length) {
    return OnBoard(
        {"vdapi_BAS_Write", {commandCount, repeatCount, data, length}, BytesAt(data, kBasBytes)},
        NotYetSimulated);
}

// --- Annex-D ---

uint32_t WINAPI vdapi_ANNEXD_Initialize() {
    return OnBoard({"vdapi_ANNEXD_Initialize"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_ANNEXD_Terminate() {
    return OnBoard({"vdapi_ANNEXD_Terminate"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_ANNEXD_Download(uint32_t constant, uint32_t size, void* buffer,
                                      uint32_t* byteCount) {
    return OnBoard({"vdapi_ANNEXD_Download", {constant, size, buffer, byteCount}}, NotYetSimulated);
}
