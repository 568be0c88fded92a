// PAPI's operations on the EEPROM.
#include "driver/papi.h"

#include <algorithm>
#include <cstdint>

#include "board/eeprom.h"
#include "board/life_cycle.h"
#include "board/papi_operation.h"

using namespace board;

namespace {

// How many bytes a transfer has at most.
constexpr uint32_t kEpromBytes = 8;

}  // namespace

uint32_t WINAPI vdapi_EPROM_Initialize() {
    return OnBoard({"vdapi_EPROM_Initialize"}, TakeStep<Service::kEprom, kInitialize>);
}

uint32_t WINAPI vdapi_EPROM_Terminate() {
    return OnBoard({"vdapi_EPROM_Terminate"}, TakeStep<Service::kEprom, kTerminate>);
}

uint32_t WINAPI vdapi_EPROM_Read(uint32_t address, uint8_t* buffer, uint32_t length,
                                 uint32_t constant) {
    return OnService(Service::kEprom, {"vdapi_EPROM_Read", {address, buffer, length, constant}},
                     [=](State& state) { return StartEepromRead(state, address, buffer, length); });
}

uint32_t WINAPI vdapi_EPROM_Write(uint32_t address, const uint8_t* buffer, uint32_t length,
                                  uint32_t constant) {
    return OnService(
        Service::kEprom,
        {"vdapi_EPROM_Write",
         {address, buffer, length, constant},
         BytesAt(buffer, std::min(length, kEpromBytes))},
        [=](State& state) { return StartEepromWrite(state, address, buffer, length); });
}
