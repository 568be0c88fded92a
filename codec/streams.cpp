// "Open/Close Stream". The codec of a stream is what the codec processor's variables say when it is
// opened. What comes of a call to the board is not looked at: a stream that can't be opened or
// closed leaves the dialog as it was.
#include "codec/streams.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <span>

#include "driver/papi.h"
#include "res/resource.h"
#include "services/dialog_kit.h"

namespace {

enum Codec : uint32_t {
    kH261 = 1,
    kH263 = 2,
    kG711A = 4,
    kG711U = 5,
    kG722 = 6,
    kG723 = 7,
    kG728 = 8,
    kDefaultVideo = 10,
    kDefaultAudio = 11,
};

constexpr auto kVideoCodecs = std::to_array<NamedNumber>({
    {"H261", kH261},
    {"H263", kH263},
    {"DEFAULT", kDefaultVideo},
});

constexpr auto kFormats = std::to_array<NamedNumber>({
    {"QCIF", 0},
    {"CIF", 1},
});

constexpr auto kAudioCodecs = std::to_array<NamedNumber>({
    {"G.711A", kG711A},
    {"G.711U", kG711U},
    {"G.722", kG722},
    {"G.723", kG723},
    {"G.728", kG728},
    {"DEFAULT", kDefaultAudio},
});

// The number by which the codec processor knows an audio codec.
struct AudioMode {
    uint32_t codec;
    uint32_t mode;
};
constexpr auto kAudioModes = std::to_array<AudioMode>({
    {kG711A, 2},
    {kG711U, 3},
    {kG722, 4},
    {kG728, 5},
    {kG723, 6},
});

// Kept for the whole run.
uint32_t StreamType = STREAM_VIDEO;
uint32_t codecChoice = kDefaultVideo;
uint32_t cifFlag = 0;

// The number of a list's selected row; `otherwise` where none is selected.
uint32_t ChosenNumber(HWND dialog, int list, uint32_t otherwise) {
    return SelectedRow(dialog, list) ? SelectedNumber(dialog, list) : otherwise;
}

void TakeChoices(HWND dialog) {
    if (StreamType == STREAM_VIDEO) {
        codecChoice = ChosenNumber(dialog, IDC_STREAM_VIDEO_CODEC, kDefaultVideo);
        cifFlag = ChosenNumber(dialog, IDC_STREAM_FORMAT, 0);
    } else {
        codecChoice = ChosenNumber(dialog, IDC_STREAM_AUDIO_CODEC, kDefaultAudio);
    }
}

template <MediaStream kStream>
void ChooseStream(HWND dialog) {
    StreamType = kStream;
    TakeChoices(dialog);
    const bool video = kStream == STREAM_VIDEO;
    EnableWindow(GetDlgItem(dialog, IDC_STREAM_VIDEO_CODEC), video);
    EnableWindow(GetDlgItem(dialog, IDC_STREAM_FORMAT), video);
    EnableWindow(GetDlgItem(dialog, IDC_STREAM_AUDIO_CODEC), !video);
}

void WriteVariable(const char* name, uint32_t value) {
    vdapi_VCPXI_VCPVariable_SetValue(name, sizeof value, 1, &value, 0);
}

void WriteVideoCodec() {
    if (codecChoice == kH261 || codecChoice == kH263) {
        WriteVariable("vcx_bH263Enc", codecChoice == kH263);
    }
    WriteVariable("vcx_dwH261EncCif", cifFlag);
    WriteVariable("vcx_dwVidProgramUpdateFlag", 1);
}

void WriteAudioCodec(const char* variable) {
    const auto found = std::ranges::find(kAudioModes, codecChoice, &AudioMode::codec);
    if (found != kAudioModes.end()) {
        WriteVariable(variable, found->mode);
    }
}

void WriteCodec() {
    switch (StreamType) {
        case STREAM_VIDEO:
            WriteVideoCodec();
            break;
        case STREAM_AUDIO_TO_BOARD:
            WriteAudioCodec("vcx_dwH323AudEncMode");
            break;
        default:
            WriteAudioCodec("vcx_dwH323AudDecMode");
            break;
    }
}

void OpenStream(HWND dialog) {
    TakeChoices(dialog);
    WriteCodec();
    vdapi_Stream_Open(StreamType, 0, 0);
}

void CloseStream(HWND /*dialog*/) {
    vdapi_Stream_Close(StreamType);
}

void Open(HWND dialog) {
    CheckRadioButton(dialog, IDC_STREAM_VIDEO, IDC_STREAM_AUDIO_TO_BOARD, IDC_STREAM_VIDEO);
    AddComboRows(dialog, IDC_STREAM_VIDEO_CODEC, kVideoCodecs);
    AddComboRows(dialog, IDC_STREAM_FORMAT, kFormats);
    AddComboRows(dialog, IDC_STREAM_AUDIO_CODEC, kAudioCodecs);
    StreamType = STREAM_VIDEO;
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_STREAM_VIDEO, ChooseStream<STREAM_VIDEO>},
    {IDC_STREAM_AUDIO_TO_BOARD, ChooseStream<STREAM_AUDIO_TO_BOARD>},
    {IDC_STREAM_AUDIO_FROM_BOARD, ChooseStream<STREAM_AUDIO_FROM_BOARD>},
    {IDC_STREAM_OPEN, OpenStream},
    {IDC_STREAM_CLOSE, CloseStream},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenStreams(HINSTANCE instance, HWND owner) {
    RunDialog(instance, IDD_STREAM, owner, {Open, kActions});
    return 1;
}
