#include "board/user_data.h"

#include <numeric>

#include "board/state.h"
#include "driver/kora_dll32.h"

namespace board {
namespace {

constexpr uint32_t kMostBytes = 64;
constexpr size_t kMostWaiting = 16;
constexpr uint32_t kOff = 0xFF;

struct ChannelEntry {
    Service service;
    uint32_t firstRate;  // the codes count on from it
    uint32_t rates;      // how many there are, but for off
};

// In the order of the channels' numbers.
constexpr std::array<ChannelEntry, std::tuple_size_v<UserDataChannels>> kChannels{{
    {Service::kLsd, 0x8000, 15},
    {Service::kHsd, 0x9000, 6},
    {Service::kMlp, 0xA000, 14},
}};

bool IsRate(const ChannelEntry& entry, uint32_t rate) {
    return (rate >= entry.firstRate && rate - entry.firstRate < entry.rates) ||
           rate == entry.firstRate + kOff;
}

bool CarriesData(const ChannelEntry& entry, const UserDataChannel& channel) {
    return channel.rate && *channel.rate != entry.firstRate + kOff;
}

// Does the work where the channel is there and up.
template <typename Work>
ResultCode OnChannel(State& state, uint32_t number, Work work) {
    if (number >= kChannels.size()) {
        return VXD_INVALID_PARAMETER;
    }
    for (const Service service : {Service::kStream, kChannels[number].service}) {
        if (const ResultCode code = NeedUp(state, service); code != VXD_SUCCESS) {
            return code;
        }
    }
    return work(kChannels[number], state.services.userData[number]);
}

UserDataChannel::Bytes CountOn(uint32_t from, uint32_t length) {
    UserDataChannel::Bytes bytes(length);
    std::iota(bytes.begin(), bytes.end(), static_cast<uint8_t>(from));
    return bytes;
}

void TakePiece(UserDataChannel& channel) {
    const UserDataChannel::Bytes& piece = channel.waiting.front();
    channel.lastRead.insert(channel.lastRead.end(), piece.begin(), piece.end());
    channel.waiting.pop_front();
}

bool TakesMore(const UserDataChannel& channel) {
    return !channel.packetized && !channel.waiting.empty() &&
           channel.lastRead.size() + channel.waiting.front().size() <= kMostBytes;
}

}  // namespace

ResultCode InitializeUserData(State& state, uint32_t channel) {
    if (channel >= kChannels.size()) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode code = NeedUp(state, Service::kStream);
    return code == VXD_SUCCESS ? TakeStep(state, kChannels[channel].service, kInitialize) : code;
}

ResultCode TerminateUserData(State& state, uint32_t channel) {
    return OnChannel(state, channel, [&](const ChannelEntry& entry, UserDataChannel& data) {
        data = {};
        return TakeStep(state, entry.service, kTerminate);
    });
}

ResultCode OpenUserData(State& state, uint32_t channel, uint32_t rate) {
    return OnChannel(state, channel, [=](const ChannelEntry& entry, UserDataChannel& data) {
        if (!IsRate(entry, rate)) {
            return VXD_INVALID_PARAMETER;
        }
        if (data.rate) {
            return VXD_OPERATION_ALREADY_DONE;
        }
        data.rate = static_cast<uint16_t>(rate);
        return VXD_SUCCESS;
    });
}

ResultCode CloseUserData(State& state, uint32_t channel) {
    return OnChannel(state, channel, [](const ChannelEntry&, UserDataChannel& data) {
        if (!data.rate) {
            return VXD_ILLEGAL_OPERATION;
        }
        data.rate.reset();
        data.waiting.clear();
        return VXD_SUCCESS;
    });
}

ResultCode SendUserData(State& state, uint32_t channel, uint32_t length) {
    return OnChannel(state, channel, [=](const ChannelEntry& entry, UserDataChannel& data) {
        if (!CarriesData(entry, data)) {
            return VXD_ILLEGAL_OPERATION;
        }
        if (length > kMostBytes) {
            return VXD_PACKET_TOO_BIG;
        }
        if (length == 0) {
            return VXD_SUCCESS;
        }
        if (data.waiting.size() == kMostWaiting) {
            return VXD_STREAM_OVERFLOW;
        }
        data.waiting.push_back(CountOn(data.bytesSent, length));
        data.bytesSent += length;
        return VXD_SUCCESS;
    });
}

ResultCode ReadUserData(State& state, uint32_t channel) {
    return OnChannel(state, channel, [](const ChannelEntry&, UserDataChannel& data) {
        if (!data.rate) {
            return VXD_ILLEGAL_OPERATION;
        }
        if (data.waiting.empty()) {
            return VXD_OPERATION_FAILED;
        }
        data.lastRead.clear();
        do {
            TakePiece(data);
        } while (TakesMore(data));
        data.bytesRead += static_cast<uint32_t>(data.lastRead.size());
        return VXD_SUCCESS;
    });
}

ResultCode SetUserDataPacketized(State& state, uint32_t channel, uint32_t on) {
    if (channel != USER_DATA_LSD || on > 1) {
        return VXD_INVALID_PARAMETER;
    }
    return OnChannel(state, channel, [=](const ChannelEntry&, UserDataChannel& data) {
        data.packetized = on != 0;
        return VXD_SUCCESS;
    });
}

ResultCode TerminateStreams(State& state) {
    state.services.userData = {};
    return TakeStep(state, Service::kStream, kTerminate);
}

}  // namespace board
