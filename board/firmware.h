// The newer board's firmware: what it keeps, and its command set (driver/firmware_command.h).
//
// A command takes three parameters and gives three responses, the third of 16 bits; a response that
// is not named below is 0. A command that sets something gives what is now set as its first
// response. A number that nothing has answers VXD_INVALID_PARAMETER, writing what is read-only
// VXD_ILLEGAL_OPERATION, an unknown command VXD_OPERATION_NOT_SUPPORTED. A command that fails gives
// no responses.
//
// Registers and variables. (number) reads, (number, value) writes:
// - SAA7111, JADE and AKM registers, ports, software and codec-processor variables, audio and
//   camera parameters, echo-canceller values, AUXDEV fields, modules' debug levels;
// - USS registers, whose value is the second response.
//
// Single values. (value) sets: STANDBY, CAM_SET_INPUT (1 camera, 2 VCR), CAM_SET_TYPE,
// AEC_SET_MODE (8 bits), AEC_SET_8KHZ, AUDIO_SELECT_INPUT and _OUTPUT (the audio parameters
// MIC_SELECT and SPKR_SELECT), LAN_SET_IP, SERIAL_CONNECT_ENABLE, SET_LED_STATE, UPDATE_VERSION
// (the driver's revision).
//
// Others:
// - GET_VER: board revision; driver revision; VPIC revision * 256 + JADE revision.
// - 486_READ_ and _WRITE_, MEM and IO: (address, unit size in bytes, value), little-endian. Size
//   0 is the widest there is: 4 for memory, 2 for I/O.
// - I2C_SEND, _RETRIEVE, _ACCESS: (device address, register, value). A device that is not there
//   answers VXD_HARDWARE_FAILURE.
// - AKM_SWITCH: (switch 0 to 16, on). AKM_VOLUME: (channel 0 to 7, level 0 to 31). AKM_MUTE:
//   (channel, on).
// - OPEN_STREAM, CLOSE_STREAM: (stream 2, 3 or 4), as the library's operations (board/streams.h).
// - STREAM_INFO: (stream) gives whether it is open; words waiting; resynchronisations.
// - STREAM_WRITE: (stream, word). STREAM_READ: (stream) gives the oldest word; words left. Both
//   and resynchronising want an open stream, else VXD_ILLEGAL_OPERATION. A full stream answers
//   VXD_STREAM_OVERFLOW, an empty one VXD_OPERATION_FAILED.
// - DEBUG_MUTE, _TECH, _TRACE: all modules to level 0, 10, 30.
// - AUXDEV_ACTIVATE, _DEACTIVATE, _TEST: (feature) gives the line's state. AUXDEV_HW_RESET: the
//   whole board as at power-on.
// - BURN_BLOCK, DUMP_BLOCK: (block, word number, word); ERASE_ONE_BLOCK: (block). Burning flash
//   memory only clears bits.
// - TARGET_CONNECTED: 1 once SERIAL_CONNECT_ENABLE has set 1.
// - GENERAL_PURPOSE_0 to _3: their parameters.
// - RUN_VCP_SCRIPT, PSHELL_RUN, DOWNLOAD2, SEARCHING_FOR_TARGET: how often each was sent.
// - PLAY_VIDEO_FILE, SEND_FILE: VXD_FILE_OPEN_FAILURE, since the board holds no files.
#pragma once

#include <cstdint>
#include <map>

#include "board/registers.h"
#include "board/streams.h"
#include "driver/result_code.h"

namespace board {

struct State;

// What the firmware keeps, as it is at power-on.
struct Firmware {
    Firmware();

    Registers audioParameters;
    Registers cameraParameters{.last = 31, .mask = 0xFFFF};
    Registers ports;
    Registers aecValues{.last = 0xFF, .mask = 0xFFFF};
    Registers moduleDebugLevels{.last = 21, .mask = 0xFFFF};
    Registers softwareVariables{.last = 0xFF};
    Registers ussRegisters;
    Registers vcpVariables{.last = 0xFFFF};
    std::map<uint32_t, uint32_t> burnedFlash{};  // words that are not erased, by position
    std::map<uint32_t, Stream> streams{{2, {}}, {3, {}}, {4, {}}};

    uint32_t standby = 0;
    uint32_t cameraInput = 1;
    uint32_t cameraType = 0;
    uint32_t aecAt8kHz = 0;
    uint32_t lanAddress = 0;
    uint32_t serialConnect = 0;
    std::map<uint32_t, uint32_t> timesSent{};  // by command number, where a command just runs
};

struct FirmwareParameters {
    uint32_t first;
    uint32_t second;
    uint32_t third;
};

struct FirmwareResponses {
    uint32_t first = 0;
    uint32_t second = 0;
    uint16_t third = 0;
};

struct FirmwareCommand {
    uint32_t number;
    const char* name;
    ResultCode (*run)(State& state, const FirmwareParameters& parameters,
                      FirmwareResponses& responses);
};

// Null for a number that no command has.
const FirmwareCommand* FindFirmwareCommand(uint32_t number);

}  // namespace board
