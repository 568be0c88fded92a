// The first ISAC as two devices of the driver: 13 (monitor) and 14 (ISDN), and the IOM-2 bus that
// it drives. The chips themselves stand in board/isac.h.
//
// - A device is initialised with a value that KORA_DLL32 has given for it, else
//   VXD_INVALID_PARAMETER; with the flag, the chip is initialised along.
// - The bus is activated and deactivated while at least one device is up, else
//   VXD_CONFIGURATION_NOT_SET, and stops with the last one.
#pragma once

#include <cstdint>
#include <optional>

#include "board/life_cycle.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"

namespace board {

// None for a number that no ISAC device has.
std::optional<Service> IsacDevice(uint32_t device);

ResultCode InitializeIsacDevice(State& state, const IsacInitializeBlock& block);
ResultCode TerminateIsacDevice(State& state, const DeviceBlock& block);

// Whether a device is up.
bool IsIom2Driven(const State& state);

// Activates or deactivates the IOM-2 bus.
template <Step kStep>
ResultCode TakeIom2Step(State& state) {
    return IsIom2Driven(state) ? TakeStep(state, Service::kIom2, kStep) : VXD_CONFIGURATION_NOT_SET;
}

}  // namespace board
