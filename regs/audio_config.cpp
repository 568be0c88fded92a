// Microphone, speaker and muting are audio parameters of the firmware.
#include "regs/audio_config.h"

#include <array>
#include <cstdint>
#include <span>

#include "driver/firmware_command.h"
#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

// A check box that stands for bits of a parameter's value.
struct Source {
    int id;
    uint32_t bits;
};

// The firmware numbers what can be chosen of these from 0: their bits less 1.
constexpr auto kMicrophones = std::to_array<Source>({
    {IDC_AUDIO_CAMERA, 4},
    {IDC_AUDIO_HEADSET, 1},
    {IDC_AUDIO_VCR, 2},
});
constexpr uint32_t kCameraAlone = 3;

constexpr auto kSpeakers = std::to_array<Source>({
    {IDC_AUDIO_INTERNAL, 1},
    {IDC_AUDIO_EXTERNAL, 2},
});

// 0 where the firmware gives none.
uint32_t GetParameter(uint32_t parameter) {
    uint32_t value = 0;
    uint32_t second = 0;
    uint16_t third = 0;
    vdapi_SendCommand(PELLAN_COMMAND_AUDIO_GET_PARAM, parameter, 0, 0, &value, &second, &third);
    return value;
}

void SetParameter(uint32_t parameter, uint32_t value) {
    uint32_t first = 0;
    uint32_t second = 0;
    uint16_t third = 0;
    vdapi_SendCommand(PELLAN_COMMAND_AUDIO_SET_PARAM, parameter, value, 0, &first, &second, &third);
}

bool IsChecked(HWND dialog, int id) {
    return IsDlgButtonChecked(dialog, id) == BST_CHECKED;
}

void Check(HWND dialog, std::span<const Source> sources, uint32_t bits) {
    for (const Source& source : sources) {
        CheckDlgButton(dialog, source.id, (bits & source.bits) != 0 ? BST_CHECKED : BST_UNCHECKED);
    }
}

uint32_t CheckedBits(HWND dialog, std::span<const Source> sources) {
    uint32_t bits = 0;
    for (const Source& source : sources) {
        bits += IsChecked(dialog, source.id) ? source.bits : 0;
    }
    return bits;
}

// Without any other the camera's is used.
void ChooseMicrophone(HWND dialog) {
    const uint32_t bits = CheckedBits(dialog, kMicrophones);
    if (bits != 0) {
        SetParameter(VC_AUDIOPARAM_MIC_SELECT, bits - 1);
        return;
    }
    SetParameter(VC_AUDIOPARAM_MIC_SELECT, kCameraAlone);
    CheckDlgButton(dialog, IDC_AUDIO_CAMERA, BST_CHECKED);
}

void ChooseSpeaker(HWND dialog) {
    SetParameter(VC_AUDIOPARAM_SPKR_SELECT, CheckedBits(dialog, kSpeakers));
}

template <int kBox, uint32_t kParameter>
void Mute(HWND dialog) {
    SetParameter(kParameter, IsChecked(dialog, kBox) ? 1 : 0);
}

void Open(HWND dialog) {
    Check(dialog, kMicrophones, GetParameter(VC_AUDIOPARAM_MIC_SELECT) + 1);
    Check(dialog, kSpeakers, GetParameter(VC_AUDIOPARAM_SPKR_SELECT));
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_AUDIO_CAMERA, ChooseMicrophone},
    {IDC_AUDIO_HEADSET, ChooseMicrophone},
    {IDC_AUDIO_VCR, ChooseMicrophone},
    {IDC_AUDIO_INTERNAL, ChooseSpeaker},
    {IDC_AUDIO_EXTERNAL, ChooseSpeaker},
    {IDC_AUDIO_MUTE_INCOMING, Mute<IDC_AUDIO_MUTE_INCOMING, VC_AUDIOPARAM_MUTE_INCOMING>},
    {IDC_AUDIO_MUTE_OUTGOING, Mute<IDC_AUDIO_MUTE_OUTGOING, VC_AUDIOPARAM_MUTE_OUTGOING>},
    {IDOK, EndWith<0>},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenAudioConfig(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_AUDIO_CONFIG, owner, {Open, kActions});
}
