// What the auxiliary device offers by name.
#pragma once

#include <array>
#include <cstdint>

#include "regs/catalogue.h"

namespace auxdev {

inline constexpr auto kFields = std::to_array<RegisterRow>({
    {"Brooktree Register Select", 0},
    {"Audio Output Select", 1},
    {"Composite1 Output Src Select", 2},
    {"Composite2 Output Src Select", 3},
    {"S-Video1 Output Src Select", 4},
    {"S-Video2 Output Src Select", 5},
    {"Semi Transparent Colour", 6},
    {"Arcofi Serial Out", 7},
    {"Arcofi Clock", 8},
    {"Arcofi Serial In - Read only", 9},
    {"Two/Three ISAC Chips - Read only", 10},
    {"VGA Overlay Horizontal offset", 11},
    {"VGA Overlay Vertical offset", 12},
    {"VGA Overlay Horizontal center", 13},
    {"VGA Overlay Vertical center", 14},
    {"Monitor 1000 AEC mode", 15},
});

inline constexpr auto kFeatures = std::to_array<RegisterRow>({
    {"AKM CS", 0},
    {"AKM Clock", 1},
    {"AKM CData", 2},
    {"Vol Down Button", 3},
    {"Vol Up Button", 4},
    {"DSP BIO", 5},
    {"DSP XF", 6},
    {"DSP Reset", 7},
    {"Altera TCLK", 8},
    {"Altera TDO", 9},
    {"Altera TMS", 10},
    {"Altera TDI", 11},
    {"Speaker Switch", 12},
    {"External Speaker Detection", 13},
    {"Tower Detection", 14},
    {"USS Suspension", 15},
    {"USS SOF", 16},
    {"USS VBUS", 17},
    {"TC Interrupt", 18},
    {"Headset Mic detection", 19},
    {"Jade Reset", 28},
    {"Internal Speaker", 29},
    {"External Speaker", 30},
    {"AKM RL channel", 31},
    {"USS Remote Wakeup", 32},
    {"Communication Led", 33},
    {"Speaker Led", 34},
    {"Clear TC", 35},
    {"VCP Reset", 36},
    {"Latch Reset", 37},
    {"Fan Monitor", 39},
    {"Standby", 24},
    {"G722 Sampling rate", 25},
    {"Peripherals reset", 26},
    {"DSP Interrupt", 27},
    {"WatchDog", 38},
    {"Call Switch", 22},
    {"Debug LED", 23},
    {"ID 1", 20},
    {"ID 2", 21},
    {"ID 3", 40},
    {"R CX", 41},
});

}  // namespace auxdev
