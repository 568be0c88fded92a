// Profile files as files of a POSIX system: modes, links, other processes.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pwd.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <filesystem>
#include <functional>
#include <string>

#include "platform/win32.h"
#include "tests/platform/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

bool Write(const std::string& file, const std::string& key, const std::string& text) {
    return WritePrivateProfileStringA("s", key.c_str(), text.c_str(), file.c_str()) != 0;
}

struct stat StatusOf(const std::string& path) {
    struct stat status = {};
    EXPECT_EQ(stat(path.c_str(), &status), 0) << path;
    return status;
}

mode_t ModeOf(const std::string& path) {
    return StatusOf(path).st_mode & 07777;
}

// Runs the function in a process of its own.
pid_t Fork(const std::function<void()>& run) {
    const pid_t child = fork();
    if (child == 0) {
        run();
        _exit(0);
    }
    return child;
}

class ProfilePosixTest : public testing::Test {
  protected:
    ProfilePosixTest() {
        SetEnvironmentVariableA("XDG_CONFIG_HOME", folder_.Path().string().c_str());
    }

    TemporaryFolder folder_;
    std::string file_ = folder_ / "test.ini";
};

TEST_F(ProfilePosixTest, TheSettingsFolderFollowsTheEnvironmentAndThePasswords) {
    const auto settingsFolder = [] {
        std::array<char, 4096> folder = {};
        GetWindowsDirectoryA(folder.data(), static_cast<UINT>(folder.size()));
        return std::string(folder.data());
    };
    EXPECT_EQ(settingsFolder(), folder_ / "vxdtest");

    SetEnvironmentVariableA("HOME", "/some/home");
    for (const char* useless : {static_cast<const char*>(nullptr), "", "relative"}) {
        SetEnvironmentVariableA("XDG_CONFIG_HOME", useless);
        EXPECT_EQ(settingsFolder(), "/some/home/.config/vxdtest");
    }
    for (const char* useless : {static_cast<const char*>(nullptr), "", "relative"}) {
        SetEnvironmentVariableA("HOME", useless);
        EXPECT_EQ(settingsFolder(), std::string(getpwuid(getuid())->pw_dir) + "/.config/vxdtest");
    }
}

TEST_F(ProfilePosixTest, AFileKeepsItsModeAndItsOwner) {
    ASSERT_TRUE(Write(file_, "k", "1"));
    const bool mayGive = chown(file_.c_str(), 12345, 23456) == 0;
    ASSERT_EQ(chmod(file_.c_str(), 0664), 0);
    ASSERT_TRUE(Write(file_, "k", "2"));
    EXPECT_EQ(ModeOf(file_), 0664u);
    EXPECT_EQ(StatusOf(file_).st_uid, mayGive ? 12345u : geteuid());
    EXPECT_EQ(StatusOf(file_).st_gid, mayGive ? 23456u : getegid());
}

TEST_F(ProfilePosixTest, ALinkStaysAndItsTargetIsReplaced) {
    fs::create_directories(folder_ / "there");
    fs::create_symlink("there/second", folder_ / "first.ini");
    fs::create_symlink(folder_ / "target.ini", folder_ / "there/second");
    for (const std::string text : {"dangling", "again"}) {
        ASSERT_TRUE(Write(folder_ / "first.ini", "k", text));
        EXPECT_EQ(ReadBytes(folder_ / "target.ini"), "[s]\r\nk=" + text + "\r\n");
    }
    EXPECT_TRUE(fs::is_symlink(folder_ / "first.ini"));
    EXPECT_TRUE(fs::is_symlink(folder_ / "there/second"));
    EXPECT_FALSE(fs::is_symlink(folder_ / "target.ini"));
}

TEST_F(ProfilePosixTest, AFolderThatIsHeldMakesNobodyImpatientWithAnother) {
    std::array<int, 2> ready;
    ASSERT_EQ(pipe(ready.data()), 0);
    const fs::path other = folder_ / "other";
    fs::create_directories(other);
    const auto hold = [&](const fs::path& folder, useconds_t duration) {
        const pid_t holder = Fork([&] {
            flock(open(folder.c_str(), O_RDONLY), LOCK_EX);
            write(ready[1], "", 1);
            usleep(duration);
        });
        char byte;
        EXPECT_EQ(read(ready[0], &byte, 1), 1);
        return holder;
    };
    const pid_t longHolder = hold(folder_.Path(), 60'000'000);
    EXPECT_FALSE(Write(file_, "k", "refused after a second"));
    const pid_t shortHolder = hold(other, 300'000);
    EXPECT_FALSE(Write(file_, "k", "refused at once"));
    EXPECT_TRUE(Write(other / "test.ini", "k", "waits for a moment"));
    kill(longHolder, SIGKILL);
    waitpid(longHolder, nullptr, 0);
    waitpid(shortHolder, nullptr, 0);
}

}  // namespace
