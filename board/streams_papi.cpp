// PAPI's operations on the media streams.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"
#include "board/streams.h"

using namespace board;

uint32_t WINAPI vdapi_Stream_Open(uint32_t stream, uint32_t reserved1, uint32_t reserved2) {
    return OnBoard({"vdapi_Stream_Open", {stream, reserved1, reserved2}},
                   [=](State& state) { return OpenStream(state, stream); });
}

uint32_t WINAPI vdapi_Stream_Close(uint32_t stream) {
    return OnBoard({"vdapi_Stream_Close", {stream}},
                   [=](State& state) { return CloseStream(state, stream); });
}

uint32_t WINAPI vdapi_GetBandwidth(int32_t* bandwidth) {
    return OnBoard({"vdapi_GetBandwidth", {bandwidth}}, [=](State& state) {
        return ReadInto(state, bandwidth, [&](uint32_t& value) {
            value = BandwidthOfStreams(state);
            return VXD_SUCCESS;
        });
    });
}
