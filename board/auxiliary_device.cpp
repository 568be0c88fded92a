#include "board/auxiliary_device.h"

namespace board {

ResultCode AuxiliaryDevice::Initialize() {
    if (stage_ == Stage::Initialized) {
        return VXD_OPERATION_ALREADY_DONE;
    }
    stage_ = Stage::Initialized;
    return VXD_SUCCESS;
}

ResultCode AuxiliaryDevice::Terminate() {
    if (!IsUp()) {
        return VXD_CONFIGURATION_NOT_SET;
    }
    stage_ = Stage::Down;
    return VXD_SUCCESS;
}

ResultCode AuxiliaryDevice::Switch(uint32_t feature, bool active) {
    return IsUp() ? SetLine(feature, active) : VXD_CONFIGURATION_NOT_SET;
}

ResultCode AuxiliaryDevice::SetLine(uint32_t feature, bool active) {
    if (feature > AUXDEV_FEATURE_LAST) {
        return VXD_INVALID_PARAMETER;
    }
    if (active) {
        active_.insert(feature);
    } else {
        active_.erase(feature);
    }
    return VXD_SUCCESS;
}

ResultCode AuxiliaryDevice::GetLine(uint32_t feature, bool& active) const {
    if (feature > AUXDEV_FEATURE_LAST) {
        return VXD_INVALID_PARAMETER;
    }
    active = active_.contains(feature);
    return VXD_SUCCESS;
}

}  // namespace board
