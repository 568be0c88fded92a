#include "platform/core/profile_sync.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace vxd {
namespace {

using Clock = std::chrono::steady_clock;
using std::chrono::milliseconds;

constexpr char kMarkName[] = "user.vxdtest.unsynced";
constexpr char kSyncedPrefix[] = ".vxdtest-synced.";
constexpr milliseconds kSyncDelay(200);

// What a marked file should hold. The time of its last change tells a file that somebody has edited
// from one that the disk has not received.
struct Mark {
    std::int64_t seconds;
    std::int64_t nanoseconds;
    std::uint64_t size;
    std::uint64_t hash;

    bool operator==(const Mark&) const = default;
};

std::uint64_t HashOf(std::string_view bytes) {  // FNV-1a
    std::uint64_t hash = 0xCBF29CE484222325;
    for (const char byte : bytes)
        hash = (hash ^ static_cast<unsigned char>(byte)) * 0x100000001B3;
    return hash;
}

Mark MarkOf(const struct stat& status, std::string_view bytes) {
    return {status.st_mtim.tv_sec, status.st_mtim.tv_nsec, bytes.size(), HashOf(bytes)};
}

// How long writes have waited for the disk of late. What was waited is forgotten over ten times as
// long.
class DiskWait {
  public:
    void Add(Clock::duration waited) {
        std::lock_guard lock(mutex_);
        total_ = Left(Clock::now()) + waited;
        since_ = Clock::now();
    }

    bool IsSpent() {
        std::lock_guard lock(mutex_);
        return Left(Clock::now()) > kMost;
    }

  private:
    static constexpr milliseconds kMost{30};

    Clock::duration Left(Clock::time_point now) const {
        return std::max(total_ - (now - since_) / 10, Clock::duration::zero());
    }

