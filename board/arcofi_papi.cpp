// PAPI's operations on the ARCOFI.
#include "driver/papi.h"

#include <cstddef>
#include <cstdint>

#include "board/arcofi.h"
#include "board/papi_operation.h"
#include "board/services.h"

using namespace board;

uint32_t WINAPI vdapi_ARCOFI_Read(uint32_t id, uint8_t* buffer) {
    return OnService(Service::kArcofi, {"vdapi_ARCOFI_Read", {id, buffer}}, [=](State& state) {
        const ResultCode code = state.hardware.arcofi.Read(id, buffer);
        for (size_t i = 0; code == VXD_SUCCESS && i < Arcofi::ByteCount(id); ++i) {
            state.Give(buffer[i], buffer[i]);
        }
        return code;
    });
}

uint32_t WINAPI vdapi_ARCOFI_Write(uint32_t id, const uint8_t* buffer) {
    return OnService(Service::kArcofi,
                     {"vdapi_ARCOFI_Write", {id, buffer}, BytesAt(buffer, Arcofi::ByteCount(id))},
                     [=](State& state) { return state.hardware.arcofi.Write(id, buffer); });
}

uint32_t WINAPI vdapi_ARCOFI_SelectChannel(uint32_t channelCode) {
    return OnBoard({"vdapi_ARCOFI_SelectChannel", {channelCode}},
                   [=](State& state) { return SelectArcofiChannel(state, channelCode); });
}
