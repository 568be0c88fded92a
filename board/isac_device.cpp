#include "board/isac_device.h"

#include "board/isac.h"
#include "board/state.h"

namespace board {

std::optional<Service> IsacDevice(uint32_t device) {
    switch (device) {
        case 13:
            return Service::kIsacMonitor;
        case 14:
            return Service::kIsacIsdn;
    }
    return std::nullopt;
}

ResultCode InitializeIsacDevice(State& state, const IsacInitializeBlock& block) {
    const std::optional<Service> service = IsacDevice(block.device.value);
    if (!service ||
        !state.registrations.IsGiven(Client::kIsac, block.device.value, block.registration)) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode result = TakeStep(state, *service, kInitialize);
    if (result == VXD_SUCCESS && block.initializeChip.value) {
        return InitializeIsacChip(state, {kFirstIsacChip});
    }
    return result;
}

ResultCode TerminateIsacDevice(State& state, const DeviceBlock& block) {
    const ResultCode result = TakeDeviceStep<IsacDevice, kTerminate>(state, block);
    if (!IsIom2Driven(state)) {
        TakeStep(state, Service::kIom2, kDeactivate);
    }
    return result;
}

bool IsIom2Driven(const State& state) {
    return NeedUp(state, Service::kIsacMonitor) == VXD_SUCCESS ||
           NeedUp(state, Service::kIsacIsdn) == VXD_SUCCESS;
}

}  // namespace board
