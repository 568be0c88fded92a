// What every operation of the two driver libraries answers: a 16-bit code in the low half of its
// return value. 0 is success, 1 to 32 have names, anything else is an error without a name.
#pragma once

#include <array>
#include <cstdint>

using ResultCode = uint16_t;

inline constexpr ResultCode VXD_SUCCESS = 0;
inline constexpr ResultCode VXD_INVALID_PARAMETER = 1;
inline constexpr ResultCode VXD_ILLEGAL_OPERATION = 2;
inline constexpr ResultCode VXD_ALLOCATION_FAILURE = 3;
inline constexpr ResultCode VXD_HARDWARE_FAILURE = 4;
inline constexpr ResultCode VXD_BUSY_WITH_PRIOR_REQUEST = 5;
inline constexpr ResultCode VXD_FILE_OPEN_FAILURE = 6;
inline constexpr ResultCode VXD_OPERATION_ALREADY_DONE = 7;
inline constexpr ResultCode VXD_OPERATION_FAILED = 8;
inline constexpr ResultCode VXD_INVALID_OPERATION = 9;
inline constexpr ResultCode VXD_INTERNAL_ERROR = 10;
inline constexpr ResultCode VXD_HOSTCOMMAND_ERROR = 11;
inline constexpr ResultCode VXD_RESOURCE_FAILURE = 12;
inline constexpr ResultCode VXD_TIMEOUT_FAILURE = 13;
inline constexpr ResultCode VXD_DSP_EXCEPTION = 14;
inline constexpr ResultCode VXD_CORRUPT_FILE = 15;
inline constexpr ResultCode VXD_ILLEGAL_CONFIGURATION = 16;
inline constexpr ResultCode VXD_INCOMPATIBLE_CONFIGURATION = 17;
inline constexpr ResultCode VXD_OPERATION_NOT_SUPPORTED = 18;
inline constexpr ResultCode VXD_CONFIGURATION_NOT_SET = 19;
inline constexpr ResultCode VXD_LOWLEVEL_INITIALIZING = 20;
inline constexpr ResultCode VXD_NOT_SYSTEM_VM = 21;
inline constexpr ResultCode VXD_INVALID_SERVICE_ID = 22;
inline constexpr ResultCode VXD_INVALID_DEBUG_COMMAND_ID = 23;
inline constexpr ResultCode VXD_ERR_BIOS = 24;
inline constexpr ResultCode VXD_DMA_BUSY = 25;
inline constexpr ResultCode VXD_CRIT_ERROR = 26;
inline constexpr ResultCode VXD_ATOM_ERROR = 27;
inline constexpr ResultCode VXD_IRQ_ERROR = 28;
inline constexpr ResultCode VXD_FAILED_STREAM_OPEN = 29;
inline constexpr ResultCode VXD_FAILED_STREAM_CLOSE = 30;
inline constexpr ResultCode VXD_STREAM_OVERFLOW = 31;
inline constexpr ResultCode VXD_PACKET_TOO_BIG = 32;

// Indexed by code; success has no name.
inline constexpr std::array<const char*, 33> kResultNames{
    "",
    "VXD_INVALID_PARAMETER",
    "VXD_ILLEGAL_OPERATION",
    "VXD_ALLOCATION_FAILURE",
    "VXD_HARDWARE_FAILURE",
    "VXD_BUSY_WITH_PRIOR_REQUEST",
    "VXD_FILE_OPEN_FAILURE",
    "VXD_OPERATION_ALREADY_DONE",
    "VXD_OPERATION_FAILED",
    "VXD_INVALID_OPERATION",
    "VXD_INTERNAL_ERROR",
    "VXD_HOSTCOMMAND_ERROR",
    "VXD_RESOURCE_FAILURE",
    "VXD_TIMEOUT_FAILURE",
    "VXD_DSP_EXCEPTION",
    "VXD_CORRUPT_FILE",
    "VXD_ILLEGAL_CONFIGURATION",
    "VXD_INCOMPATIBLE_CONFIGURATION",
    "VXD_OPERATION_NOT_SUPPORTED",
    "VXD_CONFIGURATION_NOT_SET",
    "VXD_LOWLEVEL_INITIALIZING",
    "VXD_NOT_SYSTEM_VM",
    "VXD_INVALID_SERVICE_ID",
    "VXD_INVALID_DEBUG_COMMAND_ID",
    "VXD_ERR_BIOS",
    "VXD_DMA_BUSY",
    "VXD_CRIT_ERROR",
    "VXD_ATOM_ERROR",
    "VXD_IRQ_ERROR",
    "VXD_FAILED_STREAM_OPEN",
    "VXD_FAILED_STREAM_CLOSE",
    "VXD_STREAM_OVERFLOW",
    "VXD_PACKET_TOO_BIG",
};

// The code in an operation's return value; the upper half carries nothing.
constexpr ResultCode CodeOf(uint32_t result) {
    return static_cast<ResultCode>(result & 0xFFFF);
}
