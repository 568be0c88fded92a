// PAPI's operations on the AKM audio codec.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_AKM_ReadRegister(uint32_t registerNumber, uint8_t* value) {
    return OnBoard({"vdapi_AKM_ReadRegister", {registerNumber, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& read) {
            return state.hardware.akm.registers.Read(registerNumber, read);
        });
    });
}

uint32_t WINAPI vdapi_AKM_WriteRegister(uint32_t registerNumber, uint32_t value) {
    return OnBoard({"vdapi_AKM_WriteRegister", {registerNumber, value}}, [=](State& state) {
        return state.hardware.akm.registers.Write(registerNumber, value);
    });
}

uint32_t WINAPI vdapi_AKM_SetSwitch(uint32_t switchNumber, uint32_t on) {
    return OnBoard({"vdapi_AKM_SetSwitch", {switchNumber, on}}, [=](State& state) {
        uint32_t wholeRegister = 0;
        return state.hardware.akm.SetSwitch(switchNumber, on != 0, wholeRegister);
    });
}
