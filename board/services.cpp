#include "board/services.h"

#include "board/state.h"

namespace board {
namespace {

constexpr uint32_t kSecondArcofiChannel = 0x40;
constexpr uint32_t kLastDisplayType = 1;
constexpr uint32_t kJadeReset = 0x32;

}  // namespace

ResultCode SelectArcofiChannel(State& state, uint32_t channelCode) {
    if (channelCode != 0 && channelCode != kSecondArcofiChannel) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode result = NeedUp(state, Service::kArcofi);
    if (result == VXD_SUCCESS) {
        state.services.arcofiChannel = channelCode;
    }
    return result;
}

ResultCode InitializeArcofiShadow(State& state) {
    const ResultCode result = NeedUp(state, Service::kArcofi);
    if (result == VXD_SUCCESS) {
        state.services.arcofiShadow = true;
    }
    return result;
}

ResultCode SetDisplayType(State& state, uint32_t type) {
    if (type > kLastDisplayType) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode result = NeedUp(state, Service::kBt85x);
    if (result == VXD_SUCCESS) {
        state.services.displayType = type;
    }
    return result;
}

ResultCode RegisterCodecProcessor(State& state, const VcpxiRegisterBlock& block) {
    if (block.reserved[0] || block.reserved[1]) {
        return VXD_INVALID_PARAMETER;
    }
    return Register(state.services.codecProcessorRegistered);
}

ResultCode UnregisterCodecProcessor(State& state) {
    return Unregister(state.services.codecProcessorRegistered);
}

ResultCode ResetJade(State& state, uint32_t code) {
    if (code != kJadeReset) {
        return VXD_INVALID_PARAMETER;
    }
    state.hardware.jade = JadeAtPowerOn();
    return VXD_SUCCESS;
}

}  // namespace board
