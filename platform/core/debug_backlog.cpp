#include "platform/core/debug_backlog.h"

#include <sys/socket.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <string>
#include <thread>
#include <utility>

namespace vxd {
namespace {

enum class Result { kSent, kViewerIsBehind, kNoViewer };

// The socket that this process sends from.
int Sender() {
    static const int sender = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
    return sender;
}

// Sends lines, each with a zero at its end; `ending` is what the last one lacks of it.
Result Send(const DebugSocket& socket, std::uint32_t lost, std::string_view lines,
            std::string_view ending, int wait) {
    DebugDatagramHeader header = {static_cast<std::uint32_t>(getpid()), lost};
    std::array<iovec, 3> parts = {iovec{&header, sizeof header},
                                  iovec{const_cast<char*>(lines.data()), lines.size()},
                                  iovec{const_cast<char*>(ending.data()), ending.size()}};
    msghdr message = {};
    message.msg_name = const_cast<sockaddr_un*>(&socket.address);
    message.msg_namelen = sizeof socket.address;
    message.msg_iov = parts.data();
    message.msg_iovlen = parts.size();
    while (sendmsg(Sender(), &message, MSG_NOSIGNAL | wait) < 0) {
        if (errno != EINTR) {
            return errno == EAGAIN || errno == ENOBUFS ? Result::kViewerIsBehind
                                                       : Result::kNoViewer;
        }
    }
    return Result::kSent;
}

// Lines wait in the queue. Whoever holds its lock does so for a moment only, but on a busy machine
// may lose the processor in it for longer than a writer is to be held up: that one puts its line
// aside then, and so do all until the thread, which takes both at once, has taken them.
class Backlog {
  public:
    bool Join(std::string_view piece) {
        if (!isWaiting_.load(std::memory_order_relaxed))
            return false;
        if (isFull_.load(std::memory_order_relaxed)) {
            lost_.fetch_add(1, std::memory_order_relaxed);
            return true;
        }
        if (!linesAreAside_) {
            if (const auto lock = LockSoon()) {
                if (isWaiting_)
                    Append(lines_, piece);
                return isWaiting_;
            }
        }
        std::lock_guard lock(asideMutex_);
        if (isWaiting_) {
            linesAreAside_ = true;
            Append(aside_, piece);
        }
        return isWaiting_;
    }

    void Begin(const DebugSocket& socket, std::string_view piece) {
        StartThread();
        std::unique_lock lock(mutex_);
        const bool begins = !isWaiting_;
        if (begins) {
            socket_ = socket;
            isWaiting_ = true;
        }
        Append(lines_, piece);
        lock.unlock();
        if (begins)
            changed_.notify_all();
    }

    // Gives up sooner where the viewer takes nothing.
    void WaitUntilSent(std::chrono::milliseconds longest) {
        constexpr std::chrono::milliseconds kPatience{5};
        const auto end = std::chrono::steady_clock::now() + longest;
        std::unique_lock lock(mutex_);
        for (bool goesOn = true; goesOn && isWaiting_ && std::chrono::steady_clock::now() < end;) {
            const auto before = sent_.load();
            changed_.wait_for(lock, kPatience, [this] { return !isWaiting_; });
            goesOn = sent_ != before;
        }
    }

  private:
    static constexpr std::size_t kMostBytes = std::size_t{4} << 20;

    std::unique_lock<std::mutex> LockSoon() {
        constexpr std::chrono::microseconds kSoon{200};
        std::unique_lock lock(mutex_, std::try_to_lock);
        if (!lock) {
            const auto end = std::chrono::steady_clock::now() + kSoon;
            while (!lock.try_lock() && std::chrono::steady_clock::now() < end) {
            }
        }
        return lock;
    }

    void Append(std::string& lines, std::string_view piece) {
        isFull_ = isFull_ || lines.size() + piece.size() + 1 > kMostBytes;
        if (isFull_) {
            ++lost_;
        } else {
            lines.append(piece).push_back('\0');
        }
    }

