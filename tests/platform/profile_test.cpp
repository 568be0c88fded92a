// What every Win32 does with a profile file.
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
    const std::pair<const char*, const char*> cases[] = {
        {"[s]\nk=line feeds\n", "line feeds"},
        {" [ s ] rest\r\n\tk \t=\t two words \t\r\n", "two words"},
        {"[S]\r\nK=capitals, no end", "capitals, no end"},
        {"[s]\r\nk=\r\n", ""},
        {"[s]\r\nk=a=b;c#d\r\n", "a=b;c#d"},
        {"[s]\r\nk=\" kept \"\r\n", " kept "},
        {"[s]\r\nk='mixed\"\r\n", "'mixed\""},
        {"[s]\r\n ; k=comment\r\n;k=comment\r\nk=first\r\nk=second\r\n", "first"},
        {"[s]\r\nkk=1\r\nk\r\n[t]\r\nk=other\r\n[s]\r\nk=too late\r\n", "(none)"},
        {"", "(none)"},
    };
    for (const auto& [contents, value] : cases) {
        SetContents(contents);
        EXPECT_EQ(Read("s", "k"), value) << contents;
    }
}

TEST_F(ProfileTest, NumbersAreReadAsFarAsTheDigitsGo) {
    const auto read = [](const std::string& file, const char* key) {
        return static_cast<INT>(GetPrivateProfileIntA("s", key, -3, file.c_str()));
    };
    for (const auto& [value, number] :
         {std::pair{"42", 42}, {"42A9", 42}, {"B42", 0}, {"-1", -1}, {" \"17\" ", 17}, {"", -3}}) {
        SetContents(std::string("[s]\r\nk=") + value + "\r\n");
        EXPECT_EQ(read(file_, "k"), number) << value;
    }
    EXPECT_EQ(read(file_, "missing"), -3);
    EXPECT_EQ(read(file_ + "x", "k"), -3);
}

TEST_F(ProfileTest, TextThatDoesNotFitIsCut) {
    const std::string value(60'000, 'v');
    SetContents("[s]\r\nk=" + value + "\r\n");
    EXPECT_EQ(Read("s", "k"), value);
    std::array<char, 8> text;
    for (const auto& [key, cut] : {std::pair{"k", "vvvv\0~"}, {"missing", "defa\0~"}}) {
        text.fill('~');
        EXPECT_EQ(GetPrivateProfileStringA("s", key, "default", text.data(), 5, file_.c_str()), 4u);
        EXPECT_EQ(std::string(text.data(), 6), std::string(cut, 6));
    }
}

TEST_F(ProfileTest, WritingKeepsEveryOtherByte) {
    struct Case {
        const char* before;
        const char* after;
        const char* onWine = nullptr;  // which writes the whole file in its own way
    };
    const auto cases = std::to_array<Case>({
        {"", "[s]\r\nk=new\r\n"},
        {"[S]\r\nK=old\r\n", "[S]\r\nK=new\r\n"},
        {"[s]\r\na=1\r\n;  c=2\r\nk=old\r\nodd line\r\n[t]\r\nb=2\r\n",
         "[s]\r\na=1\r\n;  c=2\r\nk=new\r\nodd line\r\n[t]\r\nb=2\r\n"},
        {"[s]\r\na=1\r\n[t]\r\nb=2\r\n", "[s]\r\na=1\r\nk=new\r\n[t]\r\nb=2\r\n"},
        {"[s]\r\n[t]\r\nb=2\r\n", "[s]\r\nk=new\r\n[t]\r\nb=2\r\n"},
        {"[s]\r\na=1", "[s]\r\na=1\r\nk=new\r\n"},
        {"a=1", "a=1\r\n[s]\r\nk=new\r\n"},
        {"[s]\r\nk=1\r\nk=2\r\n[s]\r\nk=3\r\n", "[s]\r\nk=new\r\nk=2\r\n[s]\r\nk=3\r\n"},
        // The line keeps its blanks and its line end; so do empty lines and what follows a
        // section's name.
        {";\n\n[s] rest\n k\t= old \nx=1\n", ";\n\n[s] rest\n k\t= new\nx=1\n",
         ";\r\n[s]\r\nk=new\r\nx=1\r\n"},
        // A new key stands after the last one, before what else closes the section.
        {"[s]\na=1\nodd\n; end\n\n[t]\n", "[s]\na=1\nk=new\r\nodd\n; end\n\n[t]\n",
         "[s]\r\na=1\r\nodd\r\n; end\r\nk=new\r\n[t]\r\n"},
    });
    for (const Case& c : cases) {
        SetContents(c.before);
        EXPECT_TRUE(Write("s", "k", "new")) << c.before;
        EXPECT_EQ(Contents(),
                  kit::ExceptOn(WindowSystem::kWine, c.onWine != nullptr ? c.onWine : c.after,
                                "writes the whole file in its own way", std::string(c.after)));
    }
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
        for (const char16_t unit : text)
            bytes += {static_cast<char>(unit & 0xFF), static_cast<char>(unit >> 8)};
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
            for (int k = t; k < kThreads * kKeys; k += kThreads) {
                const std::string key = std::to_string(k);
                EXPECT_TRUE(Write("s", key.c_str(), key.c_str()));
            }
        });
    }
    for (std::thread& thread : threads)
        thread.join();
    for (int k = 0; k < kThreads * kKeys; ++k)
        EXPECT_EQ(Read("s", std::to_string(k).c_str()), std::to_string(k));
}

}  // namespace
