// PAPI's operations on the MBE data channel.
#include "driver/papi.h"

#include <cstdint>

#include "board/life_cycle.h"
#include "board/mbe.h"
#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_MBE_Initialize(uint32_t channel, uint32_t capacity) {
    return OnBoard({"vdapi_MBE_Initialize", {channel, capacity}},
                   [=](State& state) { return InitializeMbe(state, channel, capacity); });
}

uint32_t WINAPI vdapi_MBE_Terminate() {
    return OnBoard({"vdapi_MBE_Terminate"}, TerminateMbe);
}

uint32_t WINAPI vdapi_MBE_RegisterOutgoingStream() {
    return OnBoard({"vdapi_MBE_RegisterOutgoingStream"}, TakeStep<Service::kMbe, kActivate>);
}

uint32_t WINAPI vdapi_MBE_Read(void* buffer, uint16_t* length, uint32_t* reserved) {
    return OnService(Service::kMbe, {"vdapi_MBE_Read", {buffer, length, reserved}},
                     [=](State& state) { return ReadMbe(state, buffer, length, reserved); });
}

uint32_t WINAPI vdapi_MBE_Write(const char* text, uint32_t channel, uint32_t length,
                                uint32_t terminator) {
    return OnService(
        Service::kMbe, {"vdapi_MBE_Write", {text, channel, length, terminator}}, [=](State& state) {
            return WriteMbe(state, text, channel, length, static_cast<uint8_t>(terminator));
        });
}
