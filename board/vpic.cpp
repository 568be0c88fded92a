#include "board/vpic.h"

#include "board/state.h"

namespace board {
namespace {

constexpr uint32_t kPortMask = 0x0000E0FF;
constexpr uint32_t kMark = 0x04000000;
constexpr uint32_t kMeaningfulBits = 0x07FFFFFF;
constexpr uint32_t kRevisionPort = 0x58;

constexpr auto kPorts = std::to_array<uint32_t>({
    // The chip's own, and the window to the codec processor.
    0x4020,
    0x2024,
    0x4028,
    0x2000,
    0x0004,
    0x0008,
    0x000C,
    0x0010,
    0x0014,
    // The auxiliary ports.
    0x0040,
    0x0044,
    0x0048,
    0x004C,
    0x0050,
    0x0054,
    0x0058,
    0x005C,
    0x0060,
    0x0064,
    0x0068,
    0x006C,
    0x0070,
    0x0074,
    0x0078,
    0x007C,
    // Video, its first window and the transfers.
    0xA000,
    0xC001,
    0x8002,
    0xC003,
    0xA004,
    0x8005,
    0xC006,
    0xA007,
    0xA008,
    0xA009,
    0xA00A,
    0xA00B,
    0xA00C,
    0xA00D,
    0xA00E,
    0xA00F,
    0xA010,
    0xA011,
    0xA012,
    0xC013,
    0x8014,
    0xC015,
    0xA016,
    0xC017,
    0xA018,
    0xC019,
    0xC01B,
    0xC01C,
    // The second video window.
    0xA01D,
    0xA01E,
    0xA01F,
    0xA020,
    0xA021,
    0xA022,
    0xA023,
    0xA024,
    0xA025,
    0xA026,
    0xA027,
    0xA028,
    0xC029,
});

// Interrupts and their state, the revision, video, FIFO and bus master status.
constexpr auto kStatusPorts =
    std::to_array<uint32_t>({0x4028, 0x0014, kRevisionPort, 0xC01B, 0xC01C, 0xA004, 0xC006});

constexpr uint32_t kScreenWidthPort = 0xA000;
constexpr uint32_t kScreenWidth = 640;

struct Place {
    uint32_t port;
    uint32_t shift;
    uint32_t mask;  // within the port
};

uint32_t BitNumber(uint32_t id) {
    return (id >> 21) & 0x1F;
}

Place Locate(uint32_t id) {
    const uint32_t port = id & kPortMask;
    if (const uint32_t number = BitNumber(id)) {
        return {port, number - 1, uint32_t{1} << (number - 1)};
    }
    const uint32_t width = (id >> 16) & 0x1F;
    if (width == 0) {
        return {port, 0, 0xFFFFFFFF};
    }
    const uint32_t shift = (id >> 8) & 0x1F;
    return {port, shift, ((uint32_t{1} << width) - 1) << shift};
}

ResultCode WriteBit(State& state, uint32_t id, bool set) {
    return BitNumber(id) == 0 ? VXD_INVALID_PARAMETER : state.hardware.vpic.Write(id, set);
}

}  // namespace

Registers Vpic::PortsAtPowerOn() {
    Registers ports{.readOnly = {kStatusPorts.begin(), kStatusPorts.end()}, .onlyListed = true};
    for (const uint32_t port : kPorts) {
        ports.values[port] = 0;
    }
    ports.values[kScreenWidthPort] = kScreenWidth;
    return ports;
}

ResultCode Vpic::Read(uint32_t id, uint32_t& value) const {
    if (id & ~kMeaningfulBits) {
        return VXD_INVALID_PARAMETER;
    }
    const Place place = Locate(id);
    const ResultCode code = ports.Read(place.port, value);
    value = (value & place.mask) >> place.shift;
    return code;
}

ResultCode Vpic::Write(uint32_t id, uint32_t value) {
    if (id & ~kMeaningfulBits) {
        return VXD_INVALID_PARAMETER;
    }
    const Place place = Locate(id);
    return ports.Change(place.port, place.mask, value << place.shift);
}

ResultCode Vpic::GetLine(uint32_t line, bool& high) const {
    if (line != VPIC_I2C_LINE_CLOCK && line != VPIC_I2C_LINE_DATA) {
        return VXD_INVALID_PARAMETER;
    }
    high = lineIsHigh_[line - 1];
    return VXD_SUCCESS;
}

ResultCode Vpic::SetLine(uint32_t line, bool high) {
    if (line != VPIC_I2C_LINE_CLOCK && line != VPIC_I2C_LINE_DATA) {
        return VXD_INVALID_PARAMETER;
    }
    lineIsHigh_[line - 1] = high;
    return VXD_SUCCESS;
}

ResultCode ReadVpicPort(const State& state, uint32_t id, uint32_t& value) {
    if ((id & ~kMark) == kRevisionPort) {
        value = state.revisions.board & 0xFF;
        return VXD_SUCCESS;
    }
    return state.hardware.vpic.Read(id, value);
}

ResultCode SetVpicBit(State& state, const BitBlock& block) {
    return WriteBit(state, block.bit, true);
}

ResultCode ClearVpicBit(State& state, const BitBlock& block) {
    return WriteBit(state, block.bit, false);
}

ResultCode TestVpicBit(State& state, const BitBlock& block) {
    uint32_t bit = 0;
    const ResultCode code = BitNumber(block.bit) == 0 ? VXD_INVALID_PARAMETER
                                                      : state.hardware.vpic.Read(block.bit, bit);
    return code == VXD_SUCCESS ? state.Answer(bit != 0) : code;
}

ResultCode SetVpicLine(State& state, const I2cLineSetBlock& block) {
    return state.hardware.vpic.SetLine(block.line.value, block.level.value != 0);
}

ResultCode GetVpicLine(State& state, const I2cLineGetBlock& block) {
    auto* level = FromSlot<uint16_t>(block.level);
    bool high = false;
    const ResultCode code =
        level ? state.hardware.vpic.GetLine(block.line.value, high) : VXD_INVALID_PARAMETER;
    if (code == VXD_SUCCESS) {
        state.Give(*level, high);
    }
    return code;
}

}  // namespace board
