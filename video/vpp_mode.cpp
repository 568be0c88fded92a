// "Set VPP Mode": how the video post-processing shows frames and what it puts between them. The
// display mode goes to the board at once, the rest with "&Apply".
#include "video/vpp_mode.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <string>
#include <vector>

#include "driver/papi.h"
#include "driver/result_code.h"
#include "driver/vpp.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"
#include "services/number_field.h"
#include "services/settings.h"

namespace {

constexpr std::size_t kModeText = 20;       // with the terminator
constexpr std::size_t kParameterText = 32;  // the same

enum DisplayMode : uint32_t { kContinuous = 0, kFrameByFrame = 1 };

// The methods in the order of their buttons, whose ids follow one another.
constexpr std::array<uint32_t, 5> kMethods{VPP_MODE_NONE, VPP_MODE_DUPLICATE, VPP_MODE_LINEAR,
                                           VPP_MODE_TOGGLE_FILTER, VPP_MODE_TOGGLE_VECTORS};

struct Parameter {
    int field;
    IntegerSetting setting;
    uint32_t VppParameters::*member;
};
constexpr auto kParameters = std::to_array<Parameter>({
    {IDC_VPP_FRAME_RATE, setting::kVppFrameRate, &VppParameters::frameRate},
    {IDC_VPP_THRESHOLD_MIN, setting::kVppThresholdMin, &VppParameters::thresholdMin},
    {IDC_VPP_THRESHOLD_MAX, setting::kVppThresholdMax, &VppParameters::thresholdMax},
});

// What frame by frame alone has, and what of it an interpolation alone has.
constexpr std::array kOfFrameByFrame{IDC_VPP_APPLY, IDC_VPP_INTERPOLATION, IDC_VPP_NONE,
                                     IDC_VPP_LINEAR};
constexpr std::array kOfInterpolation{
    IDC_VPP_DUPLICATE,           IDC_VPP_TOGGLE_FILTER,       IDC_VPP_TOGGLE_VECTORS,
    IDC_VPP_PARAMETERS,          IDC_VPP_FRAME_RATE_LABEL,    IDC_VPP_FRAME_RATE,
    IDC_VPP_THRESHOLD,           IDC_VPP_THRESHOLD_MIN_LABEL, IDC_VPP_THRESHOLD_MIN,
    IDC_VPP_THRESHOLD_MAX_LABEL, IDC_VPP_THRESHOLD_MAX,
};

// Kept for the whole run.
uint32_t modeWord = VPP_MODE_NONE;
uint32_t displayMode = kContinuous;
bool storedModeTaken = false;

bool IsNumber(const std::string& text) {
    return !text.empty() && text.find_first_not_of("0123456789") == std::string::npos;
}

// The word of an earlier run counts once; from then on this run knows better.
void TakeStoredMode() {
    const std::string text = ReadSetting(setting::kVppMode, kModeText);
    if (!storedModeTaken && IsNumber(text)) {
        modeWord = ParseUnsignedDecimal(text);
    }
    storedModeTaken = true;
}

// An unknown word counts as linear.
int MethodButton() {
    const auto method = std::ranges::find(kMethods, modeWord);
    if (method == kMethods.end()) {
        modeWord = VPP_MODE_LINEAR;
        return IDC_VPP_LINEAR;
    }
    return IDC_VPP_NONE + static_cast<int>(method - kMethods.begin());
}

template <std::size_t kControls>
void Enable(HWND dialog, const std::array<int, kControls>& controls, bool enable) {
    for (const int control : controls) {
        EnableWindow(GetDlgItem(dialog, control), enable);
    }
}

void EnableControls(HWND dialog) {
    const bool single = displayMode == kFrameByFrame;
    Enable(dialog, kOfFrameByFrame, single);
    Enable(dialog, kOfInterpolation, single && modeWord != VPP_MODE_NONE);
}

void Open(HWND dialog) {
    TakeStoredMode();
    for (const Parameter& parameter : kParameters) {
        ShowField(dialog, parameter.field, "%u",
                  static_cast<unsigned>(static_cast<uint8_t>(ReadSetting(parameter.setting))));
    }
    CheckRadioButton(dialog, IDC_VPP_CONTINUOUS, IDC_VPP_FRAME_BY_FRAME,
                     displayMode == kContinuous ? IDC_VPP_CONTINUOUS : IDC_VPP_FRAME_BY_FRAME);
    CheckRadioButton(dialog, IDC_VPP_NONE, IDC_VPP_TOGGLE_VECTORS, MethodButton());
    EnableControls(dialog);
}

template <DisplayMode kMode>
void ChooseDisplayMode(HWND dialog) {
    ReportFailure(dialog, CodeOf(vdapi_VIDINLAY_SetFrameDispMode(kMode)),
                  "vdapi_VIDINLAY_SetFrameDispMode");
    displayMode = kMode;
    EnableControls(dialog);
}

template <uint32_t kMethod>
void ChooseMethod(HWND dialog) {
    modeWord = kMethod;
    EnableControls(dialog);
}

VppParameters ReadParameters(HWND dialog) {
    VppParameters parameters{};
    for (const Parameter& parameter : kParameters) {
        parameters.*parameter.member =
            ParseUnsignedDecimal(FieldText(dialog, parameter.field, kParameterText));
    }
    return parameters;
}

void Apply(HWND dialog) {
    const VppParameters parameters = ReadParameters(dialog);
    ReportFailure(
        dialog, CodeOf(vdapi_VPP_SetMode(modeWord, reinterpret_cast<const uint32_t*>(&parameters))),
        "vdapi_VPP_SetMode");
}

void Close(HWND dialog) {
    const VppParameters parameters = ReadParameters(dialog);
    std::vector<SettingText> values{{setting::kVppMode, std::to_string(modeWord)}};
    for (const Parameter& parameter : kParameters) {
        values.push_back(TextOf(parameter.setting, parameters.*parameter.member));
    }
    WriteSettings(values);
    EndDialog(dialog, 0);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_VPP_CONTINUOUS, ChooseDisplayMode<kContinuous>},
    {IDC_VPP_FRAME_BY_FRAME, ChooseDisplayMode<kFrameByFrame>},
    {IDC_VPP_NONE, ChooseMethod<VPP_MODE_NONE>},
    {IDC_VPP_DUPLICATE, ChooseMethod<VPP_MODE_DUPLICATE>},
    {IDC_VPP_LINEAR, ChooseMethod<VPP_MODE_LINEAR>},
    {IDC_VPP_TOGGLE_FILTER, ChooseMethod<VPP_MODE_TOGGLE_FILTER>},
    {IDC_VPP_TOGGLE_VECTORS, ChooseMethod<VPP_MODE_TOGGLE_VECTORS>},
    {IDC_VPP_APPLY, Apply},
    {IDCANCEL, Close},
});

}  // namespace

INT_PTR OpenVppMode(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_VPP_MODE, owner, {Open, kActions});
}
