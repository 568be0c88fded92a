// PAPI's operations on the firmware commands and the debug levels of its modules.
#include "driver/papi.h"

#include <cstdint>

#include "board/firmware.h"
#include "board/papi_operation.h"
#include "board/trace.h"

using namespace board;

uint32_t WINAPI vdapi_SendCommand(uint32_t command, uint32_t parameter1, uint32_t parameter2,
                                  uint32_t parameter3, uint32_t* response1, uint32_t* response2,
                                  uint16_t* response3) {
    const FirmwareCommand* known = FindFirmwareCommand(command);
    return OnBoard({"vdapi_SendCommand",
                    {command, parameter1, parameter2, parameter3, response1, response2, response3},
                    {},
                    known ? known->name : ""},
                   [=](State& state) {
                       if (!known) {
                           return VXD_OPERATION_NOT_SUPPORTED;
                       }
                       if (!response1 || !response2 || !response3) {
                           return VXD_INVALID_PARAMETER;
                       }
                       const FirmwareParameters parameters{parameter1, parameter2, parameter3};
                       FirmwareResponses responses;
                       const ResultCode code = known->run(state, parameters, responses);
                       if (code == VXD_SUCCESS) {
                           TraceUsb(state, *known, parameters, responses);
                           state.Give(*response1, responses.first);
                           state.Give(*response2, responses.second);
                           state.Give(*response3, responses.third);
                       }
                       return code;
                   });
}

uint32_t WINAPI vdapi_GetModuleDebugLevel(uint32_t module, uint16_t* level) {
    return OnBoard({"vdapi_GetModuleDebugLevel", {module, level}}, [=](State& state) {
        return ReadInto(state, level, [&](uint32_t& value) {
            return state.firmware.moduleDebugLevels.Read(module, value);
        });
    });
}

uint32_t WINAPI vdapi_SetModuleDebugLevel(uint32_t module, uint32_t level) {
    return OnBoard({"vdapi_SetModuleDebugLevel", {module, level}}, [=](State& state) {
        return state.firmware.moduleDebugLevels.Write(module, level);
    });
}
