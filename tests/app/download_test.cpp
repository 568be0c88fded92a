// "VCP Download", with real files.
#include <fstream>

#include "res/resource.h"
#include "tests/app/dialog_test.h"
#include "tests/kit/file_dialog.h"
#include "tests/platform/temporary_folder.h"

namespace {

constexpr char kSection[] = "VCP Download";
constexpr char kWarning[] = "VxD Test - Warning";
const std::vector<int> kPaths = {IDC_DOWNLOAD_MONITOR, IDC_DOWNLOAD_CODEC, IDC_DOWNLOAD_VCP_INI,
                                 IDC_DOWNLOAD_VP_CODE};

std::string Capitals(std::string text) {
    for (char& letter : text) {
        if (letter >= 'a' && letter <= 'z') {
            letter = static_cast<char>(letter - 'a' + 'A');
        }
    }
    return text;
}

class DownloadDialog : public DialogTest {
  protected:
    DownloadDialog() : DialogTest(IDM_VCPXI_DOWNLOAD, kSection, IDCANCEL) {}

    std::string Stored(const char* key) const { return DialogTest::Stored(kSection, key); }

    void Browse(int button, const char* title, const std::string& file) const {
        dialog_.Press(button);
        const kit::FileDialog files(title);
        EXPECT_EQ(files.Types(), Texts{"All files (*.*) "});
        files.Open(file);
    }

    // What the download is handed: the four paths and the names of the sections.
    Texts Downloaded() const {
        board::ForgetCalls();
        dialog_.Press(IDOK);
        const std::vector<board::Call> calls = board::Calls();
        if (calls.size() != 1) {
            return {std::to_string(calls.size()) + " calls"};
        }
        const auto& arguments = calls[0].arguments;
        Texts texts;
        for (std::size_t i = 0; i < 4; ++i) {
            texts.push_back(arguments[i].text);
        }
        texts.push_back(std::to_string(arguments[4].value));
        std::string name;
        for (const uint8_t byte : calls[0].block) {
            if (byte == 0) {
                texts.push_back(std::exchange(name, {}));
            } else {
                name += static_cast<char>(byte);
            }
        }
        return texts;
    }

