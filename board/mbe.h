// The MBE message channel of a call, looped: what is sent is received.
//
// It has a life cycle (Service::kMbe), in which an outgoing stream is what makes it active. While
// it is down, everything answers VXD_CONFIGURATION_NOT_SET.
#pragma once

#include <cstdint>
#include <deque>
#include <string>

#include "driver/result_code.h"

namespace board {

struct State;

struct Mbe {
    static constexpr uint32_t kMostBytes = 1020;

    uint32_t capacity = kMostBytes;     // of a message, in bytes
    std::deque<std::string> waiting{};  // to be read, oldest first, with the bytes that end them
};

// Starts the service for messages of up to `capacity` bytes, 1 to 1020, on channel 0, the only one.
ResultCode InitializeMbe(State& state, uint32_t channel, uint32_t capacity);

// Ends it; messages that wait are gone.
ResultCode TerminateMbe(State& state);

// Sends a message on channel 1, the one for texts. Without an outgoing stream it answers
// VXD_ILLEGAL_OPERATION, a message beyond the capacity VXD_PACKET_TOO_BIG, and while 16 messages
// wait to be read VXD_STREAM_OVERFLOW. `end` ends the message on the line and is not part of it.
ResultCode WriteMbe(State& state, const char* text, uint32_t channel, uint32_t length, uint8_t end);

// Takes the oldest message: as much of it as fits into a buffer of 100 bytes, behind it the byte
// that ended it on the line if that fits too, its whole length without that byte, and a number that
// is 0. Where none waits, the length is 0.
ResultCode ReadMbe(State& state, void* buffer, uint16_t* length, uint32_t* reserved);

}  // namespace board
