// What the driver and the utility hand each other about the video post-processing (VPP).
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "platform/win32.h"

// How frames are interpolated: the mode word of vdapi_VPP_SetMode.
enum VppMode : uint32_t {
    VPP_MODE_NONE = 0x10000,
    VPP_MODE_DUPLICATE = 0x10001,
    VPP_MODE_LINEAR = 0x10002,
    VPP_MODE_TOGGLE_FILTER = 0x10004,
    VPP_MODE_TOGGLE_VECTORS = 0x10008,
};

// The parameters of vdapi_VPP_SetMode.
struct VppParameters {
    uint32_t frameRate;  // frames a second
    uint32_t thresholdMin;
    uint32_t thresholdMax;
    std::array<uint32_t, 3> reserved;  // 0
};
static_assert(sizeof(VppParameters) == 24);

// The messages that KORA_DLL_StartVppStatistics brings: once when the statistics begin and when
// they end; with each record, whose address is the second parameter and holds as long as the
// message is being dealt with.
enum VppMessage : UINT {
    WM_VPP_STATIST_INIT = WM_USER + 7,
    WM_VPP_STATIST_TERM = WM_USER + 8,
    WM_VPP_STATIST_DATA = WM_USER + 9,
};

// How far a macroblock of 16 by 16 pixels has moved, in pixels to the right and down.
struct MotionVector {
    int8_t x;
    int8_t y;

    friend bool operator==(const MotionVector&, const MotionVector&) = default;
};

inline constexpr int kMotionColumns = 22;
inline constexpr int kMotionRows = 18;

struct VppStatistics {
    int8_t frame;
    std::array<MotionVector, kMotionColumns * kMotionRows> vectors;  // row by row
    std::array<uint8_t, 7> unused;
    uint16_t extrapolateTime;
    uint16_t frameProcessTime;
    uint16_t macroblockProcessTime;
};
static_assert(sizeof(VppStatistics) == 806);
static_assert(offsetof(VppStatistics, vectors) == 1);
static_assert(offsetof(VppStatistics, extrapolateTime) == 800);
