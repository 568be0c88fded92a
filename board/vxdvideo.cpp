// The simulated video window driver: draws the test cameras' pictures into the program's windows,
// from a timer that each of them has for it.
#include "driver/vxdvideo.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <mutex>
#include <utility>
#include <vector>

#include "board/operation.h"
#include "board/simulation.h"
#include "board/test_picture.h"
#include "board/video_inlay.h"
#include "driver/result_code.h"

using namespace board;

namespace {

// A channel, with the names that its operations have for the board (board/operation.h).
struct Screening {
    VideoChannel channel;
    const char* showName;
    const char* stopName;
    HWND window = nullptr;  // null while the channel is not shown
};

// User-interface thread.
std::array<Screening, 2> screenings = {{
    {VideoChannel::kLocal, "VXDVIDEO_ShowLocal", "VXDVIDEO_StopLocal"},
    {VideoChannel::kRemote, "VXDVIDEO_ShowRemote", "VXDVIDEO_StopRemote"},
}};

Screening* FindScreening(LPARAM channel) {
    const auto found =
        std::ranges::find(screenings, static_cast<VideoChannel>(channel), &Screening::channel);
    return found == screenings.end() ? nullptr : &*found;
}

UINT_PTR TimerOf(const Screening& screening) {
    return static_cast<UINT_PTR>(screening.channel);
}

// The frame that is to be seen, and how many milliseconds later the next one comes.
struct Moment {
    uint32_t frame;
    uint32_t untilNext;
};

Moment Now() {
    Simulation& simulation = TheSimulation();
    std::lock_guard lock(simulation.lock);
    return {ShownFrame(simulation.state),
            kMillisecondsAFrame - simulation.state.Time() % kMillisecondsAFrame};
}

void Draw(const Screening& screening, uint32_t frame) {
    static std::vector<uint32_t> pixels;
    DrawPicture(screening.channel, frame, pixels);
    BITMAPINFO info{};
    info.bmiHeader.biSize = sizeof(BITMAPINFOHEADER);
    info.bmiHeader.biWidth = kPictureWidth;
    info.bmiHeader.biHeight = -kPictureHeight;  // the upper row comes first
    info.bmiHeader.biPlanes = 1;
    info.bmiHeader.biBitCount = 32;
    info.bmiHeader.biCompression = BI_RGB;
    RECT client{};
    GetClientRect(screening.window, &client);
    const HDC dc = GetDC(screening.window);
    SetStretchBltMode(dc, COLORONCOLOR);
    StretchDIBits(dc, 0, 0, client.right, client.bottom, 0, 0, kPictureWidth, kPictureHeight,
                  pixels.data(), &info, DIB_RGB_COLORS, SRCCOPY);
    ReleaseDC(screening.window, dc);
}

void CALLBACK ShowNextFrame(HWND window, UINT, UINT_PTR timer, DWORD);

// Draws what is to be seen now, also while it stands still: the window may have been uncovered, or
// have another size.
void ShowFrame(const Screening& screening) {
    const Moment now = Now();
    Draw(screening, now.frame);
    SetTimer(screening.window, TimerOf(screening), now.untilNext, ShowNextFrame);
}

void CALLBACK ShowNextFrame(HWND window, UINT, UINT_PTR timer, DWORD) {
    const Screening* screening = FindScreening(static_cast<LPARAM>(timer));
    if (screening && screening->window == window) {
        ShowFrame(*screening);
    }
}

// How much wider and higher a window is than its client area shows once it has room for both, which
// the first try may have to make.
void SizeToPicture(HWND window) {
    for (int attempt = 0; attempt < 2; ++attempt) {
        RECT outer{};
        RECT client{};
        GetWindowRect(window, &outer);
        GetClientRect(window, &client);
        SetWindowPos(window, nullptr, 0, 0, outer.right - outer.left - client.right + kPictureWidth,
                     outer.bottom - outer.top - client.bottom + kPictureHeight,
                     SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
    }
}

void EndScreening(Screening& screening) {
    if (screening.window) {
        KillTimer(screening.window, TimerOf(screening));
        screening.window = nullptr;
    }
}

// Nothing of these changes the board; whether it lets them be done.
bool Ask(Call call, unsigned needs) {
    return CodeOf(Perform(std::move(call), needs,
                          [](State&) -> ResultCode { return VXD_SUCCESS; })) == VXD_SUCCESS;
}

bool ShowChannel(HWND window, LPARAM channel) {
    Screening* screening = FindScreening(channel);
    if (!screening || !IsWindow(window)) {
        return false;
    }
    if (!Ask({screening->showName, {window, static_cast<uint32_t>(channel)}}, kBoard)) {
        return false;
    }
    EndScreening(*screening);
    screening->window = window;
    SizeToPicture(window);
    ShowFrame(*screening);
    return true;
}

bool StopChannel(LPARAM channel) {
    Screening* screening = FindScreening(channel);
    if (!screening) {
        return false;
    }
    Ask({screening->stopName, {static_cast<uint32_t>(channel)}}, kBoard);
    EndScreening(*screening);
    return true;
}

}  // namespace

LRESULT WINAPI DriverProc(DWORD_PTR, HDRVR, UINT message, LPARAM first, LPARAM second) {
    switch (message) {
        case DRV_LOAD:
            return Ask({"VXDVIDEO_Load"}, kNothing);
        case DRV_ENABLE:
        case DRV_OPEN:
        case DRV_CLOSE:
            return TRUE;
        case DRV_DISABLE:
            std::ranges::for_each(screenings, EndScreening);
            return TRUE;
        case DRV_FREE:
            return Ask({"VXDVIDEO_Free"}, kNothing);
        case VIDEO_SHOW_CHANNEL:
            return ShowChannel(reinterpret_cast<HWND>(first), second);
        case VIDEO_STOP_CHANNEL:
            return StopChannel(first);
        default:
            return 0;
    }
}
