#include "tests/kit/person.h"

#include <cstring>

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

LRESULT CALLBACK DropWhatWasNotSent(int code, WPARAM message, LPARAM data) {
    const auto& mouse = *reinterpret_cast<const MSLLHOOKSTRUCT*>(data);
    if (code == HC_ACTION && (mouse.flags & LLMHF_INJECTED) == 0)
        return 1;
    return CallNextHookEx(nullptr, code, message, data);
}

// From here on the mouse is the test's alone: a move of the real one could take the pointer away
// while a button is down. Under Wine that happens even where nobody has a mouse, because its
// desktop reports late, at times between press and release, where the pointer was before the click.
void TakeTheMouse() {
    static const HHOOK hook = OnUserInterface([] {
        return SetWindowsHookExA(WH_MOUSE_LL, DropWhatWasNotSent, GetModuleHandleA(nullptr), 0);
    });
    ASSERT_NE(hook, nullptr);
}

// The pointer at a point of a window, and what the left button does there, in one input: nothing
// else can move the pointer in between.
INPUT MouseAt(HWND window, POINT point, DWORD action) {
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
    return input;
}

void UseMouse(std::vector<INPUT> inputs) {
    TakeTheMouse();
    const auto count = static_cast<UINT>(inputs.size());
    EXPECT_EQ(SendInput(count, inputs.data(), sizeof(INPUT)), count);
    WaitForInput();
}

// All clicks in one go: neither is a button held nor a double click made of two single ones because
// the machine is slow.
void Click(HWND window, POINT point, int times = 1) {
    std::vector<INPUT> inputs;
    for (int click = 0; click < times; ++click) {
        inputs.push_back(MouseAt(window, point, MOUSEEVENTF_LEFTDOWN));
        inputs.push_back(MouseAt(window, point, MOUSEEVENTF_LEFTUP));
    }
    UseMouse(std::move(inputs));
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
    Click(listBox, MiddleOfRow(listBox, row), 2);
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
    // A combo box has an edit inside, which has the focus.
    PostMessageA(OnUserInterface(GetFocus), WM_PASTE, 0, 0);
    Settle();
}

void ClickRightArrow(HWND scrollBar) {
    constexpr int kInside = 3;
    const SIZE size = SizeOf(scrollBar);
    Click(scrollBar, {size.cx - kInside, size.cy / 2});
}

namespace {

int MiddleOfThumb(HWND scrollBar) {
    SCROLLBARINFO info{};
    info.cbSize = sizeof info;
    OnUserInterface([&] { GetScrollBarInfo(scrollBar, OBJID_CLIENT, &info); });
    return (info.xyThumbTop + info.xyThumbBottom) / 2;
}

}  // namespace

void DragThumbToEnd(HWND scrollBar, int /*end*/) {
    const SIZE size = SizeOf(scrollBar);
    const int thumb = MiddleOfThumb(scrollBar);
    const POINT end{size.cx - 1, size.cy / 2};
    UseMouse({MouseAt(scrollBar, {thumb, size.cy / 2}, MOUSEEVENTF_LEFTDOWN)});
    UseMouse({MouseAt(scrollBar, end, MOUSEEVENTF_MOVE)});
    UseMouse({MouseAt(scrollBar, end, MOUSEEVENTF_LEFTUP)});
}

void TurnWheel(HWND control, int notches) {
    const SIZE size = SizeOf(control);
    INPUT turn = MouseAt(control, {size.cx / 2, size.cy / 2}, MOUSEEVENTF_WHEEL);
    turn.mi.mouseData = static_cast<DWORD>(notches * WHEEL_DELTA);
    UseMouse({turn});
}

void DoubleClickRight(HWND label) {
    const SIZE size = SizeOf(label);
    std::vector<INPUT> inputs;
    for (const DWORD action :
         {MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP, MOUSEEVENTF_RIGHTDOWN, MOUSEEVENTF_RIGHTUP})
        inputs.push_back(MouseAt(label, {size.cx / 2, size.cy / 2}, action));
    UseMouse(std::move(inputs));
}

}  // namespace kit
