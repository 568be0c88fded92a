#include "regs/saec_levels.h"

#include <cstdint>

#include "driver/papi.h"
#include "driver/result_code.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

constexpr UINT_PTR kTimer = 2;
constexpr UINT kPeriod = 1000;  // milliseconds
// WM_CONTEXTMENU carries this for a point when a key asked for the menu.
constexpr LPARAM kAskedByKey = -1;

// An address written to the first makes the second stand for the word there.
constexpr uint32_t kAddressRegister = 0x2008B;
constexpr uint32_t kDataRegister = 0x2008C;
constexpr uint32_t kTransmitGain = 0x20078;
constexpr uint32_t kReceiveGain = 0x2007D;

constexpr uint32_t kLineLevel = 0xFFDA;
constexpr uint32_t kTransmitAttenuation = 0xFFC0;
constexpr uint32_t kReceiveAttenuation = 0xFFC1;

// Of one unit of a level: the double nearest to 1/340.17.
constexpr double kDecibels = 0.0029397066172795953;

bool displayIsOn = false;

bool Address(uint32_t word) {
    return CodeOf(vdapi_SAEC_Write(kAddressRegister, &word)) == VXD_SUCCESS;
}

// 0 where it can't be read.
uint16_t Read(uint32_t id) {
    uint32_t value = 0;
    vdapi_SAEC_Read(id, &value);
    return static_cast<uint16_t>(value);
}

uint16_t ReadWord(uint32_t word) {
    Address(word);
    return Read(kDataRegister);
}

// Whether there was something to show: without the first address nothing is measured.
bool ShowLevels(HWND dialog) {
    if (!Address(kLineLevel)) {
        return false;
    }
    const unsigned line = Read(kDataRegister);
    const unsigned transmitGain = Read(kTransmitGain);
    const unsigned receiveGain = Read(kReceiveGain);
    const unsigned transmit = ReadWord(kTransmitAttenuation);
    const unsigned receive = ReadWord(kReceiveAttenuation);
    ShowField(dialog, IDC_SAEC_LEVELS,
              "LU: 0x%4.4X,\n AGCX: 0x%4.4X,\n AGCR: 0x%4.4X,\n GX: 0x%4.4X,\n GR: 0x%4.4X", line,
              transmitGain, receiveGain, transmit, receive);
    ShowField(dialog, IDC_SAEC_DECIBELS, "LU: %5.1f db,\n GX: %5.1f db,\n GR: %5.1f db",
              line * kDecibels, transmit * kDecibels, receive * kDecibels);
    return true;
}

}  // namespace

void StartLevels(HWND dialog) {
    SetTimer(dialog, kTimer, kPeriod, nullptr);
}

void StopLevels(HWND dialog) {
    KillTimer(dialog, kTimer);
}

void ShowLevelsAtTick(HWND dialog, WPARAM timer, LPARAM /*callback*/) {
    if (timer == kTimer && displayIsOn && !ShowLevels(dialog)) {
        StopLevels(dialog);
    }
}

void SwitchLevelsOn(HWND /*dialog*/, WPARAM /*keys*/, LPARAM /*where*/) {
    displayIsOn = true;
}

void SwitchLevelsOnByKey(HWND /*dialog*/, WPARAM /*window*/, LPARAM where) {
    displayIsOn = displayIsOn || where == kAskedByKey;
}
