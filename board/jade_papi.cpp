// PAPI's operations on the JADE.
#include "driver/papi.h"

#include <cstdint>

#include "board/jade.h"
#include "board/papi_operation.h"
#include "board/services.h"

using namespace board;

uint32_t WINAPI vdapi_JADE_Reset(uint32_t code) {
    return OnBoard({"vdapi_JADE_Reset", {code}},
                   [=](State& state) { return ResetJade(state, code); });
}

uint32_t WINAPI vdapi_JADE_Read(uint32_t registerNumber, uint32_t* value) {
    return OnBoard({"vdapi_JADE_Read", {registerNumber, value}}, [=](State& state) {
        return ReadInto(state, value,
                        [&](uint32_t& read) { return ReadJade(state, registerNumber, read); });
    });
}

uint32_t WINAPI vdapi_JADE_Write(uint32_t registerNumber, uint32_t value) {
    return OnBoard({"vdapi_JADE_Write", {registerNumber, value}},
                   [=](State& state) { return state.hardware.jade.Write(registerNumber, value); });
}
