// The simulated board: what the driver libraries keep and what the board behind them holds. Only
// operations (board/operation.h) and the control interface touch it, under the board's lock.
#pragma once

#include <array>
#include <cstdint>

#include "board/auxiliary_device.h"
#include "board/firmware.h"
#include "driver/slot.h"

namespace board {

struct Revisions {
    uint16_t board = 0x011D;
    uint8_t vpic = 0x08;
    uint16_t driver = 0x0312;  // major, minor
    uint8_t jade = 0x21;
};

struct State {
    // Which board is plugged in.
    bool present = true;
    Revisions revisions;

    // The libraries.
    bool papiOpen = false;
    bool koraOpen = false;
    std::array<Slot, 4> sharedTable{};
    bool traceCalls = false;  // each call as a line of debug output

    // The board's hardware and firmware.
    AuxiliaryDevice auxiliaryDevice;
    Firmware firmware;

    // Hardware and firmware as they are at power-on.
    void PowerOn();

    // The driver's services as after loading; registers keep what they hold.
    void RestartDriver();
};

}  // namespace board
