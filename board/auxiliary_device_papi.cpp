// PAPI's operations on the auxiliary device.
#include "driver/papi.h"

#include <cstdint>

#include "board/auxiliary_device.h"
#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_AUXDEV_Initialize() {
    return OnBoard(
        {"vdapi_AUXDEV_Initialize"},
        [](State& state) { return state.auxiliaryDevice.Initialize(); },
        [](State& state) { state.auxiliaryDevice.FailToInitialize(); });
}

uint32_t WINAPI vdapi_AUXDEV_Terminate() {
    return OnBoard({"vdapi_AUXDEV_Terminate"},
                   [](State& state) { return state.auxiliaryDevice.Terminate(); });
}

uint32_t WINAPI vdapi_AUXDEV_HardwareReset() {
    return OnBoard({"vdapi_AUXDEV_HardwareReset"}, [](State& state) {
        if (!state.auxiliaryDevice.IsUp()) {
            return VXD_CONFIGURATION_NOT_SET;
        }
        state.PowerOn();
        return VXD_SUCCESS;
    });
}

uint32_t WINAPI vdapi_AUXDEV_Activate(uint32_t feature) {
    return OnBoard({"vdapi_AUXDEV_Activate", {feature}},
                   [=](State& state) { return state.auxiliaryDevice.Switch(feature, true); });
}

uint32_t WINAPI vdapi_AUXDEV_Deactivate(uint32_t feature) {
    return OnBoard({"vdapi_AUXDEV_Deactivate", {feature}},
                   [=](State& state) { return state.auxiliaryDevice.Switch(feature, false); });
}

uint32_t WINAPI vdapi_AUXDEV_GetFeature(uint32_t feature, uint16_t* value) {
    return OnBoard({"vdapi_AUXDEV_GetFeature", {feature, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& active) {
            return state.auxiliaryDevice.Test(feature, active);
        });
    });
}

uint32_t WINAPI vdapi_AUXDEV_SetField(uint32_t field, uint32_t value) {
    return OnBoard({"vdapi_AUXDEV_SetField", {field, value}},
                   [=](State& state) { return state.auxiliaryDevice.SetField(field, value); });
}

uint32_t WINAPI vdapi_AUXDEV_GetField(uint32_t field, uint16_t* value) {
    return OnBoard({"vdapi_AUXDEV_GetField", {field, value}}, [=](State& state) {
        return ReadInto(state, value, [&](uint32_t& read) {
            return state.auxiliaryDevice.IsUp() ? ReadAuxiliaryField(state, field, read)
                                                : VXD_CONFIGURATION_NOT_SET;
        });
    });
}
