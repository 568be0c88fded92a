// PAPI's operations on the echo-cancelling DSP.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_AEC_Initialize() {
    return OnBoard({"vdapi_AEC_Initialize"}, InitializeAec);
}

uint32_t WINAPI vdapi_AEC_Terminate() {
    return OnBoard({"vdapi_AEC_Terminate"}, TakeStep<Service::kAec, kTerminate>);
}

uint32_t WINAPI vdapi_AEC_SetMode(uint32_t code) {
    return OnService(Service::kAec, {"vdapi_AEC_SetMode", {code}},
                     [=](State& state) { return state.hardware.aec.SetMode(code); });
}
