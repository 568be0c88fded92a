// The commands that open, fill and empty streams.
#include <array>

#include "board/firmware_commands.h"
#include "driver/firmware_command.h"

namespace board {
namespace {

using Parameters = FirmwareParameters;
using Responses = FirmwareResponses;

constexpr size_t kStreamCapacity = 64;

// A command that does with a stream what the library's operation does.
template <ResultCode (*kRun)(State&, uint32_t)>
ResultCode OnStream(State& state, const Parameters& parameters, Responses&) {
    return kRun(state, parameters.first);
}

ResultCode GetStreamInfo(State& state, const Parameters& parameters, Responses& responses) {
    const Stream* stream = FindStream(state, parameters.first);
    if (!stream) {
        return VXD_INVALID_PARAMETER;
    }
    responses = {stream->open, static_cast<uint32_t>(stream->words.size()), stream->resyncs};
    return VXD_SUCCESS;
}

// Wraps a command that wants an open stream.
template <ResultCode (*kRun)(Stream&, const Parameters&, Responses&)>
ResultCode OnOpenStream(State& state, const Parameters& parameters, Responses& responses) {
    Stream* stream = FindStream(state, parameters.first);
    if (!stream) {
        return VXD_INVALID_PARAMETER;
    }
    return stream->open ? kRun(*stream, parameters, responses) : VXD_ILLEGAL_OPERATION;
}

ResultCode Resynchronise(Stream& stream, const Parameters&, Responses& responses) {
    responses.first = ++stream.resyncs;
    return VXD_SUCCESS;
}

ResultCode WriteWord(Stream& stream, const Parameters& parameters, Responses& responses) {
    if (stream.words.size() >= kStreamCapacity) {
        return VXD_STREAM_OVERFLOW;
    }
    stream.words.push_back(parameters.second);
    responses.first = static_cast<uint32_t>(stream.words.size());
    return VXD_SUCCESS;
}

ResultCode ReadWord(Stream& stream, const Parameters&, Responses& responses) {
    if (stream.words.empty()) {
        return VXD_OPERATION_FAILED;
    }
    responses.first = stream.words.front();
    stream.words.pop_front();
    responses.second = static_cast<uint32_t>(stream.words.size());
    return VXD_SUCCESS;
}

constexpr auto kCommands = std::to_array<FirmwareCommand>({
    {PELLAN_COMMAND_OPEN_STREAM, "PELLAN_COMMAND_OPEN_STREAM", OnStream<OpenStream>},
    {PELLAN_COMMAND_CLOSE_STREAM, "PELLAN_COMMAND_CLOSE_STREAM", OnStream<CloseStream>},
    {PELLAN_COMMAND_RESYNC_STREAM, "PELLAN_COMMAND_RESYNC_STREAM", OnOpenStream<Resynchronise>},
    {PELLAN_COMMAND_ASYNCHRONOUS_RESYNC_STREAM, "PELLAN_COMMAND_ASYNCHRONOUS_RESYNC_STREAM",
     OnOpenStream<Resynchronise>},
    {PELLAN_COMMAND_STREAM_INFO, "PELLAN_COMMAND_STREAM_INFO", GetStreamInfo},
    {PELLAN_COMMAND_STREAM_WRITE, "PELLAN_COMMAND_STREAM_WRITE", OnOpenStream<WriteWord>},
    {PELLAN_COMMAND_STREAM_READ, "PELLAN_COMMAND_STREAM_READ", OnOpenStream<ReadWord>},
});

}  // namespace

std::span<const FirmwareCommand> StreamCommands() {
    return kCommands;
}

}  // namespace board
