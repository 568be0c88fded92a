// Settings as they stand in their files.
#include "services/settings.h"

#include "tests/kit/settings.h"

namespace {

constexpr TextSetting kNames{setting::kOwnFile, "Lists", "Name%d", "none"};
constexpr TextSetting kPath{setting::kOwnFile, "Lists", "Path", ""};

TEST(Settings, TextsAndSeriesStandUnderKeysOfTheirOwn) {
    const kit::SettingsFolder files;
    WriteSetting(kNames[0], "first one");
    WriteSetting(kNames[12], "C:\\A B\\codec.bin");
    WriteSetting(kPath, "x;y");
    EXPECT_EQ(files.Read(kit::kOwnFile, "Lists", "Name0"), "first one");
    EXPECT_EQ(ReadSetting(kNames[12], 260), "C:\\A B\\codec.bin");
    EXPECT_EQ(ReadSetting(kNames[0], 6), "first") << "the terminator counts";
    EXPECT_EQ(ReadSetting(kNames[1], 260), "none");
    EXPECT_EQ(ReadSetting(kPath, 260), "x;y");

    WriteSettings({});
    WriteSettings(std::array{SettingText{kNames[2], "new"}, SettingText{kPath, ""},
                             SettingText{kNames[0], "a=b"}, SettingText{kNames[2], "newer"}});
    EXPECT_EQ(files.Read(kit::kOwnFile, "Lists", "Name2"), "newer");
    EXPECT_EQ(ReadSetting(kNames[0], 260) + ReadSetting(kPath, 260), "a=b");
}

}  // namespace
