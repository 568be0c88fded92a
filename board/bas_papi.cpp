// PAPI's operations on BAS.
#include "driver/papi.h"

#include <cstddef>
#include <cstdint>

#include "board/bas.h"
#include "board/life_cycle.h"
#include "board/papi_operation.h"

using namespace board;

namespace {

constexpr size_t kBasBytes = 6;

}  // namespace

uint32_t WINAPI vdapi_BAS_Initialize() {
    return OnBoard({"vdapi_BAS_Initialize"}, TakeStep<Service::kBas, kInitialize>);
}

uint32_t WINAPI vdapi_BAS_Terminate() {
    return OnBoard({"vdapi_BAS_Terminate"}, TerminateBas);
}

uint32_t WINAPI vdapi_BAS_Write(int32_t commandCount, int32_t repeatCount, const uint8_t* data,
                                int32_t length) {
    return OnService(
        Service::kBas,
        {"vdapi_BAS_Write", {commandCount, repeatCount, data, length}, BytesAt(data, kBasBytes)},
        [=](State& state) { return SendBas(state, commandCount, repeatCount, data, length); });
}
