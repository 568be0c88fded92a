// PAPI's operations on the SAEC.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_SAEC_Read(uint32_t registerId, uint32_t* value) {
    return OnService(Service::kSaec, {"vdapi_SAEC_Read", {registerId, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& read) {
            return state.hardware.saec.Read(registerId, state.Time(), read);
        });
    });
}

uint32_t WINAPI vdapi_SAEC_Write(uint32_t registerId, const uint32_t* value) {
    return OnService(
        Service::kSaec, {"vdapi_SAEC_Write", {registerId, value}, BytesAt(value, sizeof *value)},
        [=](State& state) {
            return value ? state.hardware.saec.Write(registerId, *value) : VXD_INVALID_PARAMETER;
        });
}
