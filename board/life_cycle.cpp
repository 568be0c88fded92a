#include "board/life_cycle.h"

#include "board/state.h"

namespace board {

ResultCode LifeCycle::TurnOn(Position& position) {
    return std::exchange(position, Position::On) == Position::On ? VXD_OPERATION_ALREADY_DONE
                                                                 : VXD_SUCCESS;
}

ResultCode LifeCycle::Initialize() {
    return TurnOn(up_);
}

ResultCode LifeCycle::Terminate() {
    active_ = Position::Off;
    return std::exchange(up_, Position::Off) == Position::Off ? VXD_CONFIGURATION_NOT_SET
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
    return std::exchange(active_, Position::Off) == Position::Off ? VXD_ILLEGAL_OPERATION
                                                                  : VXD_SUCCESS;
}

const char* LifeCycle::Describe() const {
    switch (up_) {
        case Position::OnSincePowerOn:
            return "up since power-on";
        case Position::On:
            return "initialised";
        case Position::Off:
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
    {Service::Pci, Module::Core, "PCI bus", false},
    {Service::Vpic, Module::Vpic, "VPIC", false, [](State& state) { state.hardware.vpic = {}; }},
    {Service::Sequencer, Module::Seq, "sequencer", false,
     [](State& state) { state.services.sequencer = {}; }},
    {Service::IsacMonitor, Module::Isac, "device 13", false, ResetFirstIsac},
    {Service::IsacIsdn, Module::Isac, "device 14", false, ResetFirstIsac},
    {Service::Iom2, Module::Iom2, "IOM-2 bus", true},
    {Service::MonitorArcofi, Module::Iom2, "monitor device 3", true},
    {Service::MonitorSbcx, Module::Iom2, "monitor device 12", true},
    {Service::Arcofi, Module::Arcofi, "ARCOFI", true, ResetArcofi},
    {Service::Saec, Module::Arcofi, "echo canceller", false,
     [](State& state) { state.hardware.saec = {}; }},
    {Service::Aec, Module::Arcofi, "echo-cancelling DSP", false},
    {Service::I2c, Module::I2c, "I2C bus", false},
    {Service::DigitalCamera, Module::Camera, "digital camera", false,
     [](State& state) { state.hardware.i2cBus.Reset(kDigitalCamera); }},
    {Service::AnalogCamera, Module::Acif, "analog camera", false},
    {Service::Eprom, Module::Eprom, "EEPROM", false},
    {Service::Stream, Module::Stream, "stream service", false},
    {Service::Bt85x, Module::Bt85x, "video encoder", false, ResetVideoEncoder},
    {Service::Mbe, Module::Mbe, "message channel", true},
    {Service::AnnexD, Module::AnnexD, "still images", false},
    {Service::Vpp, Module::Vpp, "post-processing", true},
    {Service::Lsd, Module::Lsd, "channel", false},
    {Service::Hsd, Module::Hsd, "channel", false},
    {Service::Mlp, Module::Mlp, "channel", false},
    {Service::Bas, Module::Stream, "BAS", false},
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