    TemporaryFolder temporary_;
};

TEST_F(DownloadDialog, LoadsTheFilesThatAreBrowsedFor) {
    const std::string separator(1, static_cast<char>(std::filesystem::path::preferred_separator));
    std::filesystem::create_directory(temporary_.Path() / "Codec Files");
    const std::string folder = temporary_ / "Codec Files" + separator;
    const std::string codec = folder + "code \xC3\xBC.bin";
    const std::string ini = folder + "Vcp.ini";
    WriteBytes(codec, "twelve bytes");
    WriteBytes(ini, "; sections\n[Boot]\nx=1\n [ video ] \n");
    EXPECT_EQ(Shown(kPaths), Texts(4, ""));
    EXPECT_EQ(dialog_.Text(IDC_DOWNLOAD_SECTIONS), "");

    Browse(IDC_DOWNLOAD_BROWSE_CODEC, "Select Codec File", codec);
    EXPECT_EQ(dialog_.Text(IDC_DOWNLOAD_CODEC), Capitals(codec));
    EXPECT_EQ(Stored("LastDirectory"), folder) << "spelled as chosen";
    EXPECT_EQ(Stored("Codec"), "(none)") << "kept on OK";
    Browse(IDC_DOWNLOAD_BROWSE_VCP_INI, "Select VCP.INI File", "Vcp.ini");
    dialog_.Type(IDC_DOWNLOAD_SECTIONS, "[BOOT]\r[VIDEO]");
    const Texts expected{"", Capitals(codec), Capitals(ini), "", "2", "[BOOT]", "[VIDEO]"};
    EXPECT_EQ(Downloaded(), expected);
    EXPECT_TRUE(IsInFront()) << "a success is not reported";
    const board::CodecSoftware loaded = board::GetHardware().codecSoftware;
    EXPECT_EQ(loaded.codec.bytes, 12u);
    EXPECT_EQ(loaded.sections, (Texts{"[BOOT]", "[VIDEO]"}));
    EXPECT_EQ(Downloaded(), expected) << "again";

    EXPECT_EQ(Stored("Codec"), Capitals(codec));
    EXPECT_EQ(Stored("VCP.INI"), Capitals(ini));
    EXPECT_EQ(Stored("Sections"), "[BOOT]; [VIDEO]");
    dialog_.Press(IDCANCEL);
    Open();
    EXPECT_EQ(Shown(kPaths), (Texts{"", Capitals(codec), Capitals(ini), ""}));
    EXPECT_EQ(dialog_.Text(IDC_DOWNLOAD_SECTIONS), "[BOOT]\r\n[VIDEO]");

    dialog_.Type(IDC_DOWNLOAD_SECTIONS, "[BOOT]\r[NONE]");
    dialog_.Press(IDOK);
    kit::MeetBox(kWarning, "vdapi_VcpCode_Download: \nVXD_CORRUPT_FILE");
    dialog_.Type(IDC_DOWNLOAD_MONITOR, (folder + "none").c_str());
    dialog_.Press(IDOK);
    kit::MeetBox(kWarning, "vdapi_VcpCode_Download: \nVXD_FILE_OPEN_FAILURE");
    EXPECT_EQ(Stored("Sections"), "[BOOT]; [NONE]") << "kept all the same";
}

TEST_F(DownloadDialog, LeavesAFieldAloneWhenBrowsingBringsNothing) {
    Type({{IDC_DOWNLOAD_MONITOR, "mon"}, {IDC_DOWNLOAD_VP_CODE, "vp"}});
    for (const auto& [button, title] :
         {std::pair{IDC_DOWNLOAD_BROWSE_MONITOR, "Select Monitor File"},
          std::pair{IDC_DOWNLOAD_BROWSE_VP_CODE, "Select VpCode File"}}) {
        dialog_.Press(button);
        kit::FileDialog(title).Cancel();
    }
    const std::string path = temporary_ / std::string(128, 'n');
    WriteBytes(path, "");
    dialog_.Press(IDC_DOWNLOAD_BROWSE_MONITOR);
    kit::FileDialog("Select Monitor File").Open(path);
    kit::MeetBox(kWarning, "The path of this file is too long: it may have 127 characters.");
    EXPECT_EQ(Shown(kPaths), (Texts{"MON", "", "", "VP"}));
    EXPECT_EQ(Stored("LastDirectory"), "(none)");
    EXPECT_EQ(dialog_.FocusedId(), IDC_DOWNLOAD_BROWSE_MONITOR);
}

TEST_F(DownloadDialog, HandsOverWhatStandsInBrackets) {
    Type({{IDC_DOWNLOAD_CODEC, "c"}, {IDC_DOWNLOAD_VCP_INI, "i"}});
    for (const auto& [typed, names] :
         {std::pair{"x [A] y]\r\r[B[C]z[D]\r[E", Texts{"3", "[A]", "[B[C]", "[D]"}},
          std::pair{"A]B[", Texts{"0"}}, std::pair{"", Texts{"0"}}}) {
        dialog_.Type(IDC_DOWNLOAD_SECTIONS, typed);
        Texts expected{"", "C", "I", ""};
        expected.insert(expected.end(), names.begin(), names.end());
        EXPECT_EQ(Downloaded(), expected);
        kit::MeetBox(kWarning, "vdapi_VcpCode_Download: \nVXD_FILE_OPEN_FAILURE");
    }
    EXPECT_EQ(Written(board::Calls()[0]),
              "vdapi_VcpCode_Download(\"\", \"C\", \"I\", \"\", 0, null)");
    dialog_.Type(IDC_DOWNLOAD_SECTIONS, "[A];[B]; [C;D]");
    EXPECT_EQ(Downloaded(), (Texts{"", "C", "I", "", "3", "[A]", "[B]", "[C;D]"}));
    kit::MeetBox(kWarning, "vdapi_VcpCode_Download: \nVXD_FILE_OPEN_FAILURE");
    dialog_.Press(IDCANCEL);
    Open();
    EXPECT_EQ(dialog_.Text(IDC_DOWNLOAD_SECTIONS), "[A]\r\n[B]\r\n[C\r\nD]") << "nothing is lost";
}

TEST_F(DownloadDialog, NeedsACodecAndAVcpIniAndRefusesWhatWouldBeCut) {
    const auto refused = [&](const char* caption, const std::string& text) {
        board::ForgetCalls();
        dialog_.Press(IDOK);
        // A box may have the dialog's own caption.
        for (int tries = 0; IsInFront() && tries < 1000; ++tries) {
            Sleep(10);
        }
        kit::MeetBox(caption, text);
        EXPECT_EQ(ReceivedCalls(), Texts{});
        EXPECT_EQ(Stored("VPCODE"), "(none)");
    };
    const std::string empty = "Empty FileName";
    Type({{IDC_DOWNLOAD_VP_CODE, "v"}, {IDC_DOWNLOAD_VCP_INI, "i"}});
    refused(kSection, empty);
    Type({{IDC_DOWNLOAD_VCP_INI, ""}, {IDC_DOWNLOAD_CODEC, "c"}});
    refused(kSection, empty);
    Type({{IDC_DOWNLOAD_VCP_INI, "i"}, {IDC_DOWNLOAD_CODEC, std::string(128, 'c').c_str()}});
    refused(kWarning, "Codec: no more than 127 characters can be sent, and here are 128.");
    Type({{IDC_DOWNLOAD_CODEC, std::string(127, 'c').c_str()},
          {IDC_DOWNLOAD_SECTIONS, std::string(1024, 's').c_str()}});
    refused(kWarning, "Sections: no more than 1023 characters can be sent, and here are 1024.");
    dialog_.Type(IDC_DOWNLOAD_SECTIONS, "");
    EXPECT_EQ(Downloaded().at(1), std::string(127, 'C'));
    kit::MeetBox(kWarning, "vdapi_VcpCode_Download: \nVXD_FILE_OPEN_FAILURE");
}

}  // namespace
