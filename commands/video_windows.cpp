#include "commands/video_windows.h"

#include "services/diagnostics.h"
#include "video/kora_vid.h"

namespace {

void ReportOpening(HWND window, bool opened, const char* caption) {
    if (!opened) {
        ShowBox(window, "Error opening video window", caption, MB_ICONEXCLAMATION);
    }
}

}  // namespace

void OpenLocalVideoWindow(HWND window) {
    ReportOpening(window, OpenLocalVideo(), "Open local");
}

void OpenRemoteVideoWindow(HWND window) {
    ReportOpening(window, OpenRemoteVideo(), "Open remote");
}

void OpenAllVideoWindows(HWND window) {
    ReportOpening(window, OpenAllVideo(), "Open all");
}
