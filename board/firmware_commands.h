// How the firmware's commands are carried out, family by family. For the firmware's own files
// alone.
#pragma once

#include <span>

#include "board/firmware.h"
#include "board/state.h"

namespace board {

// What the board's chips and lines do.
std::span<const FirmwareCommand> HardwareCommands();
std::span<const FirmwareCommand> StreamCommands();
// What the firmware itself keeps and tells.
std::span<const FirmwareCommand> SoftwareCommands();

// --- What the families have in common ---

inline ResultCode WriteTo(Registers& registers, uint32_t number, uint32_t value,
                          uint32_t& response) {
    const ResultCode code = registers.Write(number, value);
    return code == VXD_SUCCESS ? registers.Read(number, response) : code;
}

template <Registers Firmware::*kMember>
ResultCode Read(State& state, const FirmwareParameters& parameters, FirmwareResponses& responses) {
    return (state.firmware.*kMember).Read(parameters.first, responses.first);
}

template <Registers Firmware::*kMember>
ResultCode Write(State& state, const FirmwareParameters& parameters, FirmwareResponses& responses) {
    return WriteTo(state.firmware.*kMember, parameters.first, parameters.second, responses.first);
}

template <uint32_t Firmware::*kMember>
ResultCode Set(State& state, const FirmwareParameters& parameters, FirmwareResponses& responses) {
    state.firmware.*kMember = parameters.first;
    responses.first = parameters.first;
    return VXD_SUCCESS;
}

}  // namespace board
