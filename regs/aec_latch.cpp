// The control latch of the echo-cancelling DSP: a button for each code, and a field for any other.
#include "regs/aec_latch.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"

namespace {

// At most four characters count.
constexpr std::size_t kValueBuffer = 5;
// Written behind a mode where that is wanted, so that the mode does not stay in the latch.
constexpr uint32_t kNeutral = 0x80;

struct ModeButton {
    int id;
    uint32_t code;
};

// IDC_AEC_LATCH_NO_EXT_AGC has no code; it is disabled.
constexpr auto kModes = std::to_array<ModeButton>({
    {IDC_AEC_LATCH_NEUTRAL, 0x00},
    {IDC_AEC_LATCH_AEC_ON, 0x01},
    {IDC_AEC_LATCH_AEC_OFF, 0x02},
    {IDC_AEC_LATCH_LOOPBACK, 0x03},
    {IDC_AEC_LATCH_MUTE_ON, 0x04},
    {IDC_AEC_LATCH_MUTE_OFF, 0x08},
    {IDC_AEC_LATCH_SW_RESET, 0x0C},
    {IDC_AEC_LATCH_MODE_1, 0x10},
    {IDC_AEC_LATCH_MODE_2, 0x20},
    {IDC_AEC_LATCH_MODE_3, 0x30},
    {IDC_AEC_LATCH_AGC_ON, 0x41},
    {IDC_AEC_LATCH_AGC_OFF, 0x42},
    {IDC_AEC_LATCH_NOISE_ON, 0x48},
    {IDC_AEC_LATCH_NOISE_OFF, 0x44},
});

bool SetMode(HWND dialog, int id, int code) {
    const auto mode = std::ranges::find(kModes, id, &ModeButton::id);
    if (code != BN_CLICKED || mode == kModes.end()) {
        return false;
    }
    vdapi_AEC_SetMode(mode->code);
    if (IsDlgButtonChecked(dialog, IDC_AEC_LATCH_AUTO_NEUTRAL) == BST_CHECKED) {
        vdapi_AEC_SetMode(kNeutral);
    }
    return true;
}

// What is no number is not sent; the field is shown to be the reason.
void WriteValue(HWND dialog) {
    const std::optional<uint32_t> value =
        FindNumber(FieldText(dialog, IDC_AEC_LATCH_VALUE, kValueBuffer));
    if (value) {
        vdapi_AEC_SetMode(static_cast<uint16_t>(*value));
        return;
    }
    FocusOn(dialog, IDC_AEC_LATCH_VALUE);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_AEC_LATCH_WRITE, WriteValue},
    {IDC_AEC_LATCH_OK, EndWith<1>},
    {IDCANCEL, EndWith<1>},
});

}  // namespace

INT_PTR OpenAecLatch(HINSTANCE instance, HWND owner) {
    RunDialog(instance, IDD_AEC_LATCH, owner, {.actions = kActions, .otherwise = SetMode});
    return 0;
}
