// Where debug output meets its viewer: a datagram socket that the viewer binds in a folder of the
// user's own. A datagram is the writer's process id (32 bits) and a piece of text without a zero.
#pragma once

#include <sys/un.h>

#include <optional>
#include <string>

namespace vxd {

// What Windows' buffer leaves for the text.
inline constexpr std::size_t kDebugTextLimit = 4091;

struct DebugSocket {
    std::string folder;
    sockaddr_un address;
};

enum class MissingFolder { kLeave, kCreate };

// The socket's place for this user and environment, the same for writers and viewers: in
// XDG_RUNTIME_DIR, or in a folder in /tmp where that can't be used. Nothing when neither folder
// exists and belongs to this user alone. Any thread.
std::optional<DebugSocket> FindDebugSocket(MissingFolder missing);

}  // namespace vxd
