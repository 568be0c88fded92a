#include "tests/qt/window_test.h"

#include "tests/qt/form_test.h"

namespace form {
namespace {

constexpr COLORREF kColour = RGB(0x20, 0x60, 0xA0);

// Touched by the user-interface thread alone.
std::vector<UINT> theCommands;
std::vector<UINT> theMessages;
std::vector<QRect> thePainted;
HWND theWindow = nullptr;

void Paint(HWND window) {
    PAINTSTRUCT paint;
    const HDC dc = BeginPaint(window, &paint);
    thePainted.emplace_back(QPoint(paint.rcPaint.left, paint.rcPaint.top),
                            QPoint(paint.rcPaint.right - 1, paint.rcPaint.bottom - 1));
    const HBRUSH brush = CreateSolidBrush(kColour);
    FillRect(dc, &paint.rcPaint, brush);
    DeleteObject(brush);
    EndPaint(window, &paint);
}

void Offer(HWND window, LPARAM where) {
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING | MF_CHECKED, IDM_MORE, "&More");
    AppendMenuA(menu, MF_STRING, IDM_LESS, "&Less");
    TrackPopupMenu(menu, TPM_LEFTALIGN | TPM_RIGHTBUTTON, static_cast<SHORT>(LOWORD(where)),
                   static_cast<SHORT>(HIWORD(where)), 0, window, nullptr);
    DestroyMenu(menu);
}

LRESULT CALLBACK WindowProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    theMessages.push_back(message);
    switch (message) {
        case WM_PAINT:
            Paint(window);
            return 0;
        case WM_COMMAND:
            theCommands.push_back(static_cast<UINT>(wParam));
            if (wParam == IDM_FORM)
                RunForm(window);
            if (wParam == IDM_BARE && WindowTest::AtBare())
                WindowTest::AtBare()();
            return 0;
        case WM_CONTEXTMENU:
            Offer(window, lParam);
            return 0;
        case WM_CLOSE:
            PostQuitMessage(7);
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

int RunWindow() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = WindowProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.lpszClassName = "Wide";
    windowClass.lpszMenuName = MAKEINTRESOURCEA(IDR_BAR);
    RegisterClassA(&windowClass);
    theWindow = CreateWindowExA(0, "Wide", "Wide", WS_OVERLAPPEDWINDOW, 50, 60, 700, 200, nullptr,
                                nullptr, windowClass.hInstance, nullptr);
    ShowWindow(theWindow, SW_SHOWNORMAL);
    UpdateWindow(theWindow);
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return static_cast<int>(message.wParam);
}

}  // namespace

WindowTest::WindowTest() : result_(kit::StartProgram(RunWindow)) {
    native::Do([] {});
    window_ = kit::OnUserInterface([] { return theWindow; });
}

std::function<void()>& WindowTest::AtBare() {
    static std::function<void()> action;
    return action;
}

std::vector<UINT> WindowTest::TakeCommands() {
    return kit::OnUserInterface([] { return std::exchange(theCommands, {}); });
}

std::size_t WindowTest::TakeMessages(UINT message) {
    return kit::OnUserInterface([message] { return std::erase(theMessages, message); });
}

std::vector<QRect> WindowTest::TakePainted() const {
    return kit::OnUserInterface([this] {
        UpdateWindow(window_);
        return std::exchange(thePainted, {});
    });
}

}  // namespace form
