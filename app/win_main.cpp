// The process's entry: brings the utility up, runs its message loop, takes it down.
#include <algorithm>

#include "app/start.h"
#include "driver/kora_dll32.h"
#include "driver/shared_words.h"
#include "platform/win32.h"
#include "services/diagnostics.h"
#include "video/kora_vid.h"

namespace {

// Tells the driver library where the status words are that it shares with the utility.
void FillSharedFlagTable() {
    const auto slots = SharedWordSlots();
    std::copy(slots.begin(), slots.end(), KORA_DLL_GetSharedTable());
}

// Runs until the window is closed; gives the exit code. All dialogs are modal and run loops of
// their own.
int RunMessageLoop() {
    MSG message{};
    while (GetMessageA(&message, nullptr, 0, 0) != 0) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

}  // namespace

int WINAPI WinMain(HINSTANCE instance, HINSTANCE previous, LPSTR /*commandLine*/, int showCommand) {
    if (previous != nullptr)
        return 1;
    if (!InitApplication(instance) || !InitInstance(instance, showCommand))
        return 0;
    if (const ResultCode code = CodeOf(KORA_DLL_Initialize()); code != VXD_SUCCESS) {
        DbgMsg(1, "WinMain: Error %d in KORA_DLL_Initialize\n", code);
        return 0;
    }
    FillSharedFlagTable();
    KORA_DLL_Attach();
    const int exitCode = RunMessageLoop();
    ShutDownVideo();
    if (const ResultCode code = CodeOf(KORA_DLL_Terminate()); code != VXD_SUCCESS)
        DbgMsg(1, "WinMain: Error %d in KORA_DLL_Terminate\n", code);
    return exitCode;
}
