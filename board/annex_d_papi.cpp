// PAPI's operations on Annex-D.
#include "driver/papi.h"

#include <cstdint>

#include "board/annex_d.h"
#include "board/life_cycle.h"
#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_ANNEXD_Initialize() {
    return OnBoard({"vdapi_ANNEXD_Initialize"}, TakeStep<Service::kAnnexD, kInitialize>);
}

uint32_t WINAPI vdapi_ANNEXD_Terminate() {
    return OnBoard({"vdapi_ANNEXD_Terminate"}, TakeStep<Service::kAnnexD, kTerminate>);
}

uint32_t WINAPI vdapi_ANNEXD_Download(uint32_t channel, uint32_t size, void* buffer,
                                      uint32_t* byteCount) {
    return OnService(Service::kAnnexD,
                     {"vdapi_ANNEXD_Download", {channel, size, buffer, byteCount}}, [=](State&) {
                         return DownloadAnnexD(channel, size, static_cast<uint8_t*>(buffer),
                                               byteCount);
                     });
}
