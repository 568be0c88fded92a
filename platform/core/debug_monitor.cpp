#include "platform/debug_monitor.h"

#include <fcntl.h>
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

// Binds a socket, in place of one whose monitor is dead. None when another monitor listens. The
// folder is locked meanwhile, so that no two monitors take the place of the same dead one.
vxd::Descriptor Bind(const vxd::DebugSocket& place) {
    const vxd::Descriptor folder(open(place.folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder || flock(folder.Get(), LOCK_EX) != 0)
        return {};
    vxd::Descriptor monitor(socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0));
    if (!monitor || connect(monitor.Get(), Address(place), sizeof place.address) == 0)
        return {};
    unlink(place.address.sun_path);
    if (bind(monitor.Get(), Address(place), sizeof place.address) != 0)
        return {};
    return monitor;
}

void Receive(const std::stop_token& stop, int socket, DebugLineQueue& lines) {
    vxd::DebugDatagramHeader header;
    std::vector<char> datagram(sizeof header + vxd::kMostBytesInDatagram);
    while (!stop.stop_requested()) {
        const ssize_t length = recv(socket, datagram.data(), datagram.size(), 0);
        if (length < static_cast<ssize_t>(sizeof header))
            continue;
        std::memcpy(&header, datagram.data(), sizeof header);
        if (header.lost != 0)
            lines.Add({header.processId, {}, header.lost});
        std::string_view rest(datagram.data(), static_cast<std::size_t>(length));
        rest.remove_prefix(sizeof header);
        while (!rest.empty()) {
            const std::string_view line = rest.substr(0, rest.find('\0'));
            lines.Add({header.processId, std::string(line)});
            rest.remove_prefix(std::min(line.size() + 1, rest.size()));
        }
    }
}

}  // namespace

struct DebugMonitor::State {
    State(vxd::DebugSocket where, vxd::Descriptor bound)
        : place(std::move(where)),
          socket(std::move(bound)),
          receiver([this](const auto& stop) { Receive(stop, socket.Get(), lines); }) {
        ++ownMonitors;
    }

    // The name goes while the socket still listens: nobody else has taken it meanwhile.
    ~State() {
        --ownMonitors;
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
    if (!place)
        return;
    if (auto socket = Bind(*place))
        state_ = std::make_unique<State>(std::move(*place), std::move(socket));
}

DebugMonitor::~DebugMonitor() = default;

bool DebugMonitor::IsListening() const {
    return state_ != nullptr;
}

std::optional<DebugLine> DebugMonitor::Next(std::chrono::milliseconds timeout) {
    return state_ != nullptr ? state_->lines.Take(timeout) : std::nullopt;
}
