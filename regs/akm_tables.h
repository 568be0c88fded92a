// How the controls of "AKM Control" go with the codec's registers and the driver's switch numbers.
#pragma once

#include <array>
#include <cstdint>

#include "res/resource.h"

namespace akm {

// A channel: its level is a slider's position, which a label shows, and bit 7 is a check box.
struct Slider {
    int bar;
    int label;
    uint8_t registerNumber;
    int enableBox;
};

inline constexpr auto kSliders = std::to_array<Slider>({
    {IDC_AKM_MASTER_LEFT, IDC_AKM_MASTER_LEFT_LABEL, 0x00, IDC_AKM_MASTER_LEFT_ENABLE},
    {IDC_AKM_MASTER_RIGHT, IDC_AKM_MASTER_RIGHT_LABEL, 0x01, IDC_AKM_MASTER_RIGHT_ENABLE},
    {IDC_AKM_VOICE_LEFT, IDC_AKM_VOICE_LEFT_LABEL, 0x02, IDC_AKM_VOICE_LEFT_ENABLE},
    {IDC_AKM_VOICE_RIGHT, IDC_AKM_VOICE_RIGHT_LABEL, 0x03, IDC_AKM_VOICE_RIGHT_ENABLE},
    {IDC_AKM_LINE_LEFT, IDC_AKM_LINE_LEFT_LABEL, 0x08, IDC_AKM_LINE_LEFT_ENABLE},
    {IDC_AKM_LINE_RIGHT, IDC_AKM_LINE_RIGHT_LABEL, 0x09, IDC_AKM_LINE_RIGHT_ENABLE},
    {IDC_AKM_AUX_LEFT, IDC_AKM_AUX_LEFT_LABEL, 0x0A, IDC_AKM_AUX_LEFT_ENABLE},
    {IDC_AKM_AUX_RIGHT, IDC_AKM_AUX_RIGHT_LABEL, 0x0B, IDC_AKM_AUX_RIGHT_ENABLE},
});

// A mixer switch, by its number, and the register's bit that it shows.
struct Switch {
    int box;
    uint32_t number;
    uint8_t registerNumber;
    uint8_t mask;
};

inline constexpr auto kSwitches = std::to_array<Switch>({
    {IDC_AKM_OUTPUT_1_LINE_LEFT, 0, 0x10, 0x10},
    {IDC_AKM_OUTPUT_1_LINE_RIGHT, 1, 0x10, 0x08},
    {IDC_AKM_OUTPUT_1_MIC, 2, 0x10, 0x01},
    {IDC_AKM_OUTPUT_2_AUX_LEFT, 3, 0x11, 0x20},
    {IDC_AKM_OUTPUT_2_AUX_RIGHT, 4, 0x11, 0x10},
    {IDC_AKM_OUTPUT_2_VOICE_LEFT, 5, 0x11, 0x08},
    {IDC_AKM_OUTPUT_2_VOICE_RIGHT, 6, 0x11, 0x04},
    {IDC_AKM_LEFT_INPUT_1_LINE_LEFT, 7, 0x12, 0x10},
    {IDC_AKM_LEFT_INPUT_1_LINE_RIGHT, 8, 0x12, 0x08},
    {IDC_AKM_RIGHT_INPUT_2_LINE_LEFT, 9, 0x13, 0x10},
    {IDC_AKM_RIGHT_INPUT_2_LINE_RIGHT, 10, 0x13, 0x08},
    {IDC_AKM_LEFT_INPUT_2_AUX_LEFT, 11, 0x14, 0x10},
    {IDC_AKM_LEFT_INPUT_2_AUX_RIGHT, 12, 0x14, 0x08},
    {IDC_AKM_LEFT_INPUT_2_VOICE_LEFT, 13, 0x14, 0x04},
    {IDC_AKM_RIGHT_INPUT_2_AUX_LEFT, 14, 0x15, 0x10},
    {IDC_AKM_RIGHT_INPUT_2_AUX_RIGHT, 15, 0x15, 0x08},
    {IDC_AKM_RIGHT_INPUT_2_VOICE_RIGHT, 16, 0x15, 0x04},
});

}  // namespace akm
