// Debug output goes to the viewer that listens at the debug socket, and nowhere else.
#include <sys/socket.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>

#include "platform/core/debug_backlog.h"
#include "platform/core/debug_socket.h"
#include "platform/core/process.h"
#include "platform/win32.h"

namespace vxd {
namespace {

constexpr std::string_view kSocketName = "/vxdtest-debug";

// Another user could have made the folder, or could put a socket of his own in it.
bool IsPrivate(const std::string& folder) {
    struct stat status;
    return lstat(folder.c_str(), &status) == 0 && S_ISDIR(status.st_mode) &&
           status.st_uid == geteuid() && (status.st_mode & (S_IWGRP | S_IWOTH)) == 0;
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

std::string DebugFolderInTmp() {
    return "/tmp/vxdtest-" + std::to_string(geteuid());
}

std::optional<DebugSocket> FindDebugSocket(MissingFolder missing) {
    DebugSocket socket;
    socket.address = {};
    socket.address.sun_family = AF_UNIX;
    constexpr std::size_t kLongestFolder = sizeof socket.address.sun_path - 1 - kSocketName.size();

    socket.folder = Environment("XDG_RUNTIME_DIR").value_or("");
    if (!socket.folder.starts_with('/') || socket.folder.size() > kLongestFolder ||
        !IsPrivate(socket.folder)) {
        socket.folder = DebugFolderInTmp();
        // The umask may have taken more from it than it must.
        if (missing == MissingFolder::kCreate && mkdir(socket.folder.c_str(), S_IRWXU) == 0) {
            chmod(socket.folder.c_str(), S_IRWXU);
        }
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
    std::optional<vxd::DebugSocket> socket;
    std::string_view rest = text;
    do {
        const std::string_view piece = vxd::FirstPiece(rest);
        rest.remove_prefix(piece.size());
        if (vxd::JoinDebugBacklog(piece))
            continue;
        if (!socket)
            socket = vxd::FindDebugSocket(vxd::MissingFolder::kLeave);
        if (!socket || !vxd::SendDebugLine(*socket, piece))
            return;
    } while (!rest.empty());
}
