#include "board/auxiliary_device.h"

#include <algorithm>
#include <array>

#include "board/state.h"

namespace board {
namespace {

constexpr uint32_t kIsacChipsField = 10;

// The volume-down button, what the DSP and the programmable logic report, the detections of
// speaker, tower, USB and microphone, the fan monitor, the identity straps. The volume-up button
// has the number of the older board's LED and is an output for that.
constexpr auto kInputs = std::to_array<uint32_t>({3, 6, 9, 13, 14, 16, 17, 18, 19, 20, 21, 39, 40});

bool IsInput(uint32_t feature) {
    return std::ranges::find(kInputs, feature) != kInputs.end();
}

}  // namespace

ResultCode AuxiliaryDevice::Switch(uint32_t feature, bool active) {
    return IsUp() ? SetLine(feature, active) : VXD_CONFIGURATION_NOT_SET;
}

ResultCode AuxiliaryDevice::Test(uint32_t feature, uint32_t& active) const {
    bool isActive = false;
    const ResultCode code = IsUp() ? GetLine(feature, isActive) : VXD_CONFIGURATION_NOT_SET;
    active = isActive;
    return code;
}

ResultCode AuxiliaryDevice::SetField(uint32_t field, uint32_t value) {
    return IsUp() ? fields.Write(field, value) : VXD_CONFIGURATION_NOT_SET;
}

ResultCode AuxiliaryDevice::SetLine(uint32_t feature, bool active) {
    if (feature > AUXDEV_FEATURE_LAST) {
        return VXD_INVALID_PARAMETER;
    }
    if (IsInput(feature)) {
        return VXD_ILLEGAL_OPERATION;
    }
    Put(feature, active);
    return VXD_SUCCESS;
}

ResultCode AuxiliaryDevice::GetLine(uint32_t feature, bool& active) const {
    if (feature > AUXDEV_FEATURE_LAST) {
        return VXD_INVALID_PARAMETER;
    }
    active = active_.contains(feature);
    return VXD_SUCCESS;
}

bool AuxiliaryDevice::DriveInput(uint32_t feature, bool active) {
    if (!IsInput(feature)) {
        return false;
    }
    Put(feature, active);
    return true;
}

void AuxiliaryDevice::Put(uint32_t feature, bool active) {
    if (active) {
        active_.insert(feature);
    } else {
        active_.erase(feature);
    }
}

ResultCode ReadAuxiliaryField(const State& state, uint32_t field, uint32_t& value) {
    if (field == kIsacChipsField) {
        value = state.IsacChips() - 1;
        return VXD_SUCCESS;
    }
    return state.auxiliaryDevice.fields.Read(field, value);
}

}  // namespace board
