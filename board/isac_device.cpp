#include "board/isac_device.h"

#include "board/isac.h"
#include "board/state.h"

namespace board {
namespace {

constexpr uint16_t kFirstChip = 1;

}  // namespace

std::optional<Service> IsacDevice(uint32_t device) {
    switch (device) {
        case 13:
            return Service::IsacMonitor;
        case 14:
            return Service::IsacIsdn;
    }
    return std::nullopt;
}

ResultCode InitializeIsacDevice(State& state, const IsacInitializeBlock& block) {
    const std::optional<Service> service = IsacDevice(block.device.value);
    if (!service ||
        !state.registrations.IsGiven(Client::Isac, block.device.value, block.registration)) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode result = TakeStep(state, *service, kInitialize);
    if (result == VXD_SUCCESS && block.initializeChip.value) {
        return InitializeIsacChip(state, {kFirstChip});
    }
    return result;
}

}  // namespace board
