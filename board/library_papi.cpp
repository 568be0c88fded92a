// PAPI's operations on the library itself, and on the board and its driver as a whole.
#include "driver/papi.h"

#include <cstdint>

#include "board/papi_operation.h"
#include "board/settings.h"

using namespace board;

uint32_t WINAPI vdapi_Initialize(uint32_t reserved) {
    return Perform({"vdapi_Initialize", {reserved}}, kNothing, [](State& state) {
        ReadSettings(state);
        return Open(state.papiOpen);
    });
}

uint32_t WINAPI vdapi_Terminate() {
    return Close({"vdapi_Terminate"}, kPapiOpen, [](State& state) { state.papiOpen = false; });
}

uint32_t WINAPI vdapi_GetVersion(uint16_t* boardRevision, uint8_t* vpicRevision,
                                 uint16_t* driverRevision, uint8_t* jadeRevision) {
    return OnBoard(
        {"vdapi_GetVersion", {boardRevision, vpicRevision, driverRevision, jadeRevision}},
        [=](State& state) {
            if (!boardRevision || !vpicRevision || !driverRevision || !jadeRevision) {
                return VXD_INVALID_PARAMETER;
            }
            state.Give(*boardRevision, state.revisions.board);
            state.Give(*vpicRevision, state.revisions.vpic);
            state.Give(*driverRevision, state.revisions.driver);
            state.Give(*jadeRevision, state.revisions.jade);
            return VXD_SUCCESS;
        });
}

uint32_t WINAPI vdapi_ResetVxD() {
    return OnBoard({"vdapi_ResetVxD"}, [](State& state) {
        state.RestartDriver();
        return VXD_SUCCESS;
    });
}
