// What every Win32 tells of a file.
#include "platform/win32.h"
#include "tests/platform/temporary_folder.h"

namespace {

using Attributes = WIN32_FILE_ATTRIBUTE_DATA;

std::optional<Attributes> Ask(const std::string& path) {
    Attributes attributes;
    return GetFileAttributesExA(path.c_str(), GetFileExInfoStandard, &attributes)
               ? std::optional(attributes)
               : std::nullopt;
}

int64_t SecondsOf(const FILETIME& time) {
    constexpr int64_t kUnitsPerSecond = 10000000;
    return (int64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime) / kUnitsPerSecond;
}

}  // namespace

TEST(FileAttributes, TellWhatAFileIsHowLongAndWhenItWasWritten) {
    const TemporaryFolder folder;
    const std::string file = folder / "Some File.txt";
    EXPECT_FALSE(Ask(file));
    EXPECT_FALSE(Ask(folder / "none/file"));

    WriteBytes(file, "seventeen letters");
    const auto before = Ask(file);
    ASSERT_TRUE(before);
    EXPECT_EQ(before->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
    EXPECT_EQ(before->nFileSizeLow, 17u);
    EXPECT_EQ(before->nFileSizeHigh, 0u);

    const auto anHourAgo = std::filesystem::last_write_time(file) - std::chrono::hours(1);
    std::filesystem::last_write_time(file, anHourAgo);
    const auto after = Ask(folder / "sOME fILE.TXT");
    ASSERT_TRUE(after) << "names ignore case";
    const int64_t difference =
        SecondsOf(before->ftLastWriteTime) - SecondsOf(after->ftLastWriteTime);
    EXPECT_LE(std::abs(difference - 3600), 1);

    const auto itself = Ask(folder.Path().string());
    ASSERT_TRUE(itself);
    EXPECT_NE(itself->dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY, 0u);
}
