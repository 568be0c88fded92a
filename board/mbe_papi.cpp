// PAPI's operations on the MBE data channel.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_MBE_Initialize(uint32_t channel, uint32_t capacity) {
    return OnBoard({"vdapi_MBE_Initialize", {channel, capacity}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_MBE_Terminate() {
    return OnBoard({"vdapi_MBE_Terminate"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_MBE_RegisterOutgoingStream() {
    return OnBoard({"vdapi_MBE_RegisterOutgoingStream"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_MBE_Read(void* buffer, uint16_t* length, uint32_t* scratch) {
    return OnBoard({"vdapi_MBE_Read", {buffer, length, scratch}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_MBE_Write(const char* text, uint32_t constant, uint32_t length,
                                uint32_t terminator) {
    return OnBoard({"vdapi_MBE_Write", {text, constant, length, terminator}}, NotYetSimulated);
}
