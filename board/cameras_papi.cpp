// PAPI's operations on the cameras, two chips on the I2C bus.
#include "driver/papi.h"

#include <cstdint>

#include "board/i2c_bus.h"
#include "board/life_cycle.h"
#include "board/papi_operation.h"

using namespace board;

uint32_t WINAPI vdapi_CAM_Digit_Initialize() {
    return OnBoard({"vdapi_CAM_Digit_Initialize"}, TakeStep<Service::kDigitalCamera, kInitialize>);
}

uint32_t WINAPI vdapi_CAM_Digit_Terminate() {
    return OnBoard({"vdapi_CAM_Digit_Terminate"}, TakeStep<Service::kDigitalCamera, kTerminate>);
}

uint32_t WINAPI vdapi_CAM_Digit_Read(uint32_t registerId, uint8_t* value) {
    return OnService(
        Service::kDigitalCamera, {"vdapi_CAM_Digit_Read", {registerId, value}}, [=](State& state) {
            return ReadInto(state, value, [&](uint32_t& read) {
                return state.hardware.i2cBus.Read(kCameraAddress, CameraRegister(registerId), read);
            });
        });
}

uint32_t WINAPI vdapi_CAM_Digit_Write(uint32_t registerId, uint32_t value) {
    return OnService(
        Service::kDigitalCamera, {"vdapi_CAM_Digit_Write", {registerId, value}}, [=](State& state) {
            return state.hardware.i2cBus.Write(kCameraAddress, CameraRegister(registerId), value);
        });
}

uint32_t WINAPI vdapi_CAM_ACIF_Initialize() {
    return OnBoard({"vdapi_CAM_ACIF_Initialize"}, TakeStep<Service::kAnalogCamera, kInitialize>);
}

uint32_t WINAPI vdapi_CAM_ACIF_Terminate() {
    return OnBoard({"vdapi_CAM_ACIF_Terminate"}, TakeStep<Service::kAnalogCamera, kTerminate>);
}

uint32_t WINAPI vdapi_CAM_ACIF_Read(uint32_t registerId, uint8_t* value) {
    return OnService(
        Service::kAnalogCamera, {"vdapi_CAM_ACIF_Read", {registerId, value}}, [=](State& state) {
            return ReadInto(state, value, [&](uint32_t& read) {
                return state.hardware.i2cBus.Read(kVideoDecoder, CameraRegister(registerId), read);
            });
        });
}

uint32_t WINAPI vdapi_CAM_ACIF_Write(uint32_t registerId, uint32_t value) {
    return OnService(
        Service::kAnalogCamera, {"vdapi_CAM_ACIF_Write", {registerId, value}}, [=](State& state) {
            return state.hardware.i2cBus.Write(kVideoDecoder, CameraRegister(registerId), value);
        });
}
