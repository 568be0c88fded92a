// PAPI's operations on the I2C bus.
#include "driver/papi.h"

#include <cstdint>
#include <span>

#include "board/i2c_bus.h"
#include "board/life_cycle.h"
#include "board/papi_operation.h"

using namespace board;

namespace {

constexpr uint32_t kMostI2cItems = 256;

}  // namespace

uint32_t WINAPI vdapi_I2C_Initialize() {
    return OnBoard({"vdapi_I2C_Initialize"}, TakeStep<Service::kI2c, kInitialize>);
}

uint32_t WINAPI vdapi_I2C_Terminate() {
    return OnBoard({"vdapi_I2C_Terminate"}, TakeStep<Service::kI2c, kTerminate>);
}

uint32_t WINAPI vdapi_I2C_Transfer(const uint16_t* items, uint32_t count, uint32_t* result) {
    // More items than any transfer has can only be a mistake, and are not looked at.
    const std::span<const uint16_t> known(items, items && count <= kMostI2cItems ? count : 0);
    return OnService(
        Service::kI2c,
        {"vdapi_I2C_Transfer", {items, count, result}, BytesAt(items, known.size_bytes())},
        [=](State& state) {
            const ResultCode code = state.hardware.i2cBus.Transfer(known, result);
            if (code == VXD_SUCCESS && known.back() == I2cBus::kReadByte) {
                state.Give(*result, *result);
            }
            return code;
        });
}
