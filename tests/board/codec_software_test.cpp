// The software of the codec processor, and the streams of a call.
#include "tests/board/board_test.h"
#include "tests/platform/temporary_folder.h"

using CodecSoftwareTest = BoardTest;
using MediaStreams = BoardTest;

TEST_F(CodecSoftwareTest, StaysAsItWasWhenAFileOrASectionIsMissing) {
    const TemporaryFolder folder;
    const std::string ini = folder / "vcp.ini";
    WriteBytes(ini, "[First]\r\nkey = [Hidden]\r\n\t[ second ] ; more\r\n[open\r\n");
    const auto download = [&](const std::string& monitor, const std::string& codec,
                              std::initializer_list<const char*> sections) {
        return CodeOf(vdapi_VcpCode_Download(monitor.c_str(), codec.c_str(), ini.c_str(), "",
                                             static_cast<uint32_t>(sections.size()),
                                             sections.begin()));
    };
    EXPECT_EQ(download(ini, ini, {"[SECOND]", "[first]"}), VXD_SUCCESS);
    EXPECT_EQ(download(folder / "none", ini, {}), VXD_FILE_OPEN_FAILURE);
    EXPECT_EQ(download("", folder.Path().string(), {}), VXD_FILE_OPEN_FAILURE);
    EXPECT_EQ(download("", ini, {"[first]", "[Hidden]"}), VXD_CORRUPT_FILE);
    EXPECT_EQ(download("", ini, {"[open]"}), VXD_CORRUPT_FILE);
    EXPECT_EQ(board::GetHardware().codecSoftware.monitor.path, ini);
    EXPECT_EQ(board::GetHardware().codecSoftware.sections.size(), 2u);
    WriteBytes(folder / "Code.bin", "four");
    WriteBytes(folder / "CODE.BIN", "other");
    EXPECT_EQ(download("", folder / "CODE.BIN", {}), VXD_SUCCESS);
    EXPECT_EQ(board::GetHardware().codecSoftware.codec.bytes, 5u) << "the exact name comes first";
    board::PowerOn();
    EXPECT_EQ(board::GetHardware().codecSoftware.codec.path, "");
}

TEST_F(MediaStreams, OpenOnceAndCloseOnceAndTakeBandwidthMeanwhile) {
    int32_t expected = 0;
    for (const auto& [stream, takes] :
         {std::pair{STREAM_VIDEO, 320}, std::pair{STREAM_AUDIO_TO_BOARD, 64},
          std::pair{STREAM_AUDIO_FROM_BOARD, 64}}) {
        EXPECT_EQ(vdapi_Stream_Close(stream), VXD_FAILED_STREAM_CLOSE);
        EXPECT_EQ(vdapi_Stream_Open(stream, 0, 0), VXD_SUCCESS);
        EXPECT_EQ(vdapi_Stream_Open(stream, 0, 0), VXD_FAILED_STREAM_OPEN);
        expected += takes;
        EXPECT_EQ(Read<int32_t>(vdapi_GetBandwidth), expected);
    }
    EXPECT_EQ(vdapi_Stream_Close(STREAM_VIDEO), VXD_SUCCESS);
    EXPECT_EQ(Read<int32_t>(vdapi_GetBandwidth), 128);
}
