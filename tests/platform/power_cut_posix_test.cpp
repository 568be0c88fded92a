// What a power cut leaves of the files that are stored.
#include <signal.h>
#include <sys/mount.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include "tests/kit/process.h"
#include "tests/platform/stored_file.h"
#include "tests/platform/temporary_folder.h"

namespace {

namespace fs = std::filesystem;
using std::chrono::milliseconds;
using std::chrono::seconds;
using std::chrono::steady_clock;

// How long the disk takes.
std::atomic<milliseconds> slowDisk = milliseconds(0);

}  // namespace

// Stands in the place of the system's, for the layer too.
extern "C" int fdatasync(int file) {
    std::this_thread::sleep_for(slowDisk.load());
    return static_cast<int>(syscall(SYS_fdatasync, file));
}

namespace {

class PowerCutTest : public testing::Test {
  protected:
    PowerCutTest() { UseFolder(folder_.Path()); }

    void UseFolder(const fs::path& configuration) {
        SetEnvironmentVariableA("XDG_CONFIG_HOME", configuration.c_str());
        SetEnvironmentVariableA("XDG_RUNTIME_DIR", folder_.Path().c_str());
        fs::create_directories(configuration / "vxdtest");
        file_ = (configuration / "vxdtest/many.ini").string();
    }

    // Stores so many keys, one by one.
    void StoreMany(int count, const std::string& text) const {
        for (int i = 0; i < count; ++i) {
            ASSERT_TRUE(WritePrivateProfileStringA("s", ("key" + std::to_string(i)).c_str(),
                                                   text.c_str(), file_.c_str()));
        }
    }

    std::string Load(int key) const {
        char text[100];
        GetPrivateProfileStringA("s", ("key" + std::to_string(key)).c_str(), "(none)", text,
                                 sizeof text, file_.c_str());
        return text;
    }

