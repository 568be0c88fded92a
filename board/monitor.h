// The IOM-2 monitor channel, over which the driver speaks to devices 3 (ARCOFI) and 12 (SBCX).
//
// - A device is initialised with a value that KORA_DLL32 has given for it, else
//   VXD_INVALID_PARAMETER; with the flag, the first ISAC chip, which carries the channel, is
//   initialised along.
// - Receiving sends two bytes and returns at once. Some milliseconds later the first active device
//   answers with three: the two as it heard them and its identification. They are written where the
//   command wanted them, and WM_USER + 1 is posted to the window that was named last for either
//   device, if any. Without a device that is up the command answers VXD_CONFIGURATION_NOT_SET,
//   without an active one VXD_ILLEGAL_OPERATION; where the device is gone before it has answered,
//   nothing arrives.
#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

#include "board/life_cycle.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"
#include "platform/win32.h"

namespace board {

struct Monitor {
    HWND window = nullptr;                      // learns that bytes have arrived
    std::chrono::milliseconds answersAfter{5};  // how long a device takes
    uint32_t answers = 0;                       // how many have arrived
};

// None for a number that no monitor device has.
std::optional<Service> MonitorDevice(uint32_t device);

ResultCode InitializeMonitorDevice(State& state, const MonitorInitializeBlock& block);
ResultCode ReceiveMonitorBytes(State& state, const MonitorReceiveBlock& block);

}  // namespace board