    std::mutex mutex_;
    Clock::duration total_{};
    Clock::time_point since_ = Clock::now();
};

DiskWait& TheDiskWait() {
    static auto& wait = *new DiskWait;  // other threads may write while the process ends
    return wait;
}

struct UnsyncedFile {
    dev_t device;
    ino_t inode;  // of the folder
    Descriptor folder;
    std::string name;
};

Descriptor OpenMarked(const UnsyncedFile& unsynced) {
    Descriptor file(openat(unsynced.folder.Get(), unsynced.name.c_str(),
                           O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    return IsMarkedUnsynced(file) ? std::move(file) : Descriptor();
}

// Whether the two are one file.
bool IsSame(const Descriptor& left, const Descriptor& right) {
    struct stat leftStatus;
    struct stat rightStatus;
    return fstat(left.Get(), &leftStatus) == 0 && fstat(right.Get(), &rightStatus) == 0 &&
           leftStatus.st_dev == rightStatus.st_dev && leftStatus.st_ino == rightStatus.st_ino;
}

// Waits for the disk without the folder's lock, so that a slow disk refuses nobody's write. A file
// that has another in its place by then is that one's writer's affair. The lock goes with the
// file's own folder, before the next file of the same one.
void Finish(UnsyncedFile unsynced) {
    const Descriptor file = OpenMarked(unsynced);
    if (!file || fdatasync(file.Get()) != 0 || !LockFolder(unsynced.folder))
        return;
    if (!IsSame(file, OpenMarked(unsynced)))
        return;
    RemoveMark(file);
    unlinkat(unsynced.folder.Get(), SyncedNameOf(unsynced.name).c_str(), 0);
}

// The files that wait to be synced.
class UnsyncedFiles {
  public:
    void Add(UnsyncedFile added) {
        std::lock_guard lock(mutex_);
        for (const UnsyncedFile& file : files_) {
            if (file.device == added.device && file.inode == added.inode && file.name == added.name)
                return;
        }
        files_.push_back(std::move(added));
        if (files_.size() == 1) {
            std::thread([this] {
                std::this_thread::sleep_for(kSyncDelay);
                FinishAll();
            }).detach();
        }
    }

    void FinishAll() {
        std::vector<UnsyncedFile> files;
        {
            std::lock_guard lock(mutex_);
            files.swap(files_);
        }
        for (UnsyncedFile& file : files) {
            Finish(std::move(file));
        }
    }

  private:
    std::mutex mutex_;
    std::vector<UnsyncedFile> files_;
};

UnsyncedFiles& TheUnsyncedFiles() {
    static auto& files = *new UnsyncedFiles;  // its thread may outlive what ends with the process
    static const struct AtProcessEnd {
        ~AtProcessEnd() { files.FinishAll(); }
    } atProcessEnd;
    return files;
}

// Folders whose lock somebody held for too long, and until when nobody waits for it again.
class BusyFolders {
  public:
    void Add(const Descriptor& folder, Clock::time_point until) {
        struct stat status;
        if (fstat(folder.Get(), &status) != 0)
            return;
        std::lock_guard lock(mutex_);
        std::erase_if(busy_, [now = Clock::now()](const Busy& busy) { return busy.until <= now; });
        busy_.push_back({status.st_dev, status.st_ino, until});
    }

    bool Has(const Descriptor& folder, Clock::time_point now) {
        struct stat status;
        std::lock_guard lock(mutex_);
        return !busy_.empty() && fstat(folder.Get(), &status) == 0 &&
               std::ranges::any_of(busy_, [&](const Busy& busy) {
                   return busy.device == status.st_dev && busy.inode == status.st_ino &&
                          now < busy.until;
               });
    }

  private:
    struct Busy {
        dev_t device;
        ino_t inode;
        Clock::time_point until;
    };

    std::mutex mutex_;
    std::vector<Busy> busy_;
};

BusyFolders& TheBusyFolders() {
    static auto& folders = *new BusyFolders;  // other threads may write while the process ends
    return folders;
}

}  // namespace

bool LockFolder(const Descriptor& folder) {
    constexpr milliseconds kPatience(1000);
    constexpr milliseconds kImpatience(5000);

    const Clock::time_point start = Clock::now();
    while (flock(folder.Get(), LOCK_EX | LOCK_NB) != 0) {
        if (errno != EWOULDBLOCK && errno != EINTR)
            return false;
        const Clock::time_point now = Clock::now();
        if (TheBusyFolders().Has(folder, start))
            return false;
        if (now - start >= kPatience) {
            TheBusyFolders().Add(folder, now + kImpatience);
            return false;
        }
        std::this_thread::sleep_for(std::chrono::microseconds(200));
    }
    return true;
}

std::string SyncedNameOf(const std::string& name) {
    return kSyncedPrefix + name;
}

bool Sync(const Descriptor& file) {
    const Clock::time_point start = Clock::now();
    const bool synced = fdatasync(file.Get()) == 0;
    TheDiskWait().Add(Clock::now() - start);
    return synced;
}

bool MustNotWaitForDisk() {
    return TheDiskWait().IsSpent();
}

bool MarkUnsynced(const Descriptor& file, std::string_view bytes) {
    struct stat status;
    if (fstat(file.Get(), &status) != 0)
        return false;
    const Mark mark = MarkOf(status, bytes);
    return fsetxattr(file.Get(), kMarkName, &mark, sizeof mark, 0) == 0;
}

bool IsMarkedUnsynced(const Descriptor& file) {
    return fgetxattr(file.Get(), kMarkName, nullptr, 0) >= 0;
}

void RemoveMark(const Descriptor& file) {
    fremovexattr(file.Get(), kMarkName);
}

bool IsTorn(const Descriptor& file, const struct stat& status, std::string_view bytes) {
    Mark mark;
    if (fgetxattr(file.Get(), kMarkName, &mark, sizeof mark) != sizeof mark)
        return false;
    const Mark found = MarkOf(status, bytes);
    return mark.seconds == found.seconds && mark.nanoseconds == found.nanoseconds && mark != found;
}

void SyncLater(const Descriptor& folder, const std::string& name) {
    struct stat status;
    Descriptor own(openat(folder.Get(), ".", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (own && fstat(own.Get(), &status) == 0)
        TheUnsyncedFiles().Add({status.st_dev, status.st_ino, std::move(own), name});
}

}  // namespace vxd