    TemporaryFolder folder_;
    std::string file_;
};

TEST_F(PowerCutTest, HundredsOfKeysInARowDoNotWaitForTheDiskOneByOne) {
    slowDisk = milliseconds(50);
    const auto start = steady_clock::now();
    StoreMany(200, "255");
    EXPECT_LT(steady_clock::now() - start, seconds(2));
    slowDisk = milliseconds(0);
}

TEST_F(PowerCutTest, ATornFileIsReadAsTheLastThatWasSynced) {
    StoreMany(1, "first");
    fs::path synced;
    for (int run = 0; run < 10'000 && synced.empty(); ++run) {
        StoreMany(1, std::to_string(run));
        for (const auto& entry : fs::directory_iterator(folder_ / "vxdtest")) {
            if (entry.path() != file_)
                synced = entry.path();
        }
    }
    if (synced.empty())
        GTEST_SKIP() << "this file system syncs at once";
    const std::string before = ReadBytes(synced.string());
    ASSERT_NE(before, ReadBytes(file_));

    struct stat status = {};
    ASSERT_EQ(stat(file_.c_str(), &status), 0);
    ASSERT_EQ(truncate(file_.c_str(), 0), 0);  // as the disk has it whose data never came
    EXPECT_EQ(Load(0), "(none)") << "somebody has emptied it since";
    const timespec times[] = {status.st_atim, status.st_mtim};
    ASSERT_EQ(utimensat(AT_FDCWD, file_.c_str(), times, 0), 0);
    EXPECT_EQ("[s]\r\nkey0=" + Load(0) + "\r\n", before);

    std::this_thread::sleep_for(milliseconds(500));
    StoreMany(1, "after");
    EXPECT_EQ(ReadBytes(file_), "[s]\r\nkey0=after\r\n");
}

TEST_F(PowerCutTest, ASlowDiskRefusesNoWriteToAnyFileOfItsFolder) {
    const std::string other = folder_ / "vxdtest/other.ini";
    const auto timeOfBoth = [&](const char* text) {
        const auto start = steady_clock::now();
        StoreMany(1, text);
        EXPECT_TRUE(WritePrivateProfileStringA("s", "k", text, other.c_str()));
        return steady_clock::now() - start;
    };
    timeOfBoth("first");
    slowDisk = milliseconds(1500);
    timeOfBoth("waits for the disk");
    timeOfBoth("waits no more");
    std::this_thread::sleep_for(milliseconds(500));  // by now a thread waits in its place
    EXPECT_LT(timeOfBoth("next"), milliseconds(900));
    slowDisk = milliseconds(0);
    std::this_thread::sleep_for(milliseconds(500));  // and both are synced, one after the other
    EXPECT_LT(timeOfBoth("last"), milliseconds(500));
    EXPECT_EQ(Load(0), "last");
}

TEST_F(PowerCutTest, WhatAKilledProgramDidNotSyncTheNextOneSyncs) {
    const std::string synced = folder_ / "vxdtest/.vxdtest-synced.many.ini";
    const pid_t writer = fork();
    if (writer == 0) {
        for (int run = 0; run < 10'000 && !fs::exists(synced); ++run)
            StoreMany(1, std::to_string(run));
        raise(SIGKILL);
    }
    waitpid(writer, nullptr, 0);
    if (!fs::exists(synced))
        GTEST_SKIP() << "this file system syncs at once";
    EXPECT_NE(Load(0), "(none)");
    EXPECT_TRUE(kit::WaitFor([&] { return !fs::exists(synced); }));
}

bool RunCommand(const std::string& command) {
    return std::system((command + " 2>/dev/null").c_str()) == 0;
}

// An ext4 disk in a file, mounted while this lives.
struct Disk {
    Disk(const std::string& image, const std::string& at) : place(at) {
        fs::create_directories(place);
        isMounted = RunCommand("mount -o loop " + image + " " + place);
    }
    // Who read an unsynced file on it holds it for a moment longer.
    ~Disk() {
        kit::WaitFor([this] { return !isMounted || RunCommand("umount " + place); });
    }
    Disk(const Disk&) = delete;
    Disk& operator=(const Disk&) = delete;

    const std::string place;
    bool isMounted = false;
};

TEST_F(PowerCutTest, ADiskCopiedWithoutWarningHoldsWholeFiles) {
    const std::string image = folder_ / "image";
    const std::string place = folder_ / "disk";
    const std::string copy = folder_ / "copy";
    RunCommand("truncate -s 24M " + image + " && /sbin/mkfs.ext4 -q " + image);
    const Disk disk(image, place);
    if (!disk.isMounted)
        GTEST_SKIP() << "no mkfs.ext4 here, or may not mount";
    UseFolder(place);
    OpenBoard();
    StoreMany(3, "old");
    ASSERT_TRUE(kProfile.store(1));
    ASSERT_TRUE(kEeprom.store(1));
    sync();
    const auto start = steady_clock::now();
    ASSERT_TRUE(kProfile.store(2));
    ASSERT_TRUE(kEeprom.store(2));
    StoreMany(200, "new");
    for (const int wait : {0, 1, 6, 9}) {
        std::this_thread::sleep_until(start + seconds(wait));
        ASSERT_TRUE(RunCommand("cp --sparse=always " + image + " " + copy));
        UseFolder(copy + "-disk");
        const Disk found(copy, copy + "-disk");
        ASSERT_TRUE(found.isMounted);
        const bool mayBeOld = wait < 6;  // the disk takes in what has a new name every five seconds
        EXPECT_GE(kProfile.load(), mayBeOld ? 1 : 2) << "after " << wait << " s";
        EXPECT_GE(kEeprom.load(), mayBeOld ? 1 : 2) << "after " << wait << " s";
        EXPECT_TRUE(Load(2) == "new" || (mayBeOld && Load(2) == "old")) << Load(2);
        EXPECT_TRUE(mayBeOld || Load(199) == "new") << "after " << wait << " s";
    }
    UseFolder(place);
    KORA_DLL_Terminate();
    vdapi_Terminate();
}

}  // namespace
