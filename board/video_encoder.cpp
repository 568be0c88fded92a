#include "board/video_encoder.h"

#include <optional>

#include "board/life_cycle.h"
#include "board/state.h"

namespace board {
namespace {

constexpr uint32_t kRegisterBits = 8;
constexpr uint32_t kFieldFlag = 0x8000;
constexpr uint32_t kResetRegister = 0x2;
constexpr uint32_t kResetBit = 0x04;
constexpr uint32_t kStatusRegister = 0x4;
constexpr uint32_t kStatusBit = 0x01;

// The eight dark colours of a text screen and the eight bright ones.
constexpr std::array<uint32_t, VideoEncoder::kOverlayEntries> kOverlayAtPowerOn{
    0x000000, 0xAA0000, 0x00AA00, 0xAAAA00, 0x0000AA, 0xAA00AA, 0x0055AA, 0xAAAAAA,
    0x555555, 0xFF5555, 0x55FF55, 0xFFFF55, 0x5555FF, 0xFF55FF, 0x55FFFF, 0xFFFFFF};

// Timing for 858 pixels a line, 525 lines a frame. The encoder is locked to its source.
Registers RegistersAtPowerOn() {
    return {.mask = 0xFF,
            .values = {{0x0, 0x40},
                       {0x1, 0xF0},
                       {0x2, 0x00},
                       {0x3, 0x10},
                       {kStatusRegister, kStatusBit},
                       {0x6, 0x20},
                       {0x7, 0x02},
                       {0x8, 0x98},
                       {0x9, 0x08},
                       {0xA, 0xF8},
                       {0xB, 0x03},
                       {0xC, 0x5A},
                       {0xD, 0x03},
                       {0xE, 0x10},
                       {0xF, 0xFF}},
            .onlyListed = true};
}

struct Field {
    uint32_t number;  // the register's
    uint32_t lowest;
    uint32_t mask;  // of the register's bits
};

std::optional<Field> FindField(uint32_t id) {
    if (!(id & kFieldFlag)) {
        return Field{id, 0, 0xFF};
    }
    const uint32_t lowest = id >> 8 & 0xF;
    const uint32_t width = id >> 12 & 0x7;
    if (id > 0xFFFF || width == 0 || lowest + width > kRegisterBits) {
        return std::nullopt;
    }
    return Field{id & 0xFF, lowest, ((1u << width) - 1) << lowest};
}

}  // namespace

VideoEncoder::VideoEncoder() : overlay(kOverlayAtPowerOn) {
    for (uint32_t entry = 0; entry < kPaletteEntries; ++entry) {
        palette[entry] = entry << 16 | entry << 8 | entry;  // from black to white
    }
    registers_.fill(RegistersAtPowerOn());
}

ResultCode VideoEncoder::Read(uint32_t encoder, uint32_t fieldId, uint32_t& value) const {
    const std::optional<Field> field = FindField(fieldId);
    if (encoder >= kEncoders || !field) {
        return VXD_INVALID_PARAMETER;
    }
    uint32_t whole = 0;
    const ResultCode code = registers_[encoder].Read(field->number, whole);
    value = (whole & field->mask) >> field->lowest;
    return code;
}

ResultCode VideoEncoder::Write(uint32_t encoder, uint32_t fieldId, uint32_t value) {
    const std::optional<Field> field = FindField(fieldId);
    if (encoder >= kEncoders || !field) {
        return VXD_INVALID_PARAMETER;
    }
    uint32_t mask = field->mask;
    if (field->number == kStatusRegister) {
        mask &= ~kStatusBit;
    }
    if (mask == 0) {
        return VXD_ILLEGAL_OPERATION;
    }
    Registers& registers = registers_[encoder];
    const ResultCode code = registers.Change(field->number, mask, value << field->lowest);
    if (code == VXD_SUCCESS && registers.values[kResetRegister] & kResetBit) {
        registers = RegistersAtPowerOn();
    }
    return code;
}

ResultCode WriteEncoderState(State& state, const Bt85xStateWriteBlock& block) {
    const ResultCode code = NeedUp(state, Service::kBt85x);
    if (code == VXD_SUCCESS) {
        state.hardware.videoEncoder.mode = block.state.value;
    }
    return code;
}

ResultCode ReadEncoderState(State& state, const Bt85xStateReadBlock& block) {
    auto* const value = FromSlot<uint32_t>(block.state);
    if (!value) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode code = NeedUp(state, Service::kBt85x);
    if (code == VXD_SUCCESS) {
        state.Give(*value, state.hardware.videoEncoder.mode);
    }
    return code;
}

ResultCode WriteEncoderPort(State& state, const Bt85xPortWriteBlock& block) {
    if (block.encoder.value >= VideoEncoder::kEncoders) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode code = NeedUp(state, Service::kBt85x);
    if (code == VXD_SUCCESS) {
        state.hardware.videoEncoder.ports[block.encoder.value] = block.value.value;
    }
    return code;
}

ResultCode ReadEncoderPort(State& state, const Bt85xPortReadBlock& block) {
    auto* const value = FromSlot<uint32_t>(block.value);
    if (block.encoder.value >= VideoEncoder::kEncoders || !value) {
        return VXD_INVALID_PARAMETER;
    }
    const ResultCode code = NeedUp(state, Service::kBt85x);
    if (code == VXD_SUCCESS) {
        state.Give(*value, state.hardware.videoEncoder.ports[block.encoder.value]);
    }
    return code;
}

}  // namespace board
