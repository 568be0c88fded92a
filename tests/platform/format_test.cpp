// Win32's own formatting.
#include "platform/win32.h"
#include "tests/kit/test.h"

namespace {

template <typename... Arguments>
std::string Format(const char* format, Arguments... arguments) {
    std::array<char, 2048> text;
    text.fill('~');
    const int length = wsprintfA(text.data(), format, arguments...);
    EXPECT_EQ(static_cast<int>(std::string(text.data()).size()), length) << format;
    return text.data();
}

TEST(FormatTest, NumbersAre32BitsWide) {
    const LONG smallest = -2147483647 - 1;
    EXPECT_EQ(Format("%d %i %ld %li", 1, -1, LONG{-1}, smallest), "1 -1 -1 -2147483648");
    EXPECT_EQ(Format("%u %lu", -1, DWORD{0xFFFFFFFF}), "4294967295 4294967295");
    EXPECT_EQ(Format("%x %X %lx %lX", 0xabcu, 0xABCu, DWORD{0xFFFFFFFF}, DWORD{0xABCDEF01}),
              "abc ABC ffffffff ABCDEF01");
}

TEST(FormatTest, WidthPrecisionAndZerosPadNumbers) {
    EXPECT_EQ(Format("%3ld|%-3d|%2X|%02X|%1d", LONG{7}, 7, 0xC, 0xC, 1234), "  7|7  | C|0C|1234");
    EXPECT_EQ(Format("%08X|%08d|%-08x|%8.5x", 0xFACE, -5, 0x1F, 0x1F),
              "0000FACE|-0000005|1f      |   0001f");
}

TEST(FormatTest, TextsArePaddedAndCut) {
    EXPECT_EQ(Format("%s|%5s|%-5s|%.2s|%5.1s", "ab", "ab", "ab", "abc", "abc"),
              "ab|   ab|ab   |ab|    a");
    EXPECT_EQ(Format("%s 100%%", static_cast<const char*>(nullptr)), "(null) 100%");
}

TEST(FormatTest, AResultIsCutAt1023Characters) {
    const std::string text(3000, 'x');
    std::array<char, 2048> buffer;
    for (const char* format : {"%s", "%-3000s", "%3000s", "%s%s%d%5d"}) {
        buffer.fill('~');
        wsprintfA(buffer.data(), format, text.c_str(), text.c_str(), 1, 2);
        EXPECT_EQ(std::string(buffer.data()).size(), 1023u) << format;
        EXPECT_EQ(buffer[1024], '~') << format;
    }
}

}  // namespace
