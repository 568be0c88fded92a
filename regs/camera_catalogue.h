// What the cameras offer by name: the digital one, and the analog one's video decoder.
#pragma once

#include <array>
#include <cstdint>

#include "regs/catalogue.h"

namespace camera {

struct Register {
    RowName name;
    uint32_t id;  // the low byte is the address on the chip
    uint8_t defaultByte;
};

inline constexpr auto kDigital = PadNames<28>(std::to_array<Register>({
    {"Control Register", 0x300, 0x00},
    {"Shutter Speed", 0x301, 0x00},
    {"Gain", 0x302, 0x80},
    {"Brightness", 0x603, 0x00},
    {"Red Balance", 0x304, 0x80},
    {"Blue Balance", 0x305, 0x80},
    {"Red Saturation", 0x306, 0x80},
    {"Blue Saturation", 0x307, 0x80},
    {"Gamma Correction", 0x308, 0x80},
    {"Version Number", 0x20E, 0x00},
    {"Master Reset", 0x30F, 0x00},
}));

inline constexpr auto kAnalog = PadNames<28>(std::to_array<Register>({
    {"Contrast", 0x30B, 0x46},
    {"Brightness", 0x30A, 0x8B},
    {"Hue", 0x30D, 0x00},
    {"Chroma Control", 0x30E, 0xB0},
    {"Chroma Saturation", 0x30C, 0x40},
    {"Version Number", 0x200, 0x00},
    {"Analog input Control 1", 0x302, 0x40},
    {"Analog input Control 2", 0x303, 0x03},
    {"Analog input Control 3", 0x304, 0x75},
    {"Analog input Control 4", 0x305, 0x8C},
    {"Lumi Control", 0x309, 0x00},
    {"Sync Control", 0x308, 0x06},
    {"Output Control 1", 0x311, 0xD9},
    {"Output Control 2", 0x312, 0x16},
    {"Status", 0x61F, 0x4F},
}));

}  // namespace camera
