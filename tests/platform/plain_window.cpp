#include "tests/platform/plain_window.h"

namespace kit {
namespace {

LRESULT CALLBACK TellingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message >= WM_APP || message == WM_PAINT || message == WM_TIMER)
        Told().push_back(message);
    if (message == kDoubleMessage)
        return static_cast<LRESULT>(wParam) * 2;
    return message >= WM_APP ? 0 : DefWindowProcA(window, message, wParam, lParam);
}

}  // namespace

HWND MakePlainWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = TellingProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = CreateSolidBrush(kPlainBackground);
    windowClass.lpszClassName = "Telling";
    RegisterClassA(&windowClass);
    return CreateWindowExA(0, "Telling", "Telling", WS_OVERLAPPEDWINDOW, 10, 10, 200, 100, nullptr,
                           nullptr, windowClass.hInstance, nullptr);
}

HWND ShowPlainWindow() {
    const HWND window = MakePlainWindow();
    ShowWindow(window, SW_SHOW);
    Drain();
    return window;
}

std::vector<UINT>& Told() {
    static std::vector<UINT> told;
    return told;
}

std::vector<UINT> Drain() {
    std::vector<UINT> order;
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        order.push_back(message.message);
        DispatchMessageA(&message);
    }
    return order;
}

}  // namespace kit
