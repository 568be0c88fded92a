// What the ARCOFI audio codec offers by name.
#pragma once

#include <array>
#include <cstdint>

#include "regs/catalogue.h"

namespace arcofi {

// A field within a register: its mask, and the position of its lowest bit.
constexpr RegisterRow Field(RowName name, uint32_t registerId, uint32_t position, uint32_t mask) {
    return {name, position << 24 | mask << 16 | registerId};
}

// The registers, then the fields within them.
inline constexpr auto kPorts = PadNames<31>(std::to_array<RegisterRow>({
    {"REG_GCR", 0x210},
    {"REG_DFICR", 0x211},
    {"REG_PFCR", 0x212},
    {"REG_TGCR", 0x213},
    {"REG_TGSR", 0x214},
    {"REG_ATCR", 0x215},
    {"REG_ARCR", 0x216},
    {"REG_TFCR", 0x217},
    {"REG_SDICR", 0x218},
    {"REG_TSCR", 0x219},
    {"REG_XCR", 0x21A},
    {"REG_IDENT", 0x21D},
    {"REG_TMR", 0x21E},

    Field("GCR_SPEAKERPHONE", 0x210, 7, 0x80),
    Field("GCR_AGC_XMT", 0x210, 6, 0x40),
    Field("GCR_AGC_RCV", 0x210, 5, 0x20),
    Field("GCR_VOICE_XMT", 0x210, 4, 0x10),
    Field("GCR_IOM2_SLOT", 0x210, 3, 0x08),
    Field("GCR_POWER_UP", 0x210, 2, 0x04),
    Field("GCR_CHIP_ADDR_MODE", 0x210, 1, 0x02),
    Field("GCR_G700_CODING", 0x210, 0, 0x01),
    Field("DFICR_SIGNAL_IO_D", 0x211, 7, 0x80),
    Field("DFICR_SIGNAL_IO_C", 0x211, 6, 0x40),
    Field("DFICR_SIGNAL_IO_B", 0x211, 5, 0x20),
    Field("DFICR_SIGNAL_IO_A", 0x211, 4, 0x10),
    Field("DFICR_VOICE_DATA", 0x211, 0, 0x0F),
    Field("PFCR_XMT_GAIN", 0x212, 7, 0x80),
    Field("PFCR_RCV_GAIN", 0x212, 6, 0x40),
    Field("PFCR_SIDETONE_GAIN", 0x212, 5, 0x20),
    Field("PFCR_XMT_FREQ_CORRECTION", 0x212, 4, 0x10),
    Field("PFCR_RCV_FREQ_CORRECTION", 0x212, 2, 0x04),
    Field("PFCR_HIGHPASS_RCV", 0x212, 1, 0x02),
    Field("PFCR_HIGHPASS_XMT", 0x212, 0, 0x01),
    Field("TGCR_TONE_GENERATOR", 0x213, 7, 0x80),
    Field("TGCR_DUAL_TONE_MODE", 0x213, 6, 0x40),
    Field("TGCR_TONE_FILTER", 0x213, 5, 0x20),
    Field("TGCR_CTRL_GENERATOR", 0x213, 4, 0x10),
    Field("TGCR_BEAT_TONE_GENERATOR", 0x213, 3, 0x08),
    Field("TGCR_BEAT_MODE", 0x213, 2, 0x04),
    Field("TGCR_STOP_MODE", 0x213, 1, 0x02),
    Field("TGCR_TRAPEZOID_WAVEFORM", 0x213, 0, 0x01),
    Field("TGSR_PIEZO_MODE", 0x214, 7, 0x80),
    Field("TGSR_TONE_RING_BY_LOUDSPKR", 0x214, 6, 0x40),
    Field("TGSR_TONE_RING_RCV", 0x214, 4, 0x10),
    Field("TGSR_DTMF_GENERATOR", 0x214, 3, 0x08),
    Field("TGSR_TONE_RING_XMT", 0x214, 2, 0x04),
    Field("ATCR_MICROPHONE_CTRL", 0x215, 4, 0xF0),
    Field("ATCR_ENABLE_VREF", 0x215, 3, 0x08),
    Field("ATCR_ANALOG_INPUT_MUX", 0x215, 0, 0x03),
    Field("ARCR_HANDSET_OUTPUT_CTRL", 0x216, 5, 0xE0),
    Field("ARCR_CONTROLLED_MONITOR", 0x216, 4, 0x10),
    Field("ARCR_LOUDSPKR_OUTPUT_CTRL", 0x216, 0, 0x0F),
    Field("TFCR_IOM2_HANDSHAKE_PROTOCOL", 0x217, 7, 0x80),
    Field("TFCR_ENABLE_PIEZO_PINS", 0x217, 6, 0x40),
    Field("TFCR_ANALOG_LOOP_AND_TEST", 0x217, 3, 0x38),
    Field("TFCR_DIGITAL_LOOP_AND_TEST", 0x217, 0, 0x07),
    Field("SDICR_ENABLE_PUSH_PULL", 0x218, 4, 0x10),
    Field("SDICR_DBLCLK_ENABLE", 0x218, 3, 0x08),
    Field("SDICR_MASTER_CLK_RATE", 0x218, 0, 0x07),
    Field("TSCR_SLOT_SELECTION", 0x219, 0, 0x3F),
    Field("XCR_GAIN_CTRL_RCV_POS", 0x21A, 7, 0x80),
    Field("XCR_GAIN_CTRL_XMT_POS", 0x21A, 6, 0x40),
    Field("XCR_OBSERVE_INTERNAL_MODE", 0x21A, 4, 0x10),
    Field("XCR_DISABLE_HOP_AMPLIFIER", 0x21A, 3, 0x08),
    Field("XCR_DISABLE_HON_AMPLIFIER", 0x21A, 2, 0x04),
    Field("XCR_DISABLE_LSP_AMPLIFIER", 0x21A, 1, 0x02),
    Field("XCR_DISABLE_LSN_AMPLIFIER", 0x21A, 0, 0x01),
    Field("TMR_TEST_MODE", 0x21E, 5, 0x1E),
}));

// The coefficient commands: the low byte is the command's code, the next one the number of its
// parameter bytes plus 1.
inline constexpr auto kCoefficients = PadNames<29>(std::to_array<RegisterRow>({
    {"TGS1", 0x920},
    {"TGS2", 0x921},
    {"TGS3", 0x922},
    {"TONE_FILTER", 0x523},
    {"CTRL_GENERATOR", 0x524},
    {"RCV_AND_XMT_GAIN", 0x925},
    {"SIDETONE_GAIN", 0x526},
    {"XMT_CORRECTION_GAIN", 0x927},
    {"RCV_AND_XMT_CORRECTION_GAIN", 0x928},
    {"RCV_CORRECTION_GAIN", 0x929},
    {"RCV_AND_XMT_SPEECH_COMPARE_1", 0x92A},
    {"RCV_AND_XMT_SPEECH_COMPARE_2", 0x92B},
    {"RCV_AND_XMT_SPEECH_COMPARE_3", 0x92C},
    {"RCV_AND_XMT_SPEECH_COMPARE_4", 0x92D},
    {"XMT_AGC", 0x92E},
    {"RCV_AGC", 0x92F},
}));

}  // namespace arcofi
