// The software of the codec processor, and the streams of a call.
#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <string>

#include "tests/board/board_test.h"
#include "tests/platform/temporary_folder.h"

namespace {

class CodecSoftwareTest : public BoardTest {
  protected:
    CodecSoftwareTest() {
        std::filesystem::create_directory(folder_.Path() / "sub");
        std::filesystem::create_directory(folder_.Path() / "Sub");
        WriteBytes(codec_, "0123456789");
        WriteBytes(ini_, "[First]\r\nkey = [Hidden]\r\n\t[ second ] ; more\r\n[open\r\n");
    }

    ResultCode Download(const std::string& monitor, const std::string& codec,
                        const std::string& ini, std::initializer_list<const char*> sections) const {
        return CodeOf(vdapi_VcpCode_Download(monitor.c_str(), codec.c_str(), ini.c_str(), "",
                                             static_cast<uint32_t>(sections.size()),
                                             sections.begin()));
    }

    TemporaryFolder folder_;
    std::string codec_ = folder_ / "sub/Code.bin";
    std::string ini_ = folder_ / "vcp.ini";
};

std::string Capitals(std::string text) {
    std::ranges::transform(text, text.begin(), [](unsigned char letter) {
        return static_cast<char>(std::toupper(letter));
    });
    return text;
}

}  // namespace

TEST_F(CodecSoftwareTest, IsLoadedFromTheFilesThatAreNamedInWhateverCase) {
    EXPECT_EQ(Download("", Capitals(codec_), Capitals(ini_), {"[SECOND]", "[first]"}), VXD_SUCCESS);
    const board::CodecSoftware loaded = board::GetHardware().codecSoftware;
    EXPECT_EQ(ReadBytes(loaded.codec.path), "0123456789");
    EXPECT_EQ(loaded.codec.bytes, 10u);
    EXPECT_EQ(loaded.monitor.path, "");
    EXPECT_EQ(loaded.sections, (std::vector<std::string>{"[SECOND]", "[first]"}));

    // The exact name comes first.
    const std::string other = folder_ / "sub/CODE.BIN";
    WriteBytes(other, "other");
    EXPECT_EQ(Download("", other, ini_, {}), VXD_SUCCESS);
    EXPECT_EQ(board::GetHardware().codecSoftware.codec.bytes, 5u);
}

TEST_F(CodecSoftwareTest, StaysAsItWasWhenAFileOrASectionIsMissing) {
    EXPECT_EQ(Download(ini_, codec_, ini_, {}), VXD_SUCCESS);
    const std::string none = folder_ / "none";
    EXPECT_EQ(Download(none, codec_, ini_, {}), VXD_FILE_OPEN_FAILURE);
    EXPECT_EQ(Download("", codec_, none, {}), VXD_FILE_OPEN_FAILURE);
    EXPECT_EQ(Download("", folder_.Path().string(), ini_, {}), VXD_FILE_OPEN_FAILURE);
    EXPECT_EQ(Download("", codec_, ini_, {"[first]", "[Hidden]"}), VXD_CORRUPT_FILE);
    EXPECT_EQ(Download("", codec_, ini_, {"[open]"}), VXD_CORRUPT_FILE);
    EXPECT_EQ(Download("", codec_, ini_, {"first"}), VXD_INVALID_PARAMETER);
    EXPECT_EQ(Download("", "", ini_, {}), VXD_INVALID_PARAMETER);
    EXPECT_EQ(board::GetHardware().codecSoftware.monitor.path, ini_);
    board::PowerOn();
    EXPECT_EQ(board::GetHardware().codecSoftware.monitor.path, "");
}

using MediaStreams = BoardTest;

TEST_F(MediaStreams, OpenOnceAndCloseOnceAndTakeBandwidthMeanwhile) {
    const auto bandwidth = [] {
        int32_t value = -1;
        EXPECT_EQ(vdapi_GetBandwidth(&value), VXD_SUCCESS);
        return value;
    };
    int32_t expected = 0;
    for (const auto& [stream, takes] :
         {std::pair{STREAM_VIDEO, 320}, std::pair{STREAM_AUDIO_TO_BOARD, 64},
          std::pair{STREAM_AUDIO_FROM_BOARD, 64}}) {
        EXPECT_EQ(vdapi_Stream_Close(stream), VXD_FAILED_STREAM_CLOSE);
        EXPECT_EQ(vdapi_Stream_Open(stream, 0, 0), VXD_SUCCESS);
        EXPECT_EQ(vdapi_Stream_Open(stream, 0, 0), VXD_FAILED_STREAM_OPEN);
        expected += takes;
        EXPECT_EQ(bandwidth(), expected);
    }
    EXPECT_EQ(vdapi_Stream_Close(STREAM_VIDEO), VXD_SUCCESS);
    EXPECT_EQ(bandwidth(), 128);
    EXPECT_EQ(vdapi_Stream_Open(1, 0, 0), VXD_INVALID_PARAMETER);
}
