// The board command library PAPI: the operations of the board's chips and services, the debug
// channel of the older board and the firmware commands of the newer one. Valid in C and in C++.
//
// Every operation is called synchronously on the user-interface thread. Values of 8 and 16 bits are
// widened to 32. An output is written only on success. The result's low half is a result code
// (driver/result_code.h), 0 for success; the upper half carries nothing.
#pragma once

#include <stdint.h>

#include "platform/win32.h"

#ifdef __cplusplus
extern "C" {
#endif

// --- Library ---

// Opens the library; the argument is 0. Everything else answers VXD_CONFIGURATION_NOT_SET before.
uint32_t WINAPI vdapi_Initialize(uint32_t reserved);

// Closes the library.
uint32_t WINAPI vdapi_Terminate(void);

// Gives the revisions of the board, the VPIC, the driver (major in the high byte, minor in the low
// one) and the JADE. Fails where no board is found.
uint32_t WINAPI vdapi_GetVersion(uint16_t* boardRevision, uint8_t* vpicRevision,
                                 uint16_t* driverRevision, uint8_t* jadeRevision);

// Resets the board's driver: what it holds open is closed, its services start anew.
uint32_t WINAPI vdapi_ResetVxD(void);

// --- Debug channel (older board) ---

// Sends a command of driver/debug_command.h with its block of driver/parameter_block.h: `size`
// bytes, or size 0 and no block. An unknown number answers VXD_INVALID_DEBUG_COMMAND_ID, another
// size than the command's own or a missing block VXD_INVALID_PARAMETER.
uint32_t WINAPI vdapi_Debug(uint32_t command, uint32_t size, void* block);

// --- Firmware (newer board) ---

// Sends a command of driver/firmware_command.h with three parameters and gives its three responses;
// what they mean is the command's affair. An unknown command answers VXD_OPERATION_NOT_SUPPORTED.
uint32_t WINAPI vdapi_SendCommand(uint32_t command, uint32_t parameter1, uint32_t parameter2,
                                  uint32_t parameter3, uint32_t* response1, uint32_t* response2,
                                  uint16_t* response3);

// The trace level of a firmware module (0 to 21): 0 none, 10 errors, 20 warnings, 30 to 70 traces.
uint32_t WINAPI vdapi_GetModuleDebugLevel(uint32_t module, uint16_t* level);
uint32_t WINAPI vdapi_SetModuleDebugLevel(uint32_t module, uint32_t level);

// Media streams. The last two arguments of the opening are 0.
enum MediaStream { STREAM_AUDIO_FROM_BOARD = 2, STREAM_AUDIO_TO_BOARD = 3, STREAM_VIDEO = 4 };
uint32_t WINAPI vdapi_Stream_Open(uint32_t stream, uint32_t reserved1, uint32_t reserved2);
uint32_t WINAPI vdapi_Stream_Close(uint32_t stream);

// Gives the bandwidth of the connection, a signed number: kbit/s on the simulated board.
uint32_t WINAPI vdapi_GetBandwidth(int32_t* bandwidth);

// --- Bus interface and interrupt controller (VPIC) ---

// A port of 32 bits by its catalogue id; ids are written with bit 26 cleared.
uint32_t WINAPI vdapi_VPIC_ReadPort(uint32_t port, uint32_t* value);
uint32_t WINAPI vdapi_VPIC_WritePort(uint32_t port, const uint32_t* value);

// --- Auxiliary device ---

// Brings the auxiliary device up and down. A failed start leaves it down.
uint32_t WINAPI vdapi_AUXDEV_Initialize(void);
uint32_t WINAPI vdapi_AUXDEV_Terminate(void);

// Resets the board's hardware to its state at power-on.
uint32_t WINAPI vdapi_AUXDEV_HardwareReset(void);

// A feature line; the older board names the first three of these.
enum AuxdevFeature {
    AUXDEV_FEATURE_IOM2_ROUTING = 0,
    AUXDEV_FEATURE_MVIP_ROUTING = 1,
    AUXDEV_FEATURE_LED = 4,
    AUXDEV_FEATURE_LAST = 41
};
uint32_t WINAPI vdapi_AUXDEV_Activate(uint32_t feature);
uint32_t WINAPI vdapi_AUXDEV_Deactivate(uint32_t feature);
uint32_t WINAPI vdapi_AUXDEV_GetFeature(uint32_t feature, uint16_t* value);

// A field of 16 bits (0 to 15).
uint32_t WINAPI vdapi_AUXDEV_SetField(uint32_t field, uint32_t value);
uint32_t WINAPI vdapi_AUXDEV_GetField(uint32_t field, uint16_t* value);

// --- I2C bus ---

uint32_t WINAPI vdapi_I2C_Initialize(void);
uint32_t WINAPI vdapi_I2C_Terminate(void);

// One transfer, a 16-bit item per bus byte: the low 8 bits are sent; 0x100 reads a byte, which goes
// to `result` (null where nothing is read).
uint32_t WINAPI vdapi_I2C_Transfer(const uint16_t* items, uint32_t count, uint32_t* result);

// --- Memory and I/O ports ---

// One unit of 1, 2 or 4 bytes at an address, of 1 or 2 bytes at a port.
uint32_t WINAPI vdapi_MEM_Read(uint32_t address, uint32_t unitSize, uint32_t* value);
uint32_t WINAPI vdapi_MEM_Write(uint32_t address, uint32_t unitSize, uint32_t value);
uint32_t WINAPI vdapi_IO_Read(uint32_t port, uint32_t unitSize, uint32_t* value);
uint32_t WINAPI vdapi_IO_Write(uint32_t port, uint32_t unitSize, uint32_t value);

// --- Cameras ---

// The digital camera; a register by its catalogue id, one byte each.
uint32_t WINAPI vdapi_CAM_Digit_Initialize(void);
uint32_t WINAPI vdapi_CAM_Digit_Terminate(void);
uint32_t WINAPI vdapi_CAM_Digit_Read(uint32_t registerId, uint8_t* value);
uint32_t WINAPI vdapi_CAM_Digit_Write(uint32_t registerId, uint32_t value);

// The analog camera's video decoder, in the same way.
uint32_t WINAPI vdapi_CAM_ACIF_Initialize(void);
uint32_t WINAPI vdapi_CAM_ACIF_Terminate(void);
uint32_t WINAPI vdapi_CAM_ACIF_Read(uint32_t registerId, uint8_t* value);
uint32_t WINAPI vdapi_CAM_ACIF_Write(uint32_t registerId, uint32_t value);

// --- ARCOFI audio codec ---

// A register or bit field (one byte), the test-loop list 0x91F (three bytes, of a buffer of four),
// or a coefficient command's parameter bytes: bits 8 to 15 of its id are their number plus 1, at
// most 8 bytes.
uint32_t WINAPI vdapi_ARCOFI_Read(uint32_t id, uint8_t* buffer);
uint32_t WINAPI vdapi_ARCOFI_Write(uint32_t id, const uint8_t* buffer);

// Selects the B channel: 0 for the first, 0x40 for the second.
uint32_t WINAPI vdapi_ARCOFI_SelectChannel(uint32_t channelCode);

// --- Echo cancellers ---

// A register of the SAEC by its catalogue id; 8 or 16 bits of the value are used.
uint32_t WINAPI vdapi_SAEC_Read(uint32_t registerId, uint32_t* value);
uint32_t WINAPI vdapi_SAEC_Write(uint32_t registerId, const uint32_t* value);

// The echo-cancelling DSP; a mode is the byte written to its control latch.
uint32_t WINAPI vdapi_AEC_Initialize(void);
uint32_t WINAPI vdapi_AEC_Terminate(void);
uint32_t WINAPI vdapi_AEC_SetMode(uint32_t code);

// --- AKM audio codec ---

// A register (0 to 25) of one byte; a mixer switch (0 to 16), on 1 or off 0.
uint32_t WINAPI vdapi_AKM_ReadRegister(uint32_t registerNumber, uint8_t* value);
uint32_t WINAPI vdapi_AKM_WriteRegister(uint32_t registerNumber, uint32_t value);
uint32_t WINAPI vdapi_AKM_SetSwitch(uint32_t switchNumber, uint32_t on);

// --- JADE ---

// Resets the chip; the argument is 0x32.
uint32_t WINAPI vdapi_JADE_Reset(uint32_t code);

// A register (0 to 255); the low 8 bits of a value read are used.
uint32_t WINAPI vdapi_JADE_Read(uint32_t registerNumber, uint32_t* value);
uint32_t WINAPI vdapi_JADE_Write(uint32_t registerNumber, uint32_t value);

// --- EEPROM ---

uint32_t WINAPI vdapi_EPROM_Initialize(void);
uint32_t WINAPI vdapi_EPROM_Terminate(void);

// Starts a transfer of `length` bytes (at most 8); the last argument is 30. The buffer must stay
// until the driver clears EpromPendingFlag (driver/shared_words.h), which ends the transfer.
uint32_t WINAPI vdapi_EPROM_Read(uint32_t address, uint8_t* buffer, uint32_t length,
                                 uint32_t constant);
uint32_t WINAPI vdapi_EPROM_Write(uint32_t address, const uint8_t* buffer, uint32_t length,
                                  uint32_t constant);

// --- Codec processor (VCPXi) ---

// `count` elements of 1, 2 or 4 bytes of a variable by its name. The last argument says which way
// they go; 0 is taken for writing too.
enum VcpVariableAccess { VCP_VARIABLE_GET = 32, VCP_VARIABLE_SET = 33 };
uint32_t WINAPI vdapi_VCPXI_VCPVariable_GetValue(const char* name, uint32_t unitSize, int32_t count,
                                                 void* buffer, uint32_t constant);
uint32_t WINAPI vdapi_VCPXI_VCPVariable_SetValue(const char* name, uint32_t unitSize, int32_t count,
                                                 const void* buffer, uint32_t constant);

// Loads the processor's software from files, an empty path where one is not given, with the named
// sections, each in its brackets; without sections the count is 0 and the array absent.
uint32_t WINAPI vdapi_VcpCode_Download(const char* monitorPath, const char* codecPath,
                                       const char* vcpIniPath, const char* vpCodePath,
                                       uint32_t sectionCount, const char* const* sections);

// --- Video inlay and post-processing ---

// 0 continuous, 1 frame by frame, 0xF0 freeze, 0x0F run again.
uint32_t WINAPI vdapi_VIDINLAY_SetFrameDispMode(uint32_t mode);

uint32_t WINAPI vdapi_VPP_Initialize(void);
uint32_t WINAPI vdapi_VPP_Terminate(void);
uint32_t WINAPI vdapi_VPP_Activate(void);
uint32_t WINAPI vdapi_VPP_Deactivate(void);

// Sets the interpolation method (the mode word) with six parameters: frame rate, smallest and
// largest motion-vector threshold, three zeros.
uint32_t WINAPI vdapi_VPP_SetMode(uint32_t modeWord, const uint32_t* parameters);

// --- Video encoder (BT855, BT858) and palettes ---

uint32_t WINAPI vdapi_BT85X_Initialize(void);
uint32_t WINAPI vdapi_BT85X_Terminate(void);
uint32_t WINAPI vdapi_BT85X_Reset(void);

// 0 NTSC, 1 PAL.
uint32_t WINAPI vdapi_BT85X_SetDisplayType(uint32_t type);

// A register or bit field by its 16-bit id, of encoder 0 (BT855) or 1 (BT858); 8 bits are used.
uint32_t WINAPI vdapi_BT85X_WriteCtrlRegister(uint32_t encoder, uint32_t fieldId, uint32_t value);
uint32_t WINAPI vdapi_BT85X_ReadCtrlRegister(uint32_t encoder, uint32_t fieldId, uint32_t* value);

// The palette: 256 colours as 0x00BBGGRR, one by one or the whole table.
uint32_t WINAPI vdapi_BT85X_WriteToPalette(uint32_t entry, uint32_t colour);
uint32_t WINAPI vdapi_BT85X_ReadFromPalette(uint32_t entry, uint32_t* colour);
uint32_t WINAPI vdapi_BT85X_DownloadPalette(const uint32_t* table);
uint32_t WINAPI vdapi_BT85X_RetrievePalette(uint32_t* table);

// The overlay palette: 16 colours in the same way; the first argument is 1.
uint32_t WINAPI vdapi_BT85X_WriteToOverlay(uint32_t constant, uint32_t entry, uint32_t colour);
uint32_t WINAPI vdapi_BT85X_ReadFromOverlay(uint32_t constant, uint32_t entry, uint32_t* colour);
uint32_t WINAPI vdapi_BT85X_DownloadOverlay(uint32_t constant, const uint32_t* table);
uint32_t WINAPI vdapi_BT85X_RetrieveOverlay(uint32_t constant, uint32_t* table);

// The pixel read mask, 8 bits; the first argument is 1.
uint32_t WINAPI vdapi_BT85X_WritePixelMask(uint32_t constant, uint32_t mask);
uint32_t WINAPI vdapi_BT85X_ReadPixelMask(uint32_t constant, uint32_t* mask);

// --- MBE data channel ---

// Starts the service; the arguments are 0 and 1020, the most bytes of a message.
uint32_t WINAPI vdapi_MBE_Initialize(uint32_t channel, uint32_t capacity);
uint32_t WINAPI vdapi_MBE_Terminate(void);
uint32_t WINAPI vdapi_MBE_RegisterOutgoingStream(void);

// Takes the oldest message that was received: up to 100 bytes of it, which go to the buffer without
// an end mark and may have something else behind them there; its whole length, 0 where there is
// none; and 32 bits that nobody uses.
uint32_t WINAPI vdapi_MBE_Read(void* buffer, uint16_t* length, uint32_t* reserved);

// Sends a text of `length` bytes; the second argument is 1, the last, which ends the message on the
// line, 0xFE.
uint32_t WINAPI vdapi_MBE_Write(const char* text, uint32_t channel, uint32_t length,
                                uint32_t terminator);

// --- BAS ---

uint32_t WINAPI vdapi_BAS_Initialize(void);
uint32_t WINAPI vdapi_BAS_Terminate(void);

// Sends BAS commands; the data is an array of six bytes of which `length` count.
uint32_t WINAPI vdapi_BAS_Write(int32_t commandCount, int32_t repeatCount, const uint8_t* data,
                                int32_t length);

// --- Annex-D ---

uint32_t WINAPI vdapi_ANNEXD_Initialize(void);
uint32_t WINAPI vdapi_ANNEXD_Terminate(void);

// Loads up to `size` bytes of an image into a buffer that has two bytes more, 2050 for the 2048
// asked for, and gives their number; the first argument is 1.
uint32_t WINAPI vdapi_ANNEXD_Download(uint32_t channel, uint32_t size, void* buffer,
                                      uint32_t* byteCount);

#ifdef __cplusplus
}
#endif
