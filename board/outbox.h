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

// Filled under the board's lock.
struct Outbox {
    std::vector<Message> messages;   // posted to their windows
    std::vector<std::string> lines;  // written to the system's debug output, line ends included
};

// Under the board's lock, so that the messages of several threads come in the order of what they
// tell; posting waits for nobody. A window that is gone is passed over.
void PostMessages(const Outbox& outbox);

// After the lock was given back: a viewer that the debug output waits for may be waiting for the
// board.
void WriteLines(const Outbox& outbox);

}  // namespace board
