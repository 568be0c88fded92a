// "Open/Close Stream".
#include "res/resource.h"
#include "tests/app/dialog_test.h"

namespace {

class StreamsDialog : public DialogTest {
  protected:
    StreamsDialog() : DialogTest(IDM_STREAM_OPEN, "Open/Close Stream", IDCANCEL) {}
};

std::string Written(const char* variable, uint32_t value) {
    return std::string("vdapi_VCPXI_VCPVariable_SetValue(\"") + variable +
           "\", 4, 1, address, 0) " + WordText(value);
}

const std::string kOpenVideo = "vdapi_Stream_Open(4, 0, 0)";

TEST_F(StreamsDialog, OpensOnVideoWithoutACodecAndSoDoesTheVideoStream) {
    EXPECT_TRUE(dialog_.IsChecked(IDC_STREAM_VIDEO));
    EXPECT_TRUE(dialog_.IsEnabled(IDC_STREAM_VIDEO_CODEC));
    EXPECT_TRUE(dialog_.IsEnabled(IDC_STREAM_FORMAT));
    EXPECT_FALSE(dialog_.IsEnabled(IDC_STREAM_AUDIO_CODEC));
    for (const int list : {IDC_STREAM_VIDEO_CODEC, IDC_STREAM_FORMAT, IDC_STREAM_AUDIO_CODEC})
        EXPECT_EQ(dialog_.SelectedRow(list), -1);
    EXPECT_EQ(ReceivedOn(IDC_STREAM_OPEN),
              (Texts{Written("vcx_dwH261EncCif", 0), Written("vcx_dwVidProgramUpdateFlag", 1),
                     kOpenVideo}));
}

TEST_F(StreamsDialog, WritesTheChosenVideoCodecAndFormatBeforeItOpens) {
    for (const auto& [codec, h263] : {std::pair{"H263", 1u}, std::pair{"H261", 0u}}) {
        dialog_.Pick(IDC_STREAM_VIDEO_CODEC, codec);
        dialog_.Pick(IDC_STREAM_FORMAT, h263 != 0 ? "CIF" : "QCIF");
        EXPECT_EQ(ReceivedOn(IDC_STREAM_OPEN),
                  (Texts{Written("vcx_bH263Enc", h263), Written("vcx_dwH261EncCif", h263),
                         Written("vcx_dwVidProgramUpdateFlag", 1), kOpenVideo}));
    }
    dialog_.Pick(IDC_STREAM_VIDEO_CODEC, "DEFAULT");
    EXPECT_EQ(ReceivedOn(IDC_STREAM_OPEN).size(), 3u);
}

TEST_F(StreamsDialog, WritesTheModeOfAnAudioCodecIntoTheVariableOfTheDirection) {
    for (const auto& [button, variable, stream] :
         {std::tuple{IDC_STREAM_AUDIO_TO_BOARD, "vcx_dwH323AudEncMode", "3"},
          std::tuple{IDC_STREAM_AUDIO_FROM_BOARD, "vcx_dwH323AudDecMode", "2"}}) {
        dialog_.Press(button);
        EXPECT_FALSE(dialog_.IsEnabled(IDC_STREAM_VIDEO_CODEC));
        EXPECT_FALSE(dialog_.IsEnabled(IDC_STREAM_FORMAT));
        const std::string open = std::string("vdapi_Stream_Open(") + stream + ", 0, 0)";
        for (const auto& [codec, mode] :
             {std::pair{"G.711A", 2u}, std::pair{"G.711U", 3u}, std::pair{"G.722", 4u},
              std::pair{"G.728", 5u}, std::pair{"G.723", 6u}}) {
            dialog_.Pick(IDC_STREAM_AUDIO_CODEC, codec);
            EXPECT_EQ(ReceivedOn(IDC_STREAM_OPEN), (Texts{Written(variable, mode), open}));
        }
        dialog_.Pick(IDC_STREAM_AUDIO_CODEC, "DEFAULT");
        EXPECT_EQ(ReceivedOn(IDC_STREAM_OPEN), Texts{open});
        EXPECT_EQ(ReceivedOn(IDC_STREAM_CLOSE),
                  Texts{std::string("vdapi_Stream_Close(") + stream + ")"});
    }
    dialog_.Press(IDC_STREAM_VIDEO);
    EXPECT_TRUE(dialog_.IsEnabled(IDC_STREAM_FORMAT));
    EXPECT_FALSE(dialog_.IsEnabled(IDC_STREAM_AUDIO_CODEC));
    EXPECT_EQ(ReceivedOn(IDC_STREAM_CLOSE), Texts{"vdapi_Stream_Close(4)"});
}

TEST_F(StreamsDialog, BeginsAnewWithVideoAndReportsNoFailure) {
    dialog_.Press(IDC_STREAM_AUDIO_TO_BOARD);
    dialog_.Pick(IDC_STREAM_AUDIO_CODEC, "G.722");
    dialog_.Press(IDCANCEL);
    Open();
    EXPECT_TRUE(dialog_.IsChecked(IDC_STREAM_VIDEO));
    EXPECT_FALSE(dialog_.IsEnabled(IDC_STREAM_AUDIO_CODEC));
    EXPECT_EQ(dialog_.SelectedRow(IDC_STREAM_AUDIO_CODEC), -1);
    board::FailAlways("vdapi_VCPXI_VCPVariable_SetValue", VXD_TIMEOUT_FAILURE);
    board::FailAlways("vdapi_Stream_Open", VXD_TIMEOUT_FAILURE);
    EXPECT_EQ(ReceivedOn(IDC_STREAM_OPEN).back(), kOpenVideo);
    EXPECT_TRUE(IsInFront());
}

TEST_F(StreamsDialog, LetsTheBandwidthFollowWhatIsOpen) {
    const auto expect = [&](const char* text) {
        dialog_.Press(IDCANCEL);
        utility_.Choose(IDM_FILE_BANDWIDTH);
        kit::MeetBox("Bandwidth", text);
        Open();
    };
    dialog_.AltKey('p');
    expect("The Bandwidth is: 320");
    dialog_.Press(IDC_STREAM_AUDIO_FROM_BOARD);
    dialog_.Key(VK_RETURN);
    expect("The Bandwidth is: 384");
    dialog_.AltKey('c');
    expect("The Bandwidth is: 64");
}

}  // namespace
