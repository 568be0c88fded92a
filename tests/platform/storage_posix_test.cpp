// What stands in the way of storing, and programs that are killed or share a file.
#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/mman.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <cstring>
#include <new>
#include <random>
#include <span>

#include "tests/kit/process.h"
#include "tests/platform/stored_file.h"
#include "tests/platform/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::steady_clock;

// Runs the function in a process of its own.
pid_t Fork(const std::function<void()>& run) {
    const pid_t child = fork();
    if (child == 0) {
        run();
        _exit(0);
    }
    return child;
}

void Kill(pid_t process) {
    kill(process, SIGKILL);
    waitpid(process, nullptr, 0);
}

// Memory that this process shares with those it starts.
template <typename Content>
Content& Share() {
    void* const memory =
        mmap(nullptr, sizeof(Content), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    return *new (memory) Content{};
}

class StorageTest : public testing::TestWithParam<StoredFile> {
  protected:
    StorageTest() { UseFolder(folder_.Path()); }

    ~StorageTest() override {
        KORA_DLL_Terminate();
        vdapi_Terminate();
    }

    void UseFolder(const fs::path& configuration) {
        SetEnvironmentVariableA("XDG_CONFIG_HOME", configuration.c_str());
        SetEnvironmentVariableA("XDG_RUNTIME_DIR", folder_.Path().c_str());
        settings_ = configuration / "vxdtest";
        OpenBoard();
    }

    std::string File() const { return (settings_ / GetParam().name).string(); }
    static bool Store(std::uint8_t byte) { return GetParam().store(byte); }
    static std::uint8_t Load() { return GetParam().load(); }

    TemporaryFolder folder_;
    fs::path settings_;
};

std::string TitleOf(const testing::TestParamInfo<StoredFile>& file) {
    return file.index == 0 ? "Profile" : "Eeprom";
}

INSTANTIATE_TEST_SUITE_P(Both, StorageTest, testing::Values(kProfile, kEeprom), TitleOf);

TEST_P(StorageTest, APathOf400CharactersIsLikeAnyOther) {
    fs::path deep = folder_.Path();
    while (deep.native().size() < 400)
        deep /= std::string(50, 'd');
    UseFolder(deep);
    EXPECT_TRUE(Store(1));
    EXPECT_EQ(Load(), 1);
    EXPECT_TRUE(fs::is_regular_file(File()));
}

TEST_P(StorageTest, MakesFolderAndFileForTheUserAlone) {
    UseFolder(folder_ / "deep/er");
    EXPECT_EQ(Load(), 0);
    EXPECT_FALSE(fs::exists(folder_ / "deep")) << "made for reading";
    const mode_t mask = umask(0);
    EXPECT_TRUE(Store(1));
    umask(mask);
    EXPECT_EQ(Load(), 1);
    for (const fs::path& folder : {settings_.parent_path(), settings_})
        EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
    EXPECT_EQ(fs::status(File()).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST_P(StorageTest, WhatIsNoFileIsRefusedAndBlocksNothing) {
    fs::create_directories(settings_);
    for (const bool isFolder : {true, false}) {
        if (isFolder) {
            fs::create_directory(File());
        } else {
            ASSERT_EQ(mkfifo(File().c_str(), 0600), 0);
        }
        EXPECT_FALSE(Store(1));
        EXPECT_EQ(Load(), 0);
        EXPECT_TRUE(fs::remove(File()));
    }
}

TEST_P(StorageTest, ALinkStaysAndItsTargetIsMadeAndReplaced) {
    fs::create_directories(settings_);
    fs::create_symlink("second", File());
    fs::create_symlink(folder_ / "target", settings_ / "second");
    for (const std::uint8_t byte : {1, 2}) {
        EXPECT_TRUE(Store(byte));
        EXPECT_EQ(Load(), byte);
        EXPECT_TRUE(fs::is_symlink(File()));
        EXPECT_TRUE(fs::is_symlink(settings_ / "second"));
        EXPECT_TRUE(fs::is_regular_file(folder_ / "target"));
    }
}

TEST_P(StorageTest, AReadOnlyFileOrFolderRefusesAndKeepsTheOldFile) {
    ASSERT_TRUE(Store(1));
    ASSERT_EQ(chmod(File().c_str(), 0444), 0);
    EXPECT_FALSE(Store(2));
    EXPECT_EQ(Load(), 1);
    ASSERT_EQ(chmod(File().c_str(), 0600), 0);
    ASSERT_EQ(chmod(settings_.c_str(), 0500), 0);
    const bool mayWrite = Store(2);
    EXPECT_EQ(chmod(settings_.c_str(), 0555), 0);
    EXPECT_FALSE(Store(2));
    ASSERT_EQ(chmod(settings_.c_str(), 0700), 0);
    EXPECT_EQ(Load(), mayWrite ? 2 : 1);
}

TEST_P(StorageTest, AFullDiskRefusesAndKeepsTheOldFile) {
    const std::string disk = folder_ / "disk";
    fs::create_directory(disk);
    if (mount("none", disk.c_str(), "tmpfs", 0, "size=64k") != 0)
        GTEST_SKIP() << "may not mount a small disk here: " << strerror(errno);
    UseFolder(disk);
    ASSERT_TRUE(Store(1));
    const std::string before = ReadBytes(File());
    WriteBytes(disk + "/filler", std::string(100'000, 'x'));
    EXPECT_FALSE(Store(2));
    EXPECT_EQ(Load(), 1);
    EXPECT_EQ(ReadBytes(File()), before);
    umount2(disk.c_str(), MNT_DETACH);
}

TEST_P(StorageTest, ALockThatStaysHeldRefusesAfterASecondAndThenAtOnce) {
    ASSERT_TRUE(Store(1));
    auto& held = Share<std::atomic<bool>>();
    const pid_t holder = Fork([&] {
        held = flock(open(settings_.c_str(), O_RDONLY), LOCK_EX) == 0;
        pause();
    });
    ASSERT_TRUE(kit::WaitFor([&] { return held.load(); }));
    const auto start = steady_clock::now();
    EXPECT_FALSE(Store(2));
    const auto refused = steady_clock::now();
    EXPECT_GE(refused - start, milliseconds(900));
    EXPECT_LT(refused - start, milliseconds(1900));
    for (int i = 0; i < 100; ++i)
        EXPECT_FALSE(Store(2));
    EXPECT_LT(steady_clock::now() - refused, milliseconds(900));
    EXPECT_EQ(Load(), 1);
    Kill(holder);
    EXPECT_TRUE(Store(3));
    EXPECT_EQ(Load(), 3);
}

// A file of whole lines, all of them the EEPROM's own.
void ExpectWholeEeprom(const std::string& file) {
    std::istringstream lines(ReadBytes(file));
    std::string line;
    ASSERT_TRUE(std::getline(lines, line));
    ASSERT_EQ(line, "[EEPROM]\r");
    while (std::getline(lines, line))
        ASSERT_TRUE(line.size() == 11 && line.starts_with("0x") && line.ends_with('\r')) << line;
}

class EepromTest : public StorageTest {
  protected:
    EepromTest() {  // the programs that they start open it themselves
        KORA_DLL_Terminate();
        vdapi_Terminate();
    }

    // What another program does; it ends where that fails.
    static void Write(std::uint32_t address, std::span<const std::uint8_t> bytes) {
        const auto length = static_cast<std::uint32_t>(bytes.size());
        if (Complete([&] {
                return vdapi_EPROM_Write(address, bytes.data(), length, kEepromConstant);
            }) != VXD_SUCCESS)
            _exit(1);
    }
};

INSTANTIATE_TEST_SUITE_P(Alone, EepromTest, testing::Values(kEeprom));

TEST_P(EepromTest, ProgramsKilledWhileTheyStoreLoseNothing) {
    struct Progress {
        board::EepromContents stored;
        std::atomic<std::uint32_t> address = 0;  // of the transfer under way
        std::atomic<std::uint8_t> value = 0;
        std::atomic<int> transfers = 0;
    };
    constexpr std::uint32_t kLength = 8;
    auto& progress = Share<Progress>();
    progress.stored.fill(0xFF);
    std::minstd_rand random;
    for (int round = 0; round < 300; ++round) {
        const pid_t writer = Fork([&] {
            OpenBoard();
            for (;;) {
                const std::uint32_t address = (progress.address + kLength) % 512;
                const auto value = static_cast<std::uint8_t>(progress.value + 1);
                std::array<std::uint8_t, kLength> bytes;
                bytes.fill(value);
                progress.address = address;
                progress.value = value;
                Write(address, bytes);
                for (std::uint32_t i = 0; i < kLength; ++i)
                    progress.stored[address + i] = value;
                ++progress.transfers;
            }
        });
        ASSERT_TRUE(kit::WaitFor([&] { return progress.transfers > round; }));
        usleep(static_cast<useconds_t>(random() % 5000));
        Kill(writer);
        progress.transfers = round + 1;
        ASSERT_NO_FATAL_FAILURE(ExpectWholeEeprom(File()));
        const board::EepromContents found = board::GetEeprom();
        // Of the transfer under way all bytes may be stored already, or none.
        if (found[progress.address] == progress.value)
            std::fill_n(&progress.stored[progress.address], kLength, progress.value.load());
        ASSERT_EQ(found, progress.stored) << "round " << round;
    }
    OpenBoard();
    EXPECT_TRUE(Store(1));
    EXPECT_FALSE(fs::exists(settings_ / ".vxdtest-profile.new")) << "what a killed one left";
}

TEST_P(EepromTest, TwoProgramsLoseNoByteOfEachOther) {
    std::array<pid_t, 2> programs;
    for (std::uint32_t p = 0; p < programs.size(); ++p) {
        programs[p] = Fork([p] {
            OpenBoard();
            // Every other byte, so that neither has a stretch of its own.
            for (std::uint32_t i = 0; i < 200; ++i) {
                const auto byte = static_cast<std::uint8_t>(i);
                Write(2 * i + p, {&byte, 1});
            }
        });
    }
    for (const pid_t program : programs) {
        int status = 0;
        waitpid(program, &status, 0);
        EXPECT_EQ(status, 0);
    }
    const board::EepromContents contents = board::GetEeprom();
    for (std::uint32_t i = 0; i < 400; ++i)
        EXPECT_EQ(contents[i], static_cast<std::uint8_t>(i / 2)) << i;
}

}  // namespace
