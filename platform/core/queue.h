// The message queue of the user-interface thread, and with it the keys that were down when a
// message was queued.
#pragma once

#include <functional>

#include "platform/core/keyboard.h"
#include "platform/win32.h"

namespace vxd {

// The calling thread becomes the user-interface thread if there is none yet. False when another
// thread is.
bool ClaimUserInterfaceThread();
bool OnUserInterfaceThread();

// Queues what a person did; it comes after posted messages and before WM_PAINT. The function runs
// on the user-interface thread while messages are retrieved.
void QueueInput(std::function<void()> input);
// Queues a message in the same place. It is dropped if its window takes no input when its turn
// comes.
void QueueInputMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
// Queues a key's message, which goes to the window that has the focus when its turn comes.
void QueueKeyMessage(UINT message, WPARAM wParam, LPARAM lParam);
bool InputWaits();

// Drops the messages and timers of a window that is going.
void ForgetMessagesOf(HWND window);

}  // namespace vxd
