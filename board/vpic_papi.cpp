// PAPI's operations on the VPIC.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"
#include "board/vpic.h"

using namespace board;

uint32_t WINAPI vdapi_VPIC_ReadPort(uint32_t port, uint32_t* value) {
    return OnBoard({"vdapi_VPIC_ReadPort", {port, value}}, [=](State& state) {
        return ReadInto(state, value,
                        [&](uint32_t& read) { return ReadVpicPort(state, port, read); });
    });
}

uint32_t WINAPI vdapi_VPIC_WritePort(uint32_t port, const uint32_t* value) {
    return OnBoard(
        {"vdapi_VPIC_WritePort", {port, value}, BytesAt(value, sizeof *value)}, [=](State& state) {
            return value ? state.hardware.vpic.Write(port, *value) : VXD_INVALID_PARAMETER;
        });
}
