// What an operation of the driver libraries was called with.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "driver/result_code.h"

namespace board {

struct Argument {
    enum class Kind { kValue, kText, kAddress };

    Argument(uint32_t argument) : kind(Kind::kValue), value(argument) {}
    Argument(int32_t argument) : kind(Kind::kValue), value(static_cast<uint32_t>(argument)) {}
    Argument(const char* argument) : kind(Kind::kText), text(argument ? argument : "") {}
    Argument(const void* argument)
        : kind(Kind::kAddress),
          value(static_cast<uint32_t>(reinterpret_cast<uintptr_t>(argument))) {
        // Only an absent address reads as 0, also where another one's low half is 0.
        if (argument && value == 0) {
            value = 1;
        }
    }

    Kind kind;
    uint32_t value = 0;  // of an address the low 32 bits: all of a window's handle, 0 where absent
    std::string text;
};

struct Call {
    std::string operation;              // "vdapi_Debug"
    std::vector<Argument> arguments{};  // in the operation's own order
    std::vector<uint8_t> block{};       // the bytes handed in by address, as they were at the call
    std::string command{};              // "TALVERO_DBG_..." or "PELLAN_COMMAND_...", where known
    ResultCode result = VXD_SUCCESS;
};

// A copy of what is handed in by address; empty where the address is absent.
std::vector<uint8_t> BytesAt(const void* address, size_t size);

// The call as one line, without a line end:
// vdapi_Debug(0x45, 0x4, address) TALVERO_DBG_ISAC_OP_INITCHIP [01 00 00 00] = 18
std::string Describe(const Call& call);

}  // namespace board
