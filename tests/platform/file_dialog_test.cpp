// The dialog for opening a file.
#include <cctype>

#include "tests/kit/file_dialog.h"
#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/recorder.h"
#include "tests/platform/temporary_folder.h"

namespace {

constexpr char kTitle[] = "Pick One";

class FileDialogs : public testing::Test {
  protected:
    // Asks for a file in the folder, over the owner.
    void Ask(const std::string& folder, DWORD capacity = MAX_PATH) {
        folder_ = folder;
        kit::BeginStep([=, this] {
            question_ = {};
            question_.lStructSize = sizeof question_;
            question_.hwndOwner = owner_->Handle();
            question_.lpstrFilter = "Codes \0 *.bin;*.out \0All (*.*) \0 *.* \0";
            question_.lpstrFile = file_.data();
            question_.nMaxFile = capacity;
            question_.lpstrFileTitle = fileTitle_.data();
            question_.nMaxFileTitle = static_cast<DWORD>(fileTitle_.size());
            question_.lpstrInitialDir = folder_.c_str();
            question_.lpstrTitle = kTitle;
            question_.Flags = OFN_FILEMUSTEXIST | OFN_PATHMUSTEXIST;
            file_[0] = '\0';
            answer_.reset();
            answer_ = GetOpenFileNameA(&question_);
            error_ = CommDlgExtendedError();
        });
    }
    std::optional<BOOL> Answer() {
        return kit::OnUserInterface([this] { return answer_; });
    }

    kit::RecordedDialog owner_{IDD_BARE, "Bare"};
    TemporaryFolder folders_;
    std::string folder_;
    std::array<char, MAX_PATH> file_{};
    std::array<char, MAX_PATH> fileTitle_{};
    OPENFILENAMEA question_{};
    std::optional<BOOL> answer_;
    DWORD error_ = 0;
};

// Touched by the user-interface thread alone.
int ticks = 0;
void CALLBACK Tick(HWND, UINT, UINT_PTR, DWORD) {
    ++ticks;
}

TEST_F(FileDialogs, GiveThePathTheNameAndWhereItBegins) {
    const std::string path = folders_ / "Two words.bin";
    WriteBytes(path, "code");
    Ask(folders_.Path().string());
    const kit::FileDialog dialog(kTitle);
    EXPECT_EQ(dialog.Types(), (std::vector<std::string>{"Codes ", "All (*.*) "}));
    dialog.Open("Two words.bin");
    ASSERT_EQ(Answer(), TRUE);
    EXPECT_STREQ(file_.data(), path.c_str());
    EXPECT_STREQ(fileTitle_.data(), "Two words.bin");
    EXPECT_STREQ(file_.data() + question_.nFileOffset, "Two words.bin");
}

TEST_F(FileDialogs, KeepTheOwnerFromInputWhileTimersTickAndGiveItTheFocusBack) {
    const HWND owner = owner_->Handle();
    const HWND focus = kit::OnUserInterface(GetFocus);
    Ask(folders_.Path().string());
    const kit::FileDialog dialog(kTitle);
    EXPECT_FALSE(kit::OnUserInterface([=] { return IsWindowEnabled(owner); }));
    EXPECT_NE(kit::OnUserInterface(GetFocus), focus);
    const UINT_PTR timer = kit::OnUserInterface([] {
        ticks = 0;
        return SetTimer(nullptr, 0, 10, Tick);
    });
    while (kit::OnUserInterface([] { return ticks; }) < 3) {
        Sleep(1);
    }
    kit::RunStep([timer] { KillTimer(nullptr, timer); });
    dialog.Cancel();
    EXPECT_EQ(Answer(), FALSE);
    EXPECT_EQ(error_, 0u);
    EXPECT_TRUE(kit::OnUserInterface([=] { return IsWindowEnabled(owner); }));
    EXPECT_EQ(kit::OnUserInterface(GetActiveWindow), owner);
    EXPECT_EQ(kit::OnUserInterface(GetFocus), focus);
}

TEST_F(FileDialogs, RefuseAPathThatDoesNotFit) {
    const std::string path = folders_ / "name";
    WriteBytes(path, "");
    const auto length = static_cast<DWORD>(path.size());
    for (const DWORD capacity : {length, length + 1}) {
        Ask(folders_.Path().string(), capacity);
        kit::FileDialog(kTitle).Open(path);
        EXPECT_EQ(Answer(), capacity > length);
        EXPECT_EQ(error_, capacity > length ? 0u : FNERR_BUFFERTOOSMALL);
    }
}

std::string Spelled(const std::string& path) {
    std::array<char, 1024> spelled{};
    const DWORD length =
        GetLongPathNameA(path.c_str(), spelled.data(), static_cast<DWORD>(spelled.size()));
    return {spelled.data(), length};
}

TEST(FileNames, AreSpelledAsTheyStandInTheirFolders) {
    const TemporaryFolder folder;
    std::filesystem::create_directory(std::filesystem::path(folder.Path()) / "Deep");
    const std::string path = folder / "Deep/Code One.bin";
    WriteBytes(path, "code");
    std::string capitals = path;
    std::ranges::transform(capitals, capitals.begin(), [](unsigned char letter) {
        return static_cast<char>(std::toupper(letter));
    });
    EXPECT_EQ(ReadBytes(Spelled(capitals)), "code");
    EXPECT_EQ(Spelled(folder / "Deep/none"), "");
    EXPECT_EQ(GetLongPathNameA(path.c_str(), nullptr, 0), path.size() + 1);
}

}  // namespace
