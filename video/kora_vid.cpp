#include "video/kora_vid.h"

#include "driver/papi.h"
#include "driver/vxdvideo.h"
#include "platform/win32.h"
#include "res/resource.h"
#include "services/application.h"

namespace {

constexpr char kWindowClass[] = "VtalveroDVideo";

struct VideoWindow {
    const char* title;
    LPARAM channel;
    HWND handle = nullptr;  // null while it is closed
};

bool classIsRegistered = false;
HDRVR videoDriver = nullptr;
VideoWindow localWindow{"Local Video", VIDEO_CHANNEL_LOCAL};
VideoWindow remoteWindow{"Remote Video", VIDEO_CHANNEL_REMOTE};

// The frame's own ways to close a window do nothing.
LRESULT CALLBACK VideoWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
        case WM_DESTROY:
        case WM_CLOSE:
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

// Without a background: the driver paints the whole client area.
void RegisterVideoClass() {
    if (classIsRegistered) {
        return;
    }
    classIsRegistered = true;
    WNDCLASSA windowClass{};
    windowClass.style = CS_OWNDC;
    windowClass.lpfnWndProc = VideoWndProc;
    windowClass.hInstance = AppInstance;
    windowClass.hIcon = LoadIconA(AppInstance, MAKEINTRESOURCEA(IDI_APP));
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.lpszClassName = kWindowClass;
    RegisterClassA(&windowClass);
}

// The driver, opened when it is first needed. Null where it can't be opened, to which every message
// fails.
HDRVR VideoDriver() {
    if (videoDriver == nullptr) {
        videoDriver = OpenDriver(VXDVIDEO_LIBRARY, nullptr, 0);
    }
    return videoDriver;
}

bool Refuse(const char* reason) {
    OutputDebugStringA(reason);
    return false;
}

bool Show(VideoWindow& video) {
    // The driver sizes the window to its picture.
    video.handle = CreateWindowExA(0, kWindowClass, video.title, WS_VISIBLE | WS_THICKFRAME, 1, 1,
                                   1, 1, nullptr, nullptr, AppInstance, nullptr);
    if (video.handle == nullptr) {
        return Refuse("kora_vid: Failed to create video window\n");
    }
    if (SendDriverMessage(VideoDriver(), VIDEO_SHOW_CHANNEL, reinterpret_cast<LPARAM>(video.handle),
                          video.channel) == 0) {
        DestroyWindow(video.handle);
        video.handle = nullptr;
        return Refuse("kora_vid: Error in SendDriverMessage\n");
    }
    return true;
}

bool Open(VideoWindow& video) {
    RegisterVideoClass();
    if (video.handle != nullptr) {
        return true;
    }
    const HWND focus = GetFocus();
    const bool shown = Show(video);
    // A new window takes the keyboard; it goes back to whoever had it.
    if (focus != nullptr) {
        SetFocus(focus);
    }
    return shown;
}

void Close(VideoWindow& video) {
    if (video.handle == nullptr) {
        return;
    }
    SendDriverMessage(VideoDriver(), VIDEO_STOP_CHANNEL, video.channel, 0);
    DestroyWindow(video.handle);
    video.handle = nullptr;
}

}  // namespace

bool OpenLocalVideo() {
    return Open(localWindow);
}

bool OpenRemoteVideo() {
    return Open(remoteWindow);
}

bool OpenAllVideo() {
    const bool local = OpenLocalVideo();
    return OpenRemoteVideo() && local;
}

void CloseLocalVideo() {
    Close(localWindow);
}

void CloseRemoteVideo() {
    Close(remoteWindow);
}

void CloseAllVideo() {
    CloseLocalVideo();
    CloseRemoteVideo();
}

void FreezeVideo() {
    constexpr uint32_t kFreeze = 0xF0;
    vdapi_VIDINLAY_SetFrameDispMode(kFreeze);
}

void RestartVideo() {
    constexpr uint32_t kRun = 0x0F;
    vdapi_VIDINLAY_SetFrameDispMode(kRun);
}

void ShutDownVideo() {
    CloseAllVideo();
    if (videoDriver != nullptr) {
        CloseDriver(videoDriver, 0, 0);
        videoDriver = nullptr;
    }
}
