// The main window: little more than a menu bar. It opens the board command library when it is made
// and closes it when it is closed.
#include "app/main_window.h"

#include <cstdlib>

#include "app/dispatcher.h"
#include "commands/board_menu.h"
#include "commands/led.h"
#include "commands/monitor_receive.h"
#include "commands/window_commands.h"
#include "driver/papi.h"
#include "services/application.h"
#include "services/diagnostics.h"
#include "services/settings.h"

namespace {

// The largest size the window can be dragged to, in pixels.
constexpr LONG kMaximumWidth = 900;
constexpr LONG kMaximumHeight = 180;

void ReadBoardRevision(HWND window) {
    uint8_t vpic = 0;
    uint16_t driver = 0;
    uint8_t jade = 0;
    if (CodeOf(vdapi_GetVersion(&BoardRevision, &vpic, &driver, &jade)) != VXD_SUCCESS)
        MessageBoxA(window, "Warning - Tessil Board not found.", "GetVersion", MB_ICONEXCLAMATION);
}

void OnCreate(HWND window) {
    BuildErrorNames();
    SetDebugOutputLevel(static_cast<uint16_t>(ReadSetting(setting::kDebugLevel)));
    vdapi_Initialize(0);
    ReadBoardRevision(window);
    ShowRememberedMenu(window);
    RestoreAlwaysOnTop(window);
}

void OnClose() {
    vdapi_Terminate();
    PostQuitMessage(0);
}

// Every repaint shows a new colour.
void OnPaint(HWND window) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    const int blue = std::rand() % 256;
    const int green = std::rand() % 256;
    const int red = std::rand() % 256;
    const HBRUSH brush = CreateSolidBrush(RGB(red, green, blue));
    FillRect(dc, &paint.rcPaint, brush);
    DeleteObject(brush);
    EndPaint(window, &paint);
}

void LimitSize(MINMAXINFO& limits) {
    limits.ptMaxTrackSize.x = kMaximumWidth;
    limits.ptMaxTrackSize.y = kMaximumHeight;
}

// On a monitor of another resolution Windows suggests a place that looks the same.
void FollowResolution(HWND window, const RECT& place) {
    SetWindowPos(window, nullptr, place.left, place.top, place.right - place.left,
                 place.bottom - place.top, SWP_NOZORDER);
}

}  // namespace

LRESULT CALLBACK MainWndProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CREATE:
            OnCreate(window);
            return 0;
        case WM_DESTROY:
        case WM_CLOSE:
            OnClose();
            return 0;
        case WM_MOVE:
        case WM_SIZE:
        case WM_INITMENUPOPUP:
            return 0;
        case WM_PAINT:
            OnPaint(window);
            return 0;
        case WM_GETMINMAXINFO:
            LimitSize(*reinterpret_cast<MINMAXINFO*>(lParam));
            return 0;
        case WM_DPICHANGED:
            FollowResolution(window, *reinterpret_cast<const RECT*>(lParam));
            return 0;
        case WM_COMMAND:
            return DispatchCommand(window, static_cast<uint32_t>(wParam));
        case WM_TIMER:
            if (wParam == kLedTimer)
                BlinkLed(window);
            return 0;
        case WM_CONTEXTMENU:
            if (!OfferBoardMenus(window, lParam))
                return DefWindowProcA(window, message, wParam, lParam);
            return 0;
        case kMonitorBytesReceived:
            TraceMonitorBytes();
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}
