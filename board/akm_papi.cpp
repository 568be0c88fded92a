// PAPI's operations on the AKM audio codec.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_AKM_ReadRegister(uint32_t registerNumber, uint8_t* value) {
    return OnBoard({"vdapi_AKM_ReadRegister", {registerNumber, value}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_AKM_WriteRegister(uint32_t registerNumber, uint32_t value) {
    return OnBoard({"vdapi_AKM_WriteRegister", {registerNumber, value}}, NotYetSimulated);
}

uint32_t WINAPI vdapi_AKM_SetSwitch(uint32_t switchNumber, uint32_t on) {
    return OnBoard({"vdapi_AKM_SetSwitch", {switchNumber, on}}, NotYetSimulated);
}
