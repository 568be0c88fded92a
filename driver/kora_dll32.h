// The driver library KORA_DLL32: start and stop of the driver connection, the shared status words,
// the user-data channels, registration values for the driver's notifications, and the statistics of
// the video post-processing. Valid in C and in C++.
//
// Every operation is called synchronously on the user-interface thread. Values of 8 and 16 bits are
// widened to 32. Where nothing else is said the result's low half is a result code
// (driver/result_code.h), 0 for success.
#pragma once

#include <stdint.h>

#include "platform/win32.h"

#ifdef __cplusplus
extern "C" {
#endif

// Opens the connection to the driver; it does not need a board.
uint32_t WINAPI KORA_DLL_Initialize(void);

// The address of the library's table of four 32-bit slots, never null. The caller fills it once
// with the addresses of its status words (driver/shared_words.h) and never moves them.
uint32_t* WINAPI KORA_DLL_GetSharedTable(void);

// Makes the library take the filled table.
uint32_t WINAPI KORA_DLL_Attach(void);

// Closes the connection.
uint32_t WINAPI KORA_DLL_Terminate(void);

// Gives the registration value of an ISAC device for TALVERO_DBG_ISAC_TR_INIT; 0 where there is
// none.
uint32_t WINAPI KORA_DLL_GetIsacHandle(uint32_t device);

// Gives the registration value of a monitor device for TALVERO_DBG_MON_TR_INIT; 0 where there is
// none. Message WM_USER + 1 is posted to the window when monitor bytes arrive.
uint32_t WINAPI KORA_DLL_GetMonitorHandle(uint32_t device, HWND window);

// Gives the registration value for TALVERO_DBG_SEQ_TR_RGSTR; 0 where there is none. The argument
// is 0.
uint32_t WINAPI KORA_DLL_GetSeqHandle(uint32_t reserved);

// The user-data channels. A rate is a 16-bit rate code of the channel's own list; a length is 0 to
// 64 bytes.
enum UserDataChannelNumber { USER_DATA_LSD = 0, USER_DATA_HSD = 1, USER_DATA_MLP = 2 };
uint32_t WINAPI KORA_DLL_ChannelInitialize(uint32_t channel);
uint32_t WINAPI KORA_DLL_ChannelTerminate(uint32_t channel);
uint32_t WINAPI KORA_DLL_ChannelOpen(uint32_t channel, uint32_t rate);
uint32_t WINAPI KORA_DLL_ChannelClose(uint32_t channel);
uint32_t WINAPI KORA_DLL_ChannelSend(uint32_t channel, uint32_t length);
uint32_t WINAPI KORA_DLL_ChannelRead(uint32_t channel);

// Switches packetized mode of the LSD channel, the only one that has it, on (1) or off (0).
uint32_t WINAPI vdapi_LSD_SetPacketized(uint32_t channel, uint32_t on);

// Sends the statistics of the video post-processing to the window, message by message, until
// stopped.
uint32_t WINAPI KORA_DLL_StartVppStatistics(HWND window);
uint32_t WINAPI KORA_DLL_StopVppStatistics(void);

#ifdef __cplusplus
}
#endif
