#include "tests/kit/person.h"

#include <gtest/gtest.h>

#include <chrono>
#include <cstring>
#include <thread>

#include "tests/kit/user_interface.h"

namespace kit {
namespace {

constexpr std::chrono::seconds kLongestWait{10};

// Until the user-interface thread has taken all input that came for it.
void WaitForInput() {
    const auto start = std::chrono::steady_clock::now();
    while (OnUserInterface([] { return HIWORD(GetQueueStatus(QS_INPUT)) != 0; })) {
        ASSERT_LT(std::chrono::steady_clock::now() - start, kLongestWait);
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    Settle();
}

// Moves the pointer to a point of a window and uses the left button there, in one input, so that
// nothing else can move the pointer in between.
void UseMouse(HWND window, POINT point, DWORD action) {
    ClientToScreen(window, &point);
    // The desktop is 65536 units wide and high; the middle of a pixel stands for it.
    const auto units = [](LONG pixel, int metric) {
        const int pixels = GetSystemMetrics(metric);
        return (pixel * 65536 + 32768) / pixels;
    };
    INPUT input{};
    input.type = INPUT_MOUSE;
    input.mi.dx = units(point.x, SM_CXSCREEN);
    input.mi.dy = units(point.y, SM_CYSCREEN);
    input.mi.dwFlags = MOUSEEVENTF_ABSOLUTE | MOUSEEVENTF_MOVE | action;
    EXPECT_EQ(SendInput(1, &input, sizeof input), 1u);
    WaitForInput();
}

void Click(HWND window, POINT point) {
    UseMouse(window, point, MOUSEEVENTF_LEFTDOWN);
    UseMouse(window, point, MOUSEEVENTF_LEFTUP);
}

POINT MiddleOfRow(HWND listBox, int row) {
    RECT rect{};
    OnUserInterface([&] {
        SendMessageA(listBox, LB_GETITEMRECT, static_cast<WPARAM>(row),
                     reinterpret_cast<LPARAM>(&rect));
    });
    return {(rect.left + rect.right) / 2, (rect.top + rect.bottom) / 2};
}

SIZE SizeOf(HWND window) {
    RECT client{};
    GetClientRect(window, &client);
    return {client.right, client.bottom};
}

}  // namespace

void ClickButton(HWND button) {
    const SIZE size = SizeOf(button);
    Click(button, {size.cx / 2, size.cy / 2});
}

void ClickRow(HWND listBox, int row) {
    Click(listBox, MiddleOfRow(listBox, row));
}

void DoubleClickRow(HWND listBox, int row) {
    ClickRow(listBox, row);
    ClickRow(listBox, row);
}

void Paste(HWND edit, const std::string& text) {
    OnUserInterface([&] {
        const HGLOBAL memory = GlobalAlloc(GMEM_MOVEABLE, text.size() + 1);
        std::memcpy(GlobalLock(memory), text.c_str(), text.size() + 1);
        GlobalUnlock(memory);
        ASSERT_TRUE(OpenClipboard(edit));
        EmptyClipboard();
        SetClipboardData(CF_TEXT, memory);
        CloseClipboard();
    });
    PostMessageA(edit, WM_PASTE, 0, 0);
    Settle();
}

void ClickArrow(HWND scrollBar, bool atEnd) {
    constexpr int kInside = 3;
    const SIZE size = SizeOf(scrollBar);
    Click(scrollBar, {atEnd ? size.cx - kInside : kInside, size.cy / 2});
}

void DragThumbToEnd(HWND scrollBar, int /*end*/) {
    SCROLLBARINFO info{};
    info.cbSize = sizeof info;
    OnUserInterface([&] { GetScrollBarInfo(scrollBar, OBJID_CLIENT, &info); });
    const SIZE size = SizeOf(scrollBar);
    const int thumb = (info.xyThumbTop + info.xyThumbBottom) / 2;
    UseMouse(scrollBar, {thumb, size.cy / 2}, MOUSEEVENTF_LEFTDOWN);
    UseMouse(scrollBar, {size.cx - 1, size.cy / 2}, MOUSEEVENTF_MOVE);
    UseMouse(scrollBar, {size.cx - 1, size.cy / 2}, MOUSEEVENTF_LEFTUP);
}

}  // namespace kit
