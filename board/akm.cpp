#include "board/akm.h"

#include <array>

namespace board {
namespace {

struct MixerSwitch {
    uint8_t registerNumber;
    uint8_t mask;
};

// By number.
constexpr auto kMixerSwitches = std::to_array<MixerSwitch>({
    {0x10, 0x10},
    {0x10, 0x08},
    {0x10, 0x01},
    {0x11, 0x20},
    {0x11, 0x10},
    {0x11, 0x08},
    {0x11, 0x04},
    {0x12, 0x10},
    {0x12, 0x08},
    {0x13, 0x10},
    {0x13, 0x08},
    {0x14, 0x10},
    {0x14, 0x08},
    {0x14, 0x04},
    {0x15, 0x10},
    {0x15, 0x08},
    {0x15, 0x04},
});

// By channel.
constexpr std::array<uint8_t, 8> kLevelRegisters{0x00, 0x01, 0x02, 0x03, 0x08, 0x09, 0x0A, 0x0B};
constexpr uint32_t kChannelEnabled = 0x80;
constexpr uint32_t kHighestLevel = 31;

}  // namespace

Akm::Akm() {
    registers.values = {{0x00, 0x9F}, {0x01, 0x9F}, {0x02, 0x90}, {0x03, 0x90}, {0x10, 0x19},
                        {0x11, 0x3C}, {0x12, 0x10}, {0x13, 0x08}, {0x14, 0x04}, {0x15, 0x04}};
}

ResultCode Akm::Change(uint32_t number, uint32_t mask, uint32_t bits, uint32_t& wholeRegister) {
    const ResultCode code = registers.Change(number, mask, bits);
    return code == VXD_SUCCESS ? registers.Read(number, wholeRegister) : code;
}

ResultCode Akm::SetSwitch(uint32_t number, bool on, uint32_t& wholeRegister) {
    if (number >= kMixerSwitches.size()) {
        return VXD_INVALID_PARAMETER;
    }
    const MixerSwitch& wired = kMixerSwitches[number];
    return Change(wired.registerNumber, wired.mask, on ? wired.mask : 0, wholeRegister);
}

ResultCode Akm::SetLevel(uint32_t channel, uint32_t level, uint32_t& wholeRegister) {
    if (channel >= kLevelRegisters.size() || level > kHighestLevel) {
        return VXD_INVALID_PARAMETER;
    }
    return Change(kLevelRegisters[channel], ~kChannelEnabled, level, wholeRegister);
}

ResultCode Akm::Mute(uint32_t channel, bool mute, uint32_t& wholeRegister) {
    if (channel >= kLevelRegisters.size()) {
        return VXD_INVALID_PARAMETER;
    }
    return Change(kLevelRegisters[channel], kChannelEnabled, mute ? 0 : kChannelEnabled,
                  wholeRegister);
}

}  // namespace board
