// The life cycle that the board's chips and the driver's services share.
//
// At power-on each of them is up, as the board's own software leaves it, and active where it can be
// activated; the driver may take it over, initialising or activating it once more. The answers:
// - Initialize, Activate: VXD_OPERATION_ALREADY_DONE where the driver has done it before.
// - Everything but Initialize: VXD_CONFIGURATION_NOT_SET while it is down.
// - Deactivate: VXD_ILLEGAL_OPERATION while it is not active.
// Terminate ends activity too; Reset makes all as at power-on, the chip's registers included.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <utility>

#include "board/module.h"
#include "driver/parameter_block.h"
#include "driver/result_code.h"

namespace board {

struct State;

class LifeCycle {
  public:
    ResultCode Initialize();
    ResultCode Terminate();
    ResultCode Reset();
    ResultCode Activate();
    ResultCode Deactivate();

    bool IsUp() const { return up_ != Position::kOff; }
    bool IsActive() const { return active_ != Position::kOff; }

    // "down", "up since power-on" or "initialised".
    const char* Describe() const;

  private:
    enum class Position { kOff, kOnSincePowerOn, kOn };

    static ResultCode TurnOn(Position& position);

    Position up_ = Position::kOnSincePowerOn;
    Position active_ = Position::kOnSincePowerOn;
};

// Whoever registers can do so once, and unregister only then.
inline ResultCode Register(bool& registered) {
    return std::exchange(registered, true) ? VXD_OPERATION_ALREADY_DONE : VXD_SUCCESS;
}
inline ResultCode Unregister(bool& registered) {
    return std::exchange(registered, false) ? VXD_SUCCESS : VXD_CONFIGURATION_NOT_SET;
}

// What has a life cycle, but for the auxiliary device, which keeps its own
// (board/auxiliary_device.h).
enum class Service {
    kPci,   // can only be initialised
    kVpic,  // comes up again with the driver or the whole board only
    kSequencer,
    kIsacMonitor,    // ISAC device 13
    kIsacIsdn,       // ISAC device 14
    kIom2,           // can be activated while an ISAC device is up
    kMonitorArcofi,  // monitor device 3
    kMonitorSbcx,    // monitor device 12
    kArcofi,
    kSaec,
    kAec,
    kI2c,
    kDigitalCamera,
    kAnalogCamera,
    kEprom,
    kStream,
    kBt85x,
    kMbe,  // active while it has an outgoing stream
    kAnnexD,
    kVpp,
    kLsd,
    kHsd,
    kMlp,
    kBas,
};

struct ServiceEntry {
    Service service;
    Module module;
    const char* name;
    bool canBeActive;                       // there is something to activate
    void (*reset)(State& state) = nullptr;  // what else Reset makes as at power-on
};

inline constexpr size_t kServiceCount = static_cast<size_t>(Service::kBas) + 1;
// In the order of the services.
extern const std::array<ServiceEntry, kServiceCount> kServices;

class LifeCycles {
  public:
    LifeCycle& operator[](Service service) { return all_[static_cast<size_t>(service)]; }
    const LifeCycle& operator[](Service service) const {
        return all_[static_cast<size_t>(service)];
    }

  private:
    std::array<LifeCycle, kServiceCount> all_;
};

// VXD_CONFIGURATION_NOT_SET while the service is down.
ResultCode NeedUp(const State& state, Service service);

// A step of a life cycle. Not the member function's address: on Windows each library has its own.
enum Step { kInitialize, kTerminate, kReset, kActivate, kDeactivate };

// Takes a service one step through its life cycle.
ResultCode TakeStep(State& state, Service service, Step step);

// The same as the work of an operation or a debug command.
template <Service kService, Step kStep>
ResultCode TakeStep(State& state) {
    return TakeStep(state, kService, kStep);
}

// The same for a command that names a device: VXD_INVALID_PARAMETER where there is none of that
// number.
template <std::optional<Service> (*kFind)(uint32_t device), Step kStep>
ResultCode TakeDeviceStep(State& state, const DeviceBlock& block) {
    const std::optional<Service> service = kFind(block.device.value);
    return service ? TakeStep(state, *service, kStep) : VXD_INVALID_PARAMETER;
}

}  // namespace board
