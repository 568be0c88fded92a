// The variables of the codec processor's software, as programs reach them by their names.
//
// A variable has elements of one size and a number of them, and is read and written as a whole:
// another unit or another count answers VXD_INVALID_PARAMETER. So does a name that no variable has
// when it is read or tested; written, it becomes a variable of the unit and count that it is
// written with, which stays until the board powers on.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <vector>

#include "driver/parameter_block.h"
#include "driver/result_code.h"

namespace board {

struct State;

struct CodecVariable {
    uint32_t unitSize = 1;           // bytes of an element: 1, 2 or 4
    std::vector<uint32_t> elements;  // of each the low `unitSize` bytes count
};

using CodecVariables = std::map<std::string, CodecVariable>;

// What the software starts with: a call's bonding and the codecs of its streams.
CodecVariables CodecVariablesAtPowerOn();

// Transfer `count` elements to and from a buffer, which must be there also for a count of 0. At
// most 65,535 bytes go in one transfer. When the transfer is over, whatever came of it, the board's
// own thread clears the utility's VcpGetFlag or VcpSetFlag.
ResultCode ReadCodecVariable(State& state, const char* name, uint32_t unitSize, int32_t count,
                             void* buffer);
ResultCode WriteCodecVariable(State& state, const char* name, uint32_t unitSize, int32_t count,
                              const void* buffer);

// Writes a value into a variable of one element of 4 bytes and reads it back, as often as is asked
// for. The driver does nothing else meanwhile, 20 microseconds for each time. What comes back with
// bits that were not written answers VXD_HARDWARE_FAILURE.
ResultCode TestCodecVariable(State& state, const VcpxiTestBlock& block);

}  // namespace board
