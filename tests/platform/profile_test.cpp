// What every Win32 does with a profile file.
#include <fstream>

#include "platform/win32.h"
#include "tests/platform/difference.h"
#include "tests/platform/temporary_folder.h"

namespace {

class ProfileTest : public testing::Test {
  protected:
    ProfileTest() { SetEnvironmentVariableA("XDG_CONFIG_HOME", folder_.Path().string().c_str()); }

    void SetContents(std::string_view bytes) { WriteBytes(file_, bytes); }
    std::string Contents() const { return ReadBytes(file_); }

    bool Write(const char* section, const char* key, const char* text) const {
        return WritePrivateProfileStringA(section, key, text, file_.c_str()) != 0;
    }
    std::string Read(const char* section, const char* key) const {
        return ReadFrom(file_, section, key);
    }
    static std::string ReadFrom(const std::string& file, const char* section, const char* key) {
        std::string text(0xFFFF, '~');
        text.resize(GetPrivateProfileStringA(section, key, "(none)", text.data(),
                                             static_cast<DWORD>(text.size()), file.c_str()));
        return text;
    }

    TemporaryFolder folder_;
    std::string file_ = folder_ / "test.ini";
};

TEST_F(ProfileTest, ValuesAreReadWithoutBlanksAndOnePairOfQuotes) {
    for (const auto& [contents, value] : std::vector<std::pair<const char*, const char*>>{
             {"[s]\r\nk=plain", "plain"},
             {"[s]\nk=line feeds\n", "line feeds"},
             {" [ s ] rest\r\n\tk \t=\t two words \t\r\n", "two words"},
             {"[S]\r\nK=capitals\r\n", "capitals"},
             {"[s]\r\nk=\r\n", ""},
             {"[s]\r\nk=a=b;c#d\r\n", "a=b;c#d"},
             {"[s]\r\nk=\" kept \"\r\n", " kept "},
             {"[s]\r\nk=' kept '\r\n", " kept "},
             {"[s]\r\nk=\"\"twice\"\"\r\n", "\"twice\""},
             {"[s]\r\nk='mixed\"\r\n", "'mixed\""},
             {"[s]\r\nk=\"\r\n", "\""},
             {"[s]\r\n ; k=comment\r\n;k=comment\r\nk=value\r\n", "value"},
             {"[s]\r\nk=first\r\nk=second\r\n", "first"},
             {"[s]\r\na=1\r\n[t]\r\nk=other\r\n[s]\r\nk=too late\r\n", "(none)"},
             {"[t]\r\nk=1\r\n", "(none)"},
             {"[s]\r\nkk=1\r\nk\r\n", "(none)"},
             {"", "(none)"}}) {
        SetContents(contents);
        EXPECT_EQ(Read("s", "k"), value) << contents;
    }
}

TEST_F(ProfileTest, NumbersAreReadAsFarAsTheDigitsGo) {
    for (const auto& [value, number] :
         std::vector<std::pair<const char*, INT>>{{"42", 42},
                                                  {"42A9", 42},
                                                  {"B42", 0},
                                                  {"-1", -1},
                                                  {"+5", 5},
                                                  {" \"17\" ", 17},
                                                  {"4294967297", 1},
                                                  {"2147483648", INT{-2147483647} - 1},
                                                  {"", 70},
                                                  {"''", 70}}) {
        SetContents(std::string("[s]\r\nk=") + value + "\r\n");
        EXPECT_EQ(static_cast<INT>(GetPrivateProfileIntA("s", "k", 70, file_.c_str())), number)
            << value;
    }
    EXPECT_EQ(GetPrivateProfileIntA("s", "missing", 70, file_.c_str()), 70u);
    EXPECT_EQ(static_cast<INT>(GetPrivateProfileIntA("s", "k", -3, (file_ + "x").c_str())), -3);
}

TEST_F(ProfileTest, TextThatDoesNotFitIsCut) {
    const std::string value(60'000, 'v');
    SetContents("[s]\r\nk=" + value + "\r\n");
    EXPECT_EQ(Read("s", "k"), value);

    std::array<char, 8> text;
    const auto read = [&](const char* key, const char* otherwise, DWORD capacity) {
        text.fill('~');
        return GetPrivateProfileStringA("s", key, otherwise, text.data(), capacity, file_.c_str());
    };
    EXPECT_EQ(read("k", "", 5), 4u);
    EXPECT_EQ(std::string(text.data(), 6), std::string("vvvv\0~", 6));
    EXPECT_EQ(read("k", "", 1), 0u);
    EXPECT_EQ(text[0], '\0');
    EXPECT_EQ(read("k", "", 0), 0u);
    EXPECT_EQ(text[0], '~');
    EXPECT_EQ(read("missing", "default", 5), 4u);
    EXPECT_STREQ(text.data(), "defa");
    EXPECT_EQ(read("missing", " d  ", 8), 2u);
    EXPECT_STREQ(text.data(), " d");
    EXPECT_EQ(read("missing", nullptr, 8), 0u);
    EXPECT_STREQ(text.data(), "");
}

TEST_F(ProfileTest, WritingKeepsEveryOtherByte) {
    struct Case {
        const char* before;
        const char* section;
        const char* key;
        const char* value;
        const char* after;
    };
    const auto cases = std::to_array<Case>({
        {"", "s", "k", "v", "[s]\r\nk=v\r\n"},
        {"[s]\r\nKey=old\r\n", "S", "KEY", "new", "[s]\r\nKey=new\r\n"},
        {"[s]\r\na=1\r\n;  c=2\r\nodd line\r\nb=3\r\n", "s", "a", "",
         "[s]\r\na=\r\n;  c=2\r\nodd line\r\nb=3\r\n"},
        {"[s]\r\na=1\r\n[t]\r\nb=2\r\n", "s", "k", "v", "[s]\r\na=1\r\nk=v\r\n[t]\r\nb=2\r\n"},
        {"[s]\r\n[t]\r\nb=2\r\n", "s", "k", "v", "[s]\r\nk=v\r\n[t]\r\nb=2\r\n"},
        {"[s]\r\na=1", "s", "k", "v", "[s]\r\na=1\r\nk=v\r\n"},
        {"[s]", "s", "k", "v", "[s]\r\nk=v\r\n"},
        {"a=1", "s", "k", "v", "a=1\r\n[s]\r\nk=v\r\n"},
        {"[s]\r\nk=1\r\nk=2\r\n[s]\r\nk=3\r\n", "s", "k", "v",
         "[s]\r\nk=v\r\nk=2\r\n[s]\r\nk=3\r\n"},
        {"[s]\r\na=1\r\nb=2\r\nc=3\r\n", "s", "B", nullptr, "[s]\r\na=1\r\nc=3\r\n"},
        {"[r]\r\na=1\r\n[s]\r\nb=2\r\n[t]\r\nc=3\r\n", "S", nullptr, nullptr,
         "[r]\r\na=1\r\n[t]\r\nc=3\r\n"},
        {"[s]\r\na=1\r\n", "s", "missing", nullptr, "[s]\r\na=1\r\n"},
        {"[s]\r\na=1\r\n", "missing", nullptr, nullptr, "[s]\r\na=1\r\n"},
    });
    for (const Case& c : cases) {
        SetContents(c.before);
        EXPECT_TRUE(Write(c.section, c.key, c.value)) << c.before;
        EXPECT_EQ(Contents(), c.after);
    }
}

TEST_F(ProfileTest, WritingChangesNothingButTheValueInFilesOfOtherEditors) {
    struct Case {
        const char* before;
        const char* after;
        const char* onWine;
    };
    const auto cases = std::to_array<Case>({
        // The line keeps its blanks and its line end, or has none as before.
        {"[s]\n k\t= old \nx=1\n", "[s]\n k\t= new\nx=1\n", "[s]\r\nk=new\r\nx=1\r\n"},
        {"[s]\rk=old\rx=1\r", "[s]\rk=new\rx=1\r", "[s]\r\nk=new\r\nx=1\r\n"},
        {"[s]\r\nk=old", "[s]\r\nk=new", "[s]\r\nk=new\r\n"},
        // So do empty lines and what follows a section's name.
        {";\r\n\r\n[s] rest\r\nk=old\r\n", ";\r\n\r\n[s] rest\r\nk=new\r\n",
         ";\r\n[s]\r\nk=new\r\n"},
        // A new key stands after the last one, before what else closes the section.
        {"[s]\na=1\nodd\n; end\n\n[t]\n", "[s]\na=1\nk=new\r\nodd\n; end\n\n[t]\n",
         "[s]\r\na=1\r\nodd\r\n; end\r\nk=new\r\n[t]\r\n"},
    });
    for (const Case& c : cases) {
        SetContents(c.before);
        EXPECT_TRUE(Write("s", "k", "new")) << c.before;
        EXPECT_EQ(Contents(),
                  kit::ExceptOn(WindowSystem::kWine, c.onWine,
                                "writes the whole file in its own way", std::string(c.after)));
    }
}

TEST_F(ProfileTest, AReadOnlyFileStaysAsItIs) {
    namespace fs = std::filesystem;
    SetContents("[s]\r\nk=old\r\n");
    const auto writing = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    fs::permissions(file_, writing, fs::perm_options::remove);
    const bool canBeWritten = std::ofstream(file_, std::ios::app).is_open();
    // Whether the host lets this user write what is read-only, as it does the superuser.
    const bool written =
        canBeWritten && kit::ExceptOn(WindowSystem::kWine, true, "leaves it to the host", false);
    EXPECT_EQ(Write("s", "k", "new"), written);
    EXPECT_EQ(Contents(), written ? "[s]\r\nk=new\r\n" : "[s]\r\nk=old\r\n");
    fs::permissions(file_, writing, fs::perm_options::add);
}

TEST_F(ProfileTest, TheWriterAddsNoQuotes) {
    ASSERT_TRUE(Write("s", "quoted", "\"v\""));
    EXPECT_EQ(Read("s", "quoted"), "v");
    ASSERT_TRUE(Write("s", "blanks", "v  "));
    EXPECT_EQ(Read("s", "blanks"), "v");
}

TEST_F(ProfileTest, WhatAnotherProgramWritesIsSeenAtOnce) {
    ASSERT_TRUE(Write("s", "k", "mine"));
    EXPECT_EQ(Read("s", "k"), "mine");
    SetContents("[s]\r\nk=theirs\r\n");
    EXPECT_EQ(Read("s", "k"), "theirs");
    ASSERT_TRUE(Write("s", "a", "1"));
    EXPECT_EQ(Contents(), "[s]\r\nk=theirs\r\na=1\r\n");
}

TEST_F(ProfileTest, ABareNameLivesInTheSystemsFolderWhateverItsCase) {
    std::array<char, MAX_PATH> system;
    const UINT length = GetWindowsDirectoryA(system.data(), MAX_PATH);
    ASSERT_EQ(length, std::string(system.data()).size());
    EXPECT_EQ(GetWindowsDirectoryA(system.data(), length), length + 1);
    const std::string path = std::string(system.data()) + "/VxdProfileTest.INI";

    ASSERT_TRUE(WritePrivateProfileStringA("s", "a", "1", "VxdProfileTest.INI"));
    ASSERT_TRUE(WritePrivateProfileStringA("s", "b", "2", "vxdprofiletest.ini"));
    EXPECT_EQ(ReadFrom("VXDPROFILETEST.ini", "s", "a"), "1");
    EXPECT_EQ(ReadBytes(path), "[s]\r\na=1\r\nb=2\r\n");
    std::filesystem::remove(path);
}

TEST_F(ProfileTest, AFileThatIsMarkedAsUtf16StaysUtf16) {
    const auto utf16 = [](std::u16string_view text) {
        std::string bytes;
        for (const char16_t unit : text) {
            bytes.push_back(static_cast<char>(unit & 0xFF));
            bytes.push_back(static_cast<char>(unit >> 8));
        }
        return bytes;
    };
    SetContents(utf16(u"\uFEFF[s]\r\nk=old\r\n; \u20AC \xD83D\xDE00 \xD800\r\n"));
    EXPECT_EQ(Read("s", "k"), "old");
    ASSERT_TRUE(Write("s", "k", "new"));
    EXPECT_EQ(Contents(), utf16(u"\uFEFF[s]\r\nk=new\r\n; \u20AC \xD83D\xDE00 \xD800\r\n"));
}

TEST_F(ProfileTest, ThreadsThatWriteDifferentKeysLoseNone) {
    constexpr int kThreads = 4;
    constexpr int kKeys = 40;
    std::vector<std::thread> threads;
    for (int t = 0; t < kThreads; ++t) {
        threads.emplace_back([this, t] {
            for (int k = 0; k < kKeys; ++k) {
                const std::string key = std::to_string(t) + "_" + std::to_string(k);
                EXPECT_TRUE(Write("s", key.c_str(), key.c_str()));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (int t = 0; t < kThreads; ++t) {
        for (int k = 0; k < kKeys; ++k) {
            const std::string key = std::to_string(t) + "_" + std::to_string(k);
            EXPECT_EQ(Read("s", key.c_str()), key);
        }
    }
}

TEST_F(ProfileTest, AWriteThatNamesNoSectionOrCannotReachItsFileFails) {
    EXPECT_FALSE(Write(nullptr, "k", "v"));
    EXPECT_FALSE(WritePrivateProfileStringA("s", "k", "v", (folder_ / "missing/test.ini").c_str()));
    EXPECT_FALSE(std::filesystem::exists(file_));
}

}  // namespace
