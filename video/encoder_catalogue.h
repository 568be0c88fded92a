// The video encoder's registers and fields by name.
//
// An id is a register's number, or a field: bits 0 to 7 the register, bits 8 to 11 the position of
// the field's lowest bit, bits 12 to 14 its width, bit 15 set. HCOUNT_LOW and HCOUNT_HIGH are
// fields of the registers 0xC and 0xD, whatever their names say.
#pragma once

#include <array>

#include "regs/catalogue.h"

namespace encoder {

inline constexpr auto kFields = std::to_array<RegisterRow>({
    {"Control 0          (Reg 0x0)", 0x0000}, {"Control 1          (Reg 0x1)", 0x0001},
    {"Control 2          (Reg 0x2)", 0x0002}, {"Control 3          (Reg 0x3)", 0x0003},
    {"Control 4          (Reg 0x4)", 0x0004}, {"P1 Low             (Reg 0x6)", 0x0006},
    {"P1 High            (Reg 0x7)", 0x0007}, {"P2 Low             (Reg 0x8)", 0x0008},
    {"P2 High            (Reg 0x9)", 0x0009}, {"FSC Low            (Reg 0xA)", 0x000A},
    {"FSC High           (Reg 0xB)", 0x000B}, {"HCount Low         (Reg 0xC)", 0x000C},
    {"HCount High        (Reg 0xD)", 0x000D}, {"Color Key          (Reg 0xE)", 0x000E},
    {"Color Mask         (Reg 0xF)", 0x000F}, {"COLOR_INPUT_FORMAT (Reg 0x0)", 0xC400},
    {"KEY0_READ_MASK     (Reg 0x0)", 0xB000}, {"OL3_READ_MASK      (Reg 0x1)", 0x9701},
    {"OL2_READ_MASK      (Reg 0x1)", 0x9601}, {"OL1_READ_MASK      (Reg 0x1)", 0x9501},
    {"OL0_READ_MASK      (Reg 0x1)", 0x9401}, {"6COLOR_SELECT      (Reg 0x1)", 0x9301},
    {"LUT_RAM_BYPASS     (Reg 0x1)", 0x9201}, {"COLORKEY_INVERT    (Reg 0x2)", 0xA402},
    {"SOFTWARE_RESET     (Reg 0x2)", 0x9202}, {"YC_OUTPUT_SELECT   (Reg 0x2)", 0xA002},
    {"OUTPUT_MODE_SELECT (Reg 0x3)", 0xC403}, {"COLOR_KILL         (Reg 0x3)", 0x9303},
    {"COLOR_BAR_TEST     (Reg 0x3)", 0x9203}, {"COLOR_LEVEL_BYPASS (Reg 0x3)", 0x9103},
    {"ILLEGAL_VIDEO_FLAG (Reg 0x3)", 0x9003}, {"LOWPASS_BYPASS     (Reg 0x4)", 0x9704},
    {"SIN_CORR_BYPASS    (Reg 0x4)", 0x9604}, {"IO_BYPASS          (Reg 0x4)", 0x9504},
    {"CLOCK_OUTPUT       (Reg 0x4)", 0x9404}, {"CONTROL_OUTPUT     (Reg 0x4)", 0x9304},
    {"GENLOCK_STATUS     (Reg 0x4)", 0x9004}, {"HCOUNT_LOW         (Reg 0x6)", 0x000C},
    {"HCOUNT_HIGH        (Reg 0x7)", 0xC00D}, {"FSC_LOW            (Reg 0xA)", 0x000A},
    {"FSC_HIGH           (Reg 0xB)", 0xB00B},
});

}  // namespace encoder
