#include "board/state.h"

namespace board {

void State::PowerOn() {
    auxiliaryDevice = {};
    firmware = {};
}

void State::RestartDriver() {
    auxiliaryDevice = {};
    firmware.streams = Firmware{}.streams;
}

}  // namespace board
