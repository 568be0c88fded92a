// Profile files as files of a POSIX system: their folder, mode and owner.
#include <pwd.h>
#include <sys/stat.h>
#include <unistd.h>

#include "platform/win32.h"
#include "tests/platform/temporary_folder.h"

namespace {

class ProfilePosixTest : public testing::Test {
  protected:
    ProfilePosixTest() {
        SetEnvironmentVariableA("XDG_CONFIG_HOME", folder_.Path().string().c_str());
    }

    TemporaryFolder folder_;
};

TEST_F(ProfilePosixTest, TheSettingsFolderFollowsTheEnvironmentAndThePasswords) {
    const auto settingsFolder = [] {
        std::array<char, 4096> folder = {};
        GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
        return std::string(folder.data());
    };
    EXPECT_EQ(settingsFolder(), folder_ / "vxdtest");

    for (const char* useless : {static_cast<const char*>(nullptr), "", "relative"}) {
        SetEnvironmentVariableA("HOME", "/some/home");
        SetEnvironmentVariableA("XDG_CONFIG_HOME", useless);
        EXPECT_EQ(settingsFolder(), "/some/home/.config/vxdtest");
        SetEnvironmentVariableA("HOME", useless);
        EXPECT_EQ(settingsFolder(), std::string(getpwuid(getuid())->pw_dir) + "/.config/vxdtest");
    }
}

TEST_F(ProfilePosixTest, AFileKeepsItsModeAndItsOwner) {
    const std::string file = folder_ / "test.ini";
    ASSERT_TRUE(WritePrivateProfileStringA("s", "k", "1", file.c_str()));
    const bool mayGive = chown(file.c_str(), 12345, 23456) == 0;
    ASSERT_EQ(chmod(file.c_str(), 0664), 0);
    ASSERT_TRUE(WritePrivateProfileStringA("s", "k", "2", file.c_str()));
    struct stat status = {};
    ASSERT_EQ(stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0664u);
    EXPECT_EQ(status.st_uid, mayGive ? 12345u : geteuid());
    EXPECT_EQ(status.st_gid, mayGive ? 23456u : getegid());
}

}  // namespace
