#include "board/state.h"

#include <algorithm>

#include "platform/win32.h"

namespace board {

uint32_t State::Time() const {
    return keptTime.value_or(GetTickCount());
}

uint32_t State::IsacChips() const {
    const uint32_t most = MostIsacChips(revisions.board);
    return isacChipsFitted == 0 ? most : std::min(isacChipsFitted, most);
}

void State::PowerOn() {
    schedule = {};
    services = {};
    auxiliaryDevice = {};
    hardware = {};
    firmware = {};
}

void State::RestartDriver() {
    schedule = {};
    services.lifeCycles = {};
    services.sequencer = {};
    services.mbe = {};
    services.userData = {};
    services.bas = {};
    services.vpp = {};
    services.videoInlay = {};
    services.codecProcessorRegistered = false;
    auxiliaryDevice = {};
    firmware.streams = Firmware{}.streams;
}

}  // namespace board
