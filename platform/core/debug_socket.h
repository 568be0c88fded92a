// Where debug output meets its viewer: a datagram socket that the viewer binds in a folder of the
// user's own. A datagram is a header and lines, each with a zero at its end.
#pragma once

#include <sys/un.h>

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>

namespace vxd {

// What Windows' buffer leaves for the text.
inline constexpr std::size_t kDebugTextLimit = 4091;

struct DebugDatagramHeader {
    std::uint32_t processId;
    std::uint32_t lost;  // how many lines the process could not send before these
};

inline constexpr std::size_t kMostBytesInDatagram = std::size_t{32} << 10;  // behind the header

struct DebugSocket {
    std::string folder;
    sockaddr_un address;
};

enum class MissingFolder { kLeave, kCreate };

// The socket's place for this user and environment, the same for writers and viewers: in
// XDG_RUNTIME_DIR, or in a folder in /tmp where that can't be used. Nothing when neither folder
// exists and belongs to this user alone. Any thread.
std::optional<DebugSocket> FindDebugSocket(MissingFolder missing);

// The folder in /tmp for this user, whether or not it exists and can be used.
std::string DebugFolderInTmp();

// Whether a monitor of another process of this user listens. Any thread.
bool IsMonitoredElsewhere();

}  // namespace vxd