    // A process that was forked has none of its parent's threads. The thread changes nothing in the
    // process's memory map: whoever touches new memory waits for one who does.
    void StartThread() {
        if (threadOwner_.exchange(getpid()) == getpid())
            return;
        std::string batch;
        batch.reserve(kMostBytes);  // takes memory only as lines come
        std::string lines;
        lines.reserve(kMostBytes);
        {
            std::lock_guard lock(mutex_);
            lines_.swap(lines.append(lines_));
        }
        std::thread([this, held = std::move(batch)]() mutable { Run(held); }).detach();
    }

    // Takes what waits; false, and nobody waits any more, where there is nothing. Under the lock.
    bool Take(std::string& batch, std::uint32_t& lost) {
        std::lock_guard lock(asideMutex_);
        batch.swap(lines_);
        batch += aside_;
        aside_.clear();
        linesAreAside_ = false;
        isFull_ = false;
        lost = lost_.exchange(0);
        isWaiting_ = !batch.empty() || lostBefore_ != 0 || lost != 0;
        return isWaiting_;
    }

    void DropAll() {
        std::lock_guard lock(asideMutex_);
        lines_.clear();
        aside_.clear();
        linesAreAside_ = isFull_ = isWaiting_ = false;
        lost_ = lostBefore_ = 0;
    }

    void Run(std::string& batch) {
        std::uint32_t lost = 0;
        std::unique_lock lock(mutex_);
        for (;;) {
            changed_.wait(lock, [this] { return isWaiting_.load(); });
            if (!Take(batch, lost)) {
                changed_.notify_all();
                continue;
            }
            const DebugSocket socket = socket_;
            lock.unlock();
            const bool viewerIsThere = SendAll(socket, std::exchange(lostBefore_, lost), batch);
            batch.clear();
            lock.lock();
            if (!viewerIsThere) {
                DropAll();
                changed_.notify_all();
            }
        }
    }

    // Waits for the viewer. False when it has gone.
    bool SendAll(const DebugSocket& socket, std::uint32_t lost, std::string_view lines) {
        do {
            std::string_view part = lines.substr(0, kMostBytesInDatagram);
            part = part.substr(0, part.rfind('\0') + 1);
            if (Send(socket, std::exchange(lost, 0), part, {}, 0) != Result::kSent)
                return false;
            ++sent_;
            lines.remove_prefix(part.size());
        } while (!lines.empty());
        return true;
    }

    std::mutex mutex_;
    std::condition_variable changed_;
    std::atomic<bool> isWaiting_ = false;  // becomes false under both locks
    std::atomic<std::uint64_t> sent_ = 0;  // datagrams
    DebugSocket socket_ = {};
    std::string lines_;
    std::mutex asideMutex_;  // taken behind the other one
    std::string aside_;
    std::atomic<bool> linesAreAside_ = false;
    std::atomic<bool> isFull_ = false;     // from the first line that is lost on
    std::atomic<std::uint32_t> lost_ = 0;  // behind these lines
    std::uint32_t lostBefore_ = 0;  // behind those that the thread has sent; the thread's own
    std::atomic<pid_t> threadOwner_ = 0;
};

Backlog& TheBacklog() {
    static auto& backlog = *new Backlog;  // its thread may outlive what ends with the process
    return backlog;
}

struct AtProcessEnd {
    ~AtProcessEnd() { TheBacklog().WaitUntilSent(std::chrono::milliseconds(100)); }
};

}  // namespace

bool JoinDebugBacklog(std::string_view piece) {
    return TheBacklog().Join(piece);
}

bool SendDebugLine(const DebugSocket& socket, std::string_view piece) {
    const Result result = Send(socket, 0, piece, std::string_view("", 1), MSG_DONTWAIT);
    if (result == Result::kViewerIsBehind) {
        static const AtProcessEnd atProcessEnd;
        TheBacklog().Begin(socket, piece);
    }
    return result != Result::kNoViewer;
}

}  // namespace vxd
