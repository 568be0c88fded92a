// Whatever a program destroys while it is called back, the layer carries on.
#include "platform/core/window.h"
#include "platform/screen.h"
#include "tests/kit/user_interface.h"

namespace {

using Handler = std::function<void(HWND window, UINT message, WPARAM wParam)>;

// What the windows of the test's class do with a message before the default. User-interface thread.
Handler& TheHandler() {
    static Handler handler;
    return handler;
}

LRESULT CALLBACK HandlingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (TheHandler())
        TheHandler()(window, message, wParam);
    return message == WM_NCCREATE ? TRUE : DefWindowProcA(window, message, wParam, lParam);
}

HWND MakeShown(HWND parent, const char* className = "Handling", DWORD style = 0) {
    kit::RegisterWindowClass("Handling", HandlingProcedure);
    style |= WS_VISIBLE | (parent != nullptr ? WS_CHILD : 0);
    return CreateWindowExA(0, className, "", style, 0, 0, 50, 50, parent, nullptr,
                           GetModuleHandleA(nullptr), nullptr);
}

// Runs all that waits.
void Drain() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
}

PROGRAM_TEST(Destruction, AChildThatGoesTakesItsSiblingOrItsParentAlong) {
    enum Member { kParent, kFirst, kSecond };
    struct Case {
        Member destroyed;
        Member told;
        Member takenAlong;
    };
    for (const Case& each : {Case{kParent, kFirst, kSecond}, Case{kParent, kSecond, kFirst},
                             Case{kFirst, kFirst, kParent}}) {
        const HWND parent = MakeShown(nullptr);
        const std::vector<HWND> family{parent, MakeShown(parent), MakeShown(parent)};
        TheHandler() = [=](HWND window, UINT message, WPARAM) {
            if (message == WM_DESTROY && window == family[each.told])
                DestroyWindow(family[each.takenAlong]);
        };
        EXPECT_TRUE(DestroyWindow(family[each.destroyed]));
        for (const HWND member : family)
            EXPECT_FALSE(IsWindow(member)) << "destroyed by member " << each.told;
    }
}

PROGRAM_TEST(Destruction, AWindowDestroysItselfOrItsParentAsItLosesTheFocus) {
    for (const bool all : {false, true}) {
        for (const auto& lose : std::vector<std::function<void(HWND, HWND)>>{
                 [](HWND, HWND other) { SetFocus(other); },
                 [](HWND focused, HWND) { DestroyWindow(focused); },
                 [](HWND focused, HWND) { ShowWindow(focused, SW_HIDE); },
                 [](HWND focused, HWND) { EnableWindow(focused, FALSE); },
                 [](HWND focused, HWND) { DestroyWindow(GetParent(focused)); }}) {
            const HWND parent = MakeShown(nullptr);
            const HWND focused = MakeShown(parent);
            const HWND other = MakeShown(parent);
            SetFocus(focused);
            TheHandler() = [&](HWND window, UINT message, WPARAM) {
                if (message == WM_KILLFOCUS && window == focused)
                    DestroyWindow(all ? parent : focused);
            };
            lose(focused, other);
            EXPECT_FALSE(IsWindow(focused));
            EXPECT_NE(GetFocus(), focused);
            DestroyWindow(parent);
        }
    }
}

PROGRAM_TEST(Destruction, APopupMenuEndsWithItsWindowsParent) {
    const HWND parent = MakeShown(nullptr);
    const HWND child = MakeShown(parent);
    TheHandler() = [=](HWND, UINT message, WPARAM) {
        if (message == WM_APP)
            DestroyWindow(parent);
    };
    const HMENU menu = CreatePopupMenu();
    AppendMenuA(menu, MF_STRING, 41, "only");
    PostMessageA(parent, WM_APP, 0, 0);
    EXPECT_EQ(TrackPopupMenu(menu, TPM_RETURNCMD, 0, 0, 0, child, nullptr), 0);
    EXPECT_FALSE(IsWindow(child));
    DestroyMenu(menu);
}

PROGRAM_TEST(Destruction, AControlGoesWithItsOwnNotification) {
    struct Kind {
        const char* className;
        DWORD style;
    };
    const std::vector<std::function<void(HWND)>> actions{
        [](HWND control) { SendMessageA(control, WM_CHAR, 'x', 0); },
        [](HWND control) { SetWindowTextA(control, "text"); },
        [](HWND control) { SendMessageA(control, WM_KEYDOWN, VK_DOWN, 0); },
        [](HWND control) { SendMessageA(control, BM_CLICK, 0, 0); },
        [](HWND control) {
            SetFocus(control);
            SendMessageA(control, CB_SHOWDROPDOWN, TRUE, 0);
            SetFocus(GetParent(control));
        },
        [](HWND control) { vxd::input::RowDoubleClicked(vxd::HandleNumber(control), 1); },
        [](HWND control) { vxd::input::Edited(vxd::HandleNumber(control), "text", 4, 4); }};
    int destroyed = 0;
    for (const Kind& kind : {Kind{"Edit", 0}, Kind{"ComboBox", CBS_DROPDOWNLIST},
                             Kind{"ComboBox", CBS_DROPDOWN}, Kind{"ListBox", LBS_NOTIFY},
                             Kind{"Button", BS_PUSHBUTTON}, Kind{"Button", BS_AUTORADIOBUTTON}}) {
        for (const auto& act : actions) {
            // Each of the notifications that the action makes is the last one once.
            for (int last = 1, told = 0; told + 1 == last; ++last) {
                const HWND parent = MakeShown(nullptr);
                const HWND control = MakeShown(parent, kind.className, kind.style);
                for (const UINT add : {CB_ADDSTRING, CB_ADDSTRING, LB_ADDSTRING, LB_ADDSTRING})
                    SendMessageA(control, add, 0, reinterpret_cast<LPARAM>("row"));
                told = 0;
                TheHandler() = [&](HWND window, UINT message, WPARAM) {
                    if (window == parent && message == WM_COMMAND && told < last && ++told == last)
                        DestroyWindow(control);
                };
                act(control);
                Drain();
                EXPECT_EQ(IsWindow(control) != FALSE, told < last) << kind.className;
                destroyed += told == last;
                TheHandler() = nullptr;
                DestroyWindow(parent);
            }
        }
    }
    EXPECT_GE(destroyed, 36);
}

}  // namespace
