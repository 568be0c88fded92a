// What an operation, or a job of the board's own thread, has to say to others.
#pragma once

#include <string>
#include <vector>

#include "platform/win32.h"

namespace board {

struct Message {
    HWND window;
    UINT message;
    WPARAM wParam = 0;
    LPARAM lParam = 0;
};

// Filled under the board's lock and delivered after it was given back, since whoever receives it
// may be waiting for the board.
struct Outbox {
    std::vector<Message> messages;   // posted to their windows
    std::vector<std::string> lines;  // written to the system's debug output, line ends included
};

// Without the board's lock. A window that is gone is passed over.
void Deliver(const Outbox& outbox);

}  // namespace board
