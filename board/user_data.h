// The user-data channels of a call, 0 LSD, 1 HSD and 2 MLP, looped: what is sent can be read.
//
// Each has a life cycle (Service::kLsd, Hsd, Mlp). It is opened at one of its rates and closed, and
// while it is open, sent to and read from. All of it wants the channel and the stream service to be
// up, else VXD_CONFIGURATION_NOT_SET; a channel that is not there answers VXD_INVALID_PARAMETER.
// When the channel or the stream service is terminated, it is as it was at power-on.
#pragma once

#include <array>
#include <cstdint>
#include <deque>
#include <optional>
#include <vector>

#include "driver/result_code.h"

namespace board {

struct State;

struct UserDataChannel {
    using Bytes = std::vector<uint8_t>;

    std::optional<uint16_t> rate{};  // the code that it is open at
    bool packetized = false;
    std::deque<Bytes> waiting{};  // what was sent and not read yet, oldest first
    uint32_t bytesSent = 0;
    uint32_t bytesRead = 0;
    Bytes lastRead{};
};

// By channel number.
using UserDataChannels = std::array<UserDataChannel, 3>;

// Steps of the life cycle.
ResultCode InitializeUserData(State& state, uint32_t channel);
ResultCode TerminateUserData(State& state, uint32_t channel);

// The rate is a code of the channel's own list (codec/user_data_rate.h), else
// VXD_INVALID_PARAMETER; at the one that ends in 0xFF, off, nothing can be sent. A channel that is
// open answers VXD_OPERATION_ALREADY_DONE, closing one that is not VXD_ILLEGAL_OPERATION. What
// still waits when it is closed is gone.
ResultCode OpenUserData(State& state, uint32_t channel, uint32_t rate);
ResultCode CloseUserData(State& state, uint32_t channel);

// Sends `length` bytes, which count on from 0x00 over all that the channel has sent. On a channel
// that is not open, or off, it answers VXD_ILLEGAL_OPERATION, beyond 64 bytes VXD_PACKET_TOO_BIG,
// and while 16 pieces wait to be read VXD_STREAM_OVERFLOW. Sending nothing leaves nothing to read.
ResultCode SendUserData(State& state, uint32_t channel, uint32_t length);

// Takes what was sent: of a packetized channel the oldest piece alone, else as many pieces as come
// to no more than 64 bytes. Where none waits it answers VXD_OPERATION_FAILED, on a channel that is
// not open VXD_ILLEGAL_OPERATION.
ResultCode ReadUserData(State& state, uint32_t channel);

// Packetized mode on (1) or off (0), which only the LSD channel knows.
ResultCode SetUserDataPacketized(State& state, uint32_t channel, uint32_t on);

// Ends the stream service, and the channels with it.
ResultCode TerminateStreams(State& state);

}  // namespace board
