#include "platform/debug_monitor.h"

#include <fcntl.h>
#include <signal.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <cstring>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "platform/core/debug_socket.h"
#include "platform/core/descriptor.h"
#include "platform/debug_line_queue.h"

namespace {

// How many monitors of this process listen: one, or none.
std::atomic<int> ownMonitors = 0;

const sockaddr* Address(const vxd::DebugSocket& place) {
    return reinterpret_cast<const sockaddr*>(&place.address);
}

// The file that is there while the monitor is paused.
std::string PauseMark(const vxd::DebugSocket& place) {
    return std::string(place.address.sun_path) + "-paused";
}

// Binds a socket, in place of one whose monitor is dead. The folder is locked meanwhile, so that no
// two monitors take the place of the same dead one. Nobody but the user may write to the socket,
// whatever the umask, nor is there a moment in which somebody could.
DebugMonitorState Bind(const vxd::DebugSocket& place, vxd::Descriptor& bound) {
    constexpr mode_t kUserAlone = S_IRUSR | S_IWUSR;
    const vxd::Descriptor folder(open(place.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder || flock(folder.Get(), LOCK_EX) != 0) {
        return DebugMonitorState::kSystemRefuses;
    }
    vxd::Descriptor monitor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!monitor) {
        return DebugMonitorState::kSystemRefuses;
    }
    if (connect(monitor.Get(), Address(place), sizeof place.address) == 0) {
        return DebugMonitorState::kAnotherListens;
    }
    unlink(place.address.sun_path);
    unlink(PauseMark(place).c_str());
    if (fchmod(monitor.Get(), kUserAlone) != 0 ||
        bind(monitor.Get(), Address(place), sizeof place.address) != 0 ||
        chmod(place.address.sun_path, kUserAlone) != 0) {
        return DebugMonitorState::kSystemRefuses;
    }
    bound = std::move(monitor);
    return DebugMonitorState::kListens;
}

// A thread that is started meanwhile gets no signals: they are the program's to deal with, in
// threads of its own.
class SignalsKeptBack {
  public:
    SignalsKeptBack() {
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, &before_);
    }
    ~SignalsKeptBack() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    SignalsKeptBack(const SignalsKeptBack&) = delete;
    SignalsKeptBack& operator=(const SignalsKeptBack&) = delete;

  private:
    sigset_t before_;
};

void Receive(const std::stop_token& stop, int socket, DebugLineQueue& lines) {
    vxd::DebugDatagramHeader header;
    std::vector<char> datagram(sizeof header + vxd::kMostBytesInDatagram);
    while (!stop.stop_requested()) {
        const ssize_t length = recv(socket, datagram.data(), datagram.size(), 0);
        if (length < static_cast<ssize_t>(sizeof header))
            continue;
        std::memcpy(&header, datagram.data(), sizeof header);
        if (header.lost != 0)
            lines.Add({header.processId, {}, header.lost, {}});
        std::string_view rest(datagram.data(), static_cast<std::size_t>(length));
        rest.remove_prefix(sizeof header);
        while (!rest.empty()) {
            const std::string_view line = rest.substr(0, rest.find('\0'));
            lines.Add({header.processId, std::string(line), 0, {}});
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        }
    }
}

}  // namespace

struct DebugMonitor::Listening {
    Listening(vxd::DebugSocket where, vxd::Descriptor bound)
        : place(std::move(where)), socket(std::move(bound)) {
        const SignalsKeptBack keptBack;
        receiver = std::jthread([this](const auto& stop) { Receive(stop, socket.Get(), lines); });
        ++ownMonitors;
    }

    // The name goes while the socket still listens: nobody else has taken it meanwhile.
    ~Listening() {
        --ownMonitors;
        unlink(PauseMark(place).c_str());
        unlink(place.address.sun_path);
        receiver.request_stop();
        shutdown(socket.Get(), SHUT_RDWR);
    }

    vxd::DebugSocket place;
    vxd::Descriptor socket;
    DebugLineQueue lines;
    std::jthread receiver;
};

bool vxd::IsMonitoredElsewhere() {
    const auto place = FindDebugSocket(MissingFolder::kLeave);
    const Descriptor asking(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    return ownMonitors == 0 && place && asking &&
           connect(asking.Get(), Address(*place), sizeof place->address) == 0;
}

DebugMonitor::DebugMonitor() {
    auto place = vxd::FindDebugSocket(vxd::MissingFolder::kCreate);
    if (!place) {
        state_ = DebugMonitorState::kFolderNotPrivate;
        return;
    }
    vxd::Descriptor socket;
    state_ = Bind(*place, socket);
    if (state_ == DebugMonitorState::kListens) {
        listening_ = std::make_unique<Listening>(std::move(*place), std::move(socket));
    }
}

DebugMonitor::~DebugMonitor() = default;

bool DebugMonitor::IsListening() const {
    return listening_ != nullptr;
}

DebugMonitorState DebugMonitor::State() const {
    return state_;
}

std::string DebugMonitor::Place() const {
    const auto place = vxd::FindDebugSocket(vxd::MissingFolder::kLeave);
    return place ? place->address.sun_path : vxd::DebugFolderInTmp();
}

void DebugMonitor::SetPaused(bool isPaused) {
    if (listening_ == nullptr) {
        return;
    }
    const std::string mark = PauseMark(listening_->place);
    if (isPaused) {
        vxd::Descriptor(open(mark.c_str(), O_CREAT | O_CLOEXEC | O_WRONLY, S_IRUSR | S_IWUSR));
    } else {
        unlink(mark.c_str());
    }
}

std::optional<DebugLine> DebugMonitor::Next(std::chrono::milliseconds timeout) {
    return listening_ != nullptr ? listening_->lines.Take(timeout) : std::nullopt;
}

// A mark that a dead monitor left says nothing: whoever has found a monitor has found one that
// listens, and that one has removed it.
bool IsDebugMonitorPaused() {
    const auto place = vxd::FindDebugSocket(vxd::MissingFolder::kLeave);
    return place && access(PauseMark(*place).c_str(), F_OK) == 0;
}
