// PAPI's operations on Annex-D.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_ANNEXD_Initialize() {
    return OnBoard({"vdapi_ANNEXD_Initialize"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_ANNEXD_Terminate() {
    return OnBoard({"vdapi_ANNEXD_Terminate"}, NotYetSimulated);
}

uint32_t WINAPI vdapi_ANNEXD_Download(uint32_t constant, uint32_t size, void* buffer,
                                      uint32_t* byteCount) {
    return OnBoard({"vdapi_ANNEXD_Download", {constant, size, buffer, byteCount}}, NotYetSimulated);
}
