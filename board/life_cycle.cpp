#include "board/life_cycle.h"

#include "board/state.h"

namespace board {

ResultCode LifeCycle::TurnOn(Position& position) {
    return std::exchange(position, Position::kOn) == Position::kOn ? VXD_OPERATION_ALREADY_DONE
                                                                   : VXD_SUCCESS;
}

ResultCode LifeCycle::Initialize() {
    return TurnOn(up_);
}

ResultCode LifeCycle::Terminate() {
    active_ = Position::kOff;
    return std::exchange(up_, Position::kOff) == Position::kOff ? VXD_CONFIGURATION_NOT_SET
                                                                : VXD_SUCCESS;
}

ResultCode LifeCycle::Reset() {
    if (!IsUp()) {
        return VXD_CONFIGURATION_NOT_SET;
    }
    *this = {};
    return VXD_SUCCESS;
}

ResultCode LifeCycle::Activate() {
    return IsUp() ? TurnOn(active_) : VXD_CONFIGURATION_NOT_SET;
}

ResultCode LifeCycle::Deactivate() {
    if (!IsUp()) {
        return VXD_CONFIGURATION_NOT_SET;
    }
    return std::exchange(active_, Position::kOff) == Position::kOff ? VXD_ILLEGAL_OPERATION
                                                                    : VXD_SUCCESS;
}

const char* LifeCycle::Describe() const {
    switch (up_) {
        case Position::kOnSincePowerOn:
            return "up since power-on";
        case Position::kOn:
            return "initialised";
        case Position::kOff:
            break;
    }
    return "down";
}

namespace {

// In the order of the steps.
constexpr std::array<ResultCode (LifeCycle::*)(), 5> kSteps = {
    &LifeCycle::Initialize, &LifeCycle::Terminate, &LifeCycle::Reset, &LifeCycle::Activate,
    &LifeCycle::Deactivate};

void ResetFirstIsac(State& state) {
    state.hardware.isacs[0] = IsacAtPowerOn();
}

void ResetVideoEncoder(State& state) {
    state.services.displayType = 0;
    state.hardware.videoEncoder = {};
}

void ResetArcofi(State& state) {
    state.services.arcofiChannel = 0;
    state.services.arcofiShadow = false;
    state.hardware.arcofi = {};
}

}  // namespace

constexpr std::array<ServiceEntry, kServiceCount> kServices{{
    {Service::kPci, Module::kCore, "PCI bus", false},
    {Service::kVpic, Module::kVpic, "VPIC", false, [](State& state) { state.hardware.vpic = {}; }},
    {Service::kSequencer, Module::kSeq, "sequencer", false,
     [](State& state) { state.services.sequencer = {}; }},
    {Service::kIsacMonitor, Module::kIsac, "device 13", false, ResetFirstIsac},
    {Service::kIsacIsdn, Module::kIsac, "device 14", false, ResetFirstIsac},
    {Service::kIom2, Module::kIom2, "IOM-2 bus", true},
    {Service::kMonitorArcofi, Module::kIom2, "monitor device 3", true},
    {Service::kMonitorSbcx, Module::kIom2, "monitor device 12", true},
    {Service::kArcofi, Module::kArcofi, "ARCOFI", true, ResetArcofi},
    {Service::kSaec, Module::kArcofi, "echo canceller", false,
     [](State& state) { state.hardware.saec = {}; }},
    {Service::kAec, Module::kArcofi, "echo-cancelling DSP", false},
    {Service::kI2c, Module::kI2c, "I2C bus", false},
    {Service::kDigitalCamera, Module::kCamera, "digital camera", false,
     [](State& state) { state.hardware.i2cBus.Reset(kCameraAddress); }},
    {Service::kAnalogCamera, Module::kAcif, "analog camera", false},
    {Service::kEprom, Module::kEprom, "EEPROM", false},
    {Service::kStream, Module::kStream, "stream service", false},
    {Service::kBt85x, Module::kBt85x, "video encoder", false, ResetVideoEncoder},
    {Service::kMbe, Module::kMbe, "message channel", true},
    {Service::kAnnexD, Module::kAnnexD, "still images", false},
    {Service::kVpp, Module::kVpp, "post-processing", true},
    {Service::kLsd, Module::kLsd, "channel", false},
    {Service::kHsd, Module::kHsd, "channel", false},
    {Service::kMlp, Module::kMlp, "channel", false},
    {Service::kBas, Module::kStream, "BAS", false},
}};

ResultCode NeedUp(const State& state, Service service) {
    return state.services.lifeCycles[service].IsUp() ? VXD_SUCCESS : VXD_CONFIGURATION_NOT_SET;
}

ResultCode TakeStep(State& state, Service service, Step step) {
    const ResultCode result = (state.services.lifeCycles[service].*kSteps[step])();
    const ServiceEntry& entry = kServices[static_cast<size_t>(service)];
    if (result == VXD_SUCCESS && step == kReset && entry.reset) {
        entry.reset(state);
    }
    return result;
}

}  // namespace board
