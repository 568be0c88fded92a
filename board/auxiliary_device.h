// The board's auxiliary device: feature lines (the LED among them) and fields.
#pragma once

#include <cstdint>
#include <set>

#include "board/life_cycle.h"
#include "board/registers.h"
#include "driver/papi.h"
#include "driver/result_code.h"

namespace board {

struct State;

class AuxiliaryDevice {
  public:
    // The driver's life cycle. The board's own software has brought the device up at power-on, so
    // it can be used, initialised or terminated at once. Initialising twice answers
    // VXD_OPERATION_ALREADY_DONE; terminating what is down VXD_CONFIGURATION_NOT_SET.
    ResultCode Initialize() { return lifeCycle_.Initialize(); }
    ResultCode Terminate() { return lifeCycle_.Terminate(); }

    // What an attempt to initialise leaves when it fails: a device that is down.
    void FailToInitialize() { lifeCycle_.Terminate(); }

    // A feature line as the driver switches and tests it: VXD_CONFIGURATION_NOT_SET while the
    // device is down.
    ResultCode Switch(uint32_t feature, bool active);
    ResultCode Test(uint32_t feature, uint32_t& active) const;

    // A field as the driver sets it: VXD_CONFIGURATION_NOT_SET while the device is down.
    ResultCode SetField(uint32_t field, uint32_t value);

    // A feature line as the board's firmware sees it, whatever the driver did with the device. A
    // number that no line has answers VXD_INVALID_PARAMETER; setting an input (a button, a
    // detection, what another chip reports) VXD_ILLEGAL_OPERATION.
    ResultCode SetLine(uint32_t feature, bool active);
    ResultCode GetLine(uint32_t feature, bool& active) const;

    // What the world outside does to an input; false for a line that is none.
    bool DriveInput(uint32_t feature, bool active);

    bool IsUp() const { return lifeCycle_.IsUp(); }

    // 16 fields of 16 bits: "Arcofi Serial In" (9) and the number of ISAC chips (10) are read-only.
    Registers fields{.last = 15, .mask = 0xFFFF, .readOnly = {9, 10}};

  private:
    void Put(uint32_t feature, bool active);

    LifeCycle lifeCycle_;
    std::set<uint32_t> active_{AUXDEV_FEATURE_MVIP_ROUTING, 17, 20};  // USB power, identity 1
};

// A field as driver and firmware read it: field 10 says how many ISAC chips the board has beyond
// the first.
ResultCode ReadAuxiliaryField(const State& state, uint32_t field, uint32_t& value);

}  // namespace board
