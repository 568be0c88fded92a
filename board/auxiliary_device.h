// The board's auxiliary device: feature lines (the LED among them) and fields.
#pragma once

#include <cstdint>
#include <set>

#include "board/registers.h"
#include "driver/papi.h"
#include "driver/result_code.h"

namespace board {

class AuxiliaryDevice {
  public:
    // The driver's life cycle. The board's own software has brought the device up at power-on, so
    // it can be used, initialised or terminated at once. Initialising twice answers
    // VXD_OPERATION_ALREADY_DONE; terminating what is down VXD_CONFIGURATION_NOT_SET.
    ResultCode Initialize();
    ResultCode Terminate();

    // What an attempt to initialise leaves when it fails: a device that is down.
    void FailToInitialize() { stage_ = Stage::Down; }

    // A feature line as the driver switches it: VXD_CONFIGURATION_NOT_SET while the device is down.
    ResultCode Switch(uint32_t feature, bool active);

    // A feature line as the board's firmware sees it, whatever the driver did with the device. A
    // number that no line has answers VXD_INVALID_PARAMETER.
    ResultCode SetLine(uint32_t feature, bool active);
    ResultCode GetLine(uint32_t feature, bool& active) const;

    bool IsUp() const { return stage_ != Stage::Down; }

    // 16 fields of 16 bits: "Arcofi Serial In" (9) and the number of ISAC chips (10) are read-only.
    Registers fields{.last = 15, .mask = 0xFFFF, .values = {{10, 1}}, .readOnly = {9, 10}};

  private:
    enum class Stage { Down, UpSincePowerOn, Initialized };

    Stage stage_ = Stage::UpSincePowerOn;
    std::set<uint32_t> active_{AUXDEV_FEATURE_MVIP_ROUTING};
};

}  // namespace board
