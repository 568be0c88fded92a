// PAPI's operations on memory and I/O ports.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_MEM_Read(uint32_t address, uint32_t unitSize, uint32_t* value) {
    return OnBoard({"vdapi_MEM_Read", {address, unitSize, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& read) {
            return state.hardware.memory.Read(address, unitSize, read);
        });
    });
}

uint32_t WINAPI vdapi_MEM_Write(uint32_t address, uint32_t unitSize, uint32_t value) {
    return OnBoard({"vdapi_MEM_Write", {address, unitSize, value}}, [=](State& state) {
        return state.hardware.memory.Write(address, unitSize, value);
    });
}

uint32_t WINAPI vdapi_IO_Read(uint32_t port, uint32_t unitSize, uint32_t* value) {
    return OnBoard({"vdapi_IO_Read", {port, unitSize, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& read) {
            return state.hardware.ports.Read(port, unitSize, read);
        });
    });
}

uint32_t WINAPI vdapi_IO_Write(uint32_t port, uint32_t unitSize, uint32_t value) {
    return OnBoard({"vdapi_IO_Write", {port, unitSize, value}},
                   [=](State& state) { return state.hardware.ports.Write(port, unitSize, value); });
}
