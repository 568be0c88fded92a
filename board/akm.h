// The AKM audio codec: 26 registers of 8 bits, from 0x00 to 0x19. Driver and firmware reach the
// same ones.
//
// Eight of them are the levels of the channels master, voice, line and auxiliary, left and right
// each: bit 7 enables the channel, the low bits are its level. In others each bit is one of the
// mixer's 17 switches.
#pragma once

#include <cstdint>

#include "board/registers.h"
#include "driver/result_code.h"

namespace board {

struct Akm {
    Akm();

    // Each gives the whole register as it stands then, and answers VXD_INVALID_PARAMETER for a
    // switch beyond 16, a channel beyond 7 or a level beyond 31.
    ResultCode SetSwitch(uint32_t number, bool on, uint32_t& wholeRegister);
    ResultCode SetLevel(uint32_t channel, uint32_t level, uint32_t& wholeRegister);
    ResultCode Mute(uint32_t channel, bool mute, uint32_t& wholeRegister);

    Registers registers{.last = 0x19, .mask = 0xFF};

  private:
    ResultCode Change(uint32_t number, uint32_t mask, uint32_t bits, uint32_t& wholeRegister);
};

}  // namespace board
