#include "board/saec.h"

#include <algorithm>
#include <array>

#include "board/speech.h"

namespace board {
namespace {

constexpr uint32_t kStatus = 0x30000;
constexpr uint32_t kRevision = 0x20000;
constexpr uint32_t kLastRegister = 0x200AD;
constexpr uint32_t kInternalAddress = 0x2008B;
constexpr uint32_t kInternalData = 0x2008C;
constexpr uint32_t kTransmitGain = 0x20078;  // what gain control has arrived at, both ways
constexpr uint32_t kReceiveGain = 0x2007D;

constexpr auto kHardwareConfiguration =
    std::to_array<uint32_t>({0x10000, 0x10100, 0x10200, 0x10300});

// A level that follows a voice between two values; 340 are about 1 dB.
struct Level {
    uint32_t address;  // in the internal memory
    uint32_t quiet;
    uint32_t loud;
    uint32_t voice;  // whose: its seed
};

constexpr auto kLevels = std::to_array<Level>({
    {0xFFDA, 6800, 22000, 1},  // what the line brings
    {0xFFC0, 700, 4800, 1},    // attenuation on the way out, while the line speaks
    {0xFFC1, 900, 6100, 2},    // attenuation on the way in, while the room does
});

const Level* FindLevel(uint32_t address) {
    const auto found = std::ranges::find(kLevels, address, &Level::address);
    return found == kLevels.end() ? nullptr : &*found;
}

uint32_t ValueAt(const Level& level, uint32_t milliseconds) {
    return level.quiet +
           (level.loud - level.quiet) * LoudnessAt(level.voice, milliseconds) / kLoudest;
}

bool IsHardwareConfiguration(uint32_t id) {
    return std::ranges::find(kHardwareConfiguration, id) != kHardwareConfiguration.end();
}

}  // namespace

Registers Saec::RegistersAtPowerOn() {
    Registers registers{.mask = 0xFFFF, .readOnly = {kStatus, kRevision}, .onlyListed = true};
    for (uint32_t id = kRevision; id <= kLastRegister; ++id) {
        registers.values[id] = 0;
    }
    for (const uint32_t id : kHardwareConfiguration) {
        registers.values[id] = 0;
    }
    registers.values[kStatus] = 0x0001;  // up and running
    registers.values[kRevision] = 0x0013;
    registers.values[kTransmitGain] = 0x0800;
    registers.values[kReceiveGain] = 0x0600;
    return registers;
}

uint32_t Saec::InternalAddress() const {
    return registers_.values.at(kInternalAddress);
}

ResultCode Saec::Read(uint32_t id, uint32_t milliseconds, uint32_t& value) const {
    if (id != kInternalData) {
        return registers_.Read(id, value);
    }
    if (const Level* level = FindLevel(InternalAddress())) {
        value = ValueAt(*level, milliseconds);
        return VXD_SUCCESS;
    }
    return internal_.Read(InternalAddress(), value);
}

ResultCode Saec::Write(uint32_t id, uint32_t value) {
    if (id != kInternalData) {
        return registers_.Write(id, IsHardwareConfiguration(id) ? value & 0xFF : value);
    }
    return FindLevel(InternalAddress()) ? VXD_ILLEGAL_OPERATION
                                        : internal_.Write(InternalAddress(), value);
}

}  // namespace board
