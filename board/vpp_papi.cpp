// PAPI's operations on video inlay and post-processing.
#include "driver/papi.h"

#include <cstdint>

#include "board/life_cycle.h"
#include "board/papi_operation.h"
#include "board/video_inlay.h"
#include "board/vpp.h"

using namespace board;

uint32_t WINAPI vdapi_VIDINLAY_SetFrameDispMode(uint32_t mode) {
    return OnBoard({"vdapi_VIDINLAY_SetFrameDispMode", {mode}},
                   [=](State& state) { return SetFrameDisplayMode(state, mode); });
}

uint32_t WINAPI vdapi_VPP_Initialize() {
    return OnBoard({"vdapi_VPP_Initialize"}, TakeStep<Service::kVpp, kInitialize>);
}

uint32_t WINAPI vdapi_VPP_Terminate() {
    return OnBoard({"vdapi_VPP_Terminate"}, TakeStep<Service::kVpp, kTerminate>);
}

uint32_t WINAPI vdapi_VPP_Activate() {
    return OnBoard({"vdapi_VPP_Activate"}, TakeStep<Service::kVpp, kActivate>);
}

uint32_t WINAPI vdapi_VPP_Deactivate() {
    return OnBoard({"vdapi_VPP_Deactivate"}, TakeStep<Service::kVpp, kDeactivate>);
}

uint32_t WINAPI vdapi_VPP_SetMode(uint32_t modeWord, const uint32_t* parameters) {
    return OnService(
        Service::kVpp,
        {"vdapi_VPP_SetMode", {modeWord, parameters}, BytesAt(parameters, sizeof(VppParameters))},
        [=](State& state) {
            return SetVppMode(state, modeWord, reinterpret_cast<const VppParameters*>(parameters));
        });
}
