// The simulated board: what the driver libraries keep and what the board behind them holds. Only
// operations (board/operation.h), the board's own jobs (board/schedule.h) and the control interface
// touch it, under the board's lock.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "board/auxiliary_device.h"
#include "board/eeprom.h"
#include "board/firmware.h"
#include "board/hardware.h"
#include "board/monitor.h"
#include "board/outbox.h"
#include "board/registrations.h"
#include "board/schedule.h"
#include "board/services.h"
#include "driver/slot.h"

namespace board {

struct Revisions {
    uint16_t board = 0x011D;
    uint8_t vpic = 0x08;
    uint16_t driver = 0x0312;  // major, minor
    uint8_t jade = 0x21;
};

struct CallCount {
    uint32_t calls = 0;
    uint32_t failures = 0;
};

struct State {
    // Which board is plugged in.
    bool present = true;
    Revisions revisions;
    uint32_t isacChipsFitted = 0;  // 0: as many as the revision can have
    Eeprom eeprom;

    // The libraries.
    bool papiOpen = false;
    bool koraOpen = false;
    std::array<Slot, 4> sharedTable{};
    bool traceCalls = false;                      // each call as a line of debug output
    bool resultIsBit = false;                     // the operation at work answers a bit, not a code
    uint32_t stuckBits = 0;                       // they read 1 in what the operation at work gives
    std::map<std::string, CallCount> callCounts;  // by name of the command or operation
    std::optional<uint32_t> keptTime;             // where a test keeps the clock
    Schedule schedule;
    Outbox outbox;
    Registrations registrations;
    Monitor monitor;
    uint8_t pciAccess = 0;  // with which configuration space is read; 0: as it is asked for

    // The board's hardware and firmware.
    Services services;
    AuxiliaryDevice auxiliaryDevice;
    Hardware hardware;
    Firmware firmware;

    // Hands out a value that was read: with the bits that are stuck, as far as the output is wide.
    template <typename Output>
    void Give(Output& output, uint32_t value) const {
        output = static_cast<Output>(value | stuckBits);
    }

    // Answers a bit that was tested in place of a result code.
    ResultCode Answer(bool bit) {
        resultIsBit = true;
        return bit;
    }

    // The board's time in milliseconds: the system's tick count, unless a test keeps the clock.
    uint32_t Time() const;

    // How many ISAC chips the board has.
    uint32_t IsacChips() const;

    // Hardware and firmware as they are at power-on.
    void PowerOn();

    // The driver's services as after loading; registers keep what they hold.
    void RestartDriver();
};

}  // namespace board
