#include "board/outbox.h"

namespace board {

void PostMessages(const Outbox& outbox) {
    for (const Message& message : outbox.messages) {
        PostMessageA(message.window, message.message, message.wParam, message.lParam);
    }
}

void WriteLines(const Outbox& outbox) {
    for (const std::string& line : outbox.lines) {
        OutputDebugStringA(line.c_str());
    }
}

}  // namespace board
