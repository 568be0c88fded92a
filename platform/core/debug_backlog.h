// The lines of this program that a debug viewer which is behind has not taken yet.
#pragma once

#include <string_view>

#include "platform/core/debug_socket.h"

namespace vxd {

// Hands a piece of text on without waiting for the viewer. One that the viewer can't take at once,
// and those that follow it, wait in memory for a thread of their own to send them, up to some
// megabytes; beyond that they are lost, and the viewer is told how many. As the program ends they
// are sent for a tenth of a second more, as long as the viewer takes some. Any thread; each
// thread's lines keep their order.

// Puts the piece behind the lines that wait already; false when none does.
bool JoinDebugBacklog(std::string_view piece);

// Sends the piece to the viewer that listens there, or lets it wait; false when none listens.
bool SendDebugLine(const DebugSocket& socket, std::string_view piece);

}  // namespace vxd
