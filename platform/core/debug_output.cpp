// Debug output goes to the viewer that listens at the debug socket, and nowhere else.
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/uio.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <cstdint>
#include <string_view>

#include "platform/core/debug_socket.h"
#include "platform/core/process.h"
#include "platform/win32.h"

namespace vxd {
namespace {

constexpr std::string_view kSocketName = "/vxdtest-debug";

// How long a line waits for a viewer that is behind. One that stays behind costs this once: the
// lines that follow don't wait until it takes one again.
constexpr timeval kPatience = {.tv_sec = 0, .tv_usec = 200'000};
std::atomic<bool> viewerIsStuck = false;

// Another user could have made the folder, or could put a socket of his own in it.
bool IsPrivate(const std::string& folder) {
    struct stat status;
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
}

// The socket that this process sends from.
int Sender() {
    static const int sender = [] {
        const int made = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
        if (made >= 0)
            setsockopt(made, SOL_SOCKET, SO_SNDTIMEO, &kPatience, sizeof kPatience);
        return made;
    }();
    return sender;
}

// False when no viewer took it.
bool Send(DebugSocket& socket, std::string_view text) {
    auto processId = static_cast<std::uint32_t>(getpid());
    std::array<iovec, 2> parts = {iovec{&processId, sizeof processId},
                                  iovec{const_cast<char*>(text.data()), text.size()}};
    msghdr message = {};
    message.msg_name = &socket.address;
    message.msg_namelen = sizeof socket.address;
    message.msg_iov = parts.data();
    message.msg_iovlen = parts.size();

    const int wait = viewerIsStuck ? MSG_DONTWAIT : 0;
    bool sent = sendmsg(Sender(), &message, MSG_NOSIGNAL | wait) >= 0;
    if (!sent && errno == EINTR)
        sent = sendmsg(Sender(), &message, MSG_NOSIGNAL | MSG_DONTWAIT) >= 0;
    viewerIsStuck = !sent && (errno == EAGAIN || errno == EWOULDBLOCK);
    return sent;
}

// The first piece of a text that is sent at once; no UTF-8 character is divided.
std::string_view FirstPiece(std::string_view text) {
    if (text.size() <= kDebugTextLimit)
        return text;
    constexpr std::size_t kLongestCharacter = 4;
    std::size_t length = kDebugTextLimit;
    while (length > kDebugTextLimit - kLongestCharacter &&
           (static_cast<unsigned char>(text[length]) & 0xC0) == 0x80)
        --length;
    return text.substr(0, length);
}

}  // namespace

std::optional<DebugSocket> FindDebugSocket(MissingFolder missing) {
    DebugSocket socket;
    socket.address = {};
    socket.address.sun_family = AF_UNIX;
    constexpr std::size_t kLongestFolder = sizeof socket.address.sun_path - 1 - kSocketName.size();

    socket.folder = Environment("XDG_RUNTIME_DIR").value_or("");
    if (!socket.folder.starts_with('/') || socket.folder.size() > kLongestFolder ||
        !IsPrivate(socket.folder)) {
        socket.folder = "/tmp/vxdtest-" + std::to_string(geteuid());
        if (missing == MissingFolder::kCreate)
            mkdir(socket.folder.c_str(), 0700);
        if (!IsPrivate(socket.folder))
            return std::nullopt;
    }
    char* const end =
        std::copy(socket.folder.begin(), socket.folder.end(), socket.address.sun_path);
    std::copy(kSocketName.begin(), kSocketName.end(), end);
    return socket;
}

}  // namespace vxd

void WINAPI OutputDebugStringA(LPCSTR text) {
    if (text == nullptr)
        return;
    auto socket = vxd::FindDebugSocket(vxd::MissingFolder::kLeave);
    if (!socket)
        return;
    std::string_view rest = text;
    for (;;) {
        const std::string_view piece = vxd::FirstPiece(rest);
        rest.remove_prefix(piece.size());
        if (!vxd::Send(*socket, piece) || rest.empty())
            return;
    }
}
