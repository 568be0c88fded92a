// Whatever a program destroys while it is called back, the layer carries on.
#include <gtest/gtest.h>

#include <functional>
#include <vector>

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

HWND Make(HWND parent, const char* className = "Handling", DWORD style = 0) {
    return CreateWindowExA(0, className, "", style | (parent != nullptr ? WS_CHILD : 0), 0, 0, 50,
                           50, parent, nullptr, GetModuleHandleA(nullptr), nullptr);
}

HWND MakeShown(HWND parent, const char* className = "Handling", DWORD style = 0) {
    return Make(parent, className, style | WS_VISIBLE);
}

// Runs all that waits.
void Drain() {
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE))
        DispatchMessageA(&message);
}

void RunOnUserInterface(const std::function<void()>& body) {
    kit::StartProgram([&body] {
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = HandlingProcedure;
        windowClass.lpszClassName = "Handling";
        RegisterClassA(&windowClass);
        body();
        TheHandler() = nullptr;
        return 0;
    }).get();
}

TEST(Destruction, AChildDestroysItsSiblingWhileTheParentGoes) {
    RunOnUserInterface([] {
        for (const std::size_t destroyer : {0u, 1u}) {
            const HWND parent = MakeShown(nullptr);
            const std::vector<HWND> children{MakeShown(parent), MakeShown(parent)};
            TheHandler() = [&](HWND window, UINT message, WPARAM) {
                if (message == WM_DESTROY && window == children[destroyer])
                    DestroyWindow(children[1 - destroyer]);
            };
            EXPECT_TRUE(DestroyWindow(parent));
            EXPECT_FALSE(IsWindow(parent) || IsWindow(children[0]) || IsWindow(children[1]));
        }
    });
}

TEST(Destruction, AChildThatGoesTakesItsParentAlong) {
    RunOnUserInterface([] {
        const HWND parent = MakeShown(nullptr);
        const HWND child = MakeShown(parent);
        const HWND sibling = MakeShown(parent);
        TheHandler() = [&](HWND window, UINT message, WPARAM) {
            if (message == WM_DESTROY && window == child)
                DestroyWindow(parent);
        };
        EXPECT_TRUE(DestroyWindow(child));
        EXPECT_FALSE(IsWindow(parent) || IsWindow(child) || IsWindow(sibling));
    });
}

TEST(Destruction, AWindowDestroysItselfOrItsParentAsItLosesTheFocus) {
    RunOnUserInterface([] {
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
    });
}

TEST(Destruction, AWindowThatIsDestroyedWhileItIsMadeIsNotMade) {
    RunOnUserInterface([] {
        for (const UINT at : {UINT{WM_NCCREATE}, UINT{WM_CREATE}, UINT{WM_SIZE}, UINT{WM_MOVE},
                              UINT{WM_GETMINMAXINFO}, UINT{WM_SHOWWINDOW}}) {
            TheHandler() = [at](HWND window, UINT message, WPARAM) {
                if (message == at)
                    DestroyWindow(window);
            };
            EXPECT_EQ(MakeShown(nullptr, "Handling", WS_OVERLAPPEDWINDOW), nullptr)
                << "message " << at;
            EXPECT_EQ(FindWindowA("Handling", nullptr), nullptr) << "message " << at;
        }
    });
}

TEST(Destruction, AControlGoesWithItsOwnNotification) {
    struct Case {
        const char* className;
        DWORD style;
        int code;
        std::function<void(HWND control)> act;
    };
    const auto type = [](HWND control) { SendMessageA(control, WM_CHAR, 'x', 0); };
    const auto set = [](HWND control) { SetWindowTextA(control, "text"); };
    const auto choose = [](HWND control) { SendMessageA(control, WM_KEYDOWN, VK_DOWN, 0); };
    const auto click = [](HWND control) { SendMessageA(control, BM_CLICK, 0, 0); };
    const auto focus = [](HWND control) {
        SetFocus(control);
        SetFocus(GetParent(control));
    };
    const auto drop = [](HWND control) {
        SetFocus(control);
        SendMessageA(control, CB_SHOWDROPDOWN, TRUE, 0);
        SetFocus(GetParent(control));
    };
    const auto chooseOnScreen = [](HWND control) {
        vxd::input::RowDoubleClicked(vxd::HandleNumber(control), 1);
        Drain();
    };
    const auto editOnScreen = [](HWND control) {
        vxd::input::Edited(vxd::HandleNumber(control), "text", 4, 4);
        Drain();
    };
    const std::vector<Case> cases{
        {"Edit", 0, EN_UPDATE, type},
        {"Edit", 0, EN_UPDATE, set},
        {"Edit", 0, EN_CHANGE, type},
        {"Edit", 0, EN_CHANGE, set},
        {"Edit", 0, EN_UPDATE, editOnScreen},
        {"Edit", 0, EN_SETFOCUS, focus},
        {"Edit", 0, EN_KILLFOCUS, focus},
        {"ComboBox", CBS_DROPDOWNLIST, CBN_SELENDOK, choose},
        {"ComboBox", CBS_DROPDOWNLIST, CBN_SELCHANGE, choose},
        {"ComboBox", CBS_DROPDOWN, CBN_SELENDOK, chooseOnScreen},
        {"ComboBox", CBS_DROPDOWN, CBN_SELCHANGE, chooseOnScreen},
        {"ComboBox", CBS_DROPDOWN, CBN_EDITUPDATE, type},
        {"ComboBox", CBS_DROPDOWN, CBN_EDITUPDATE, editOnScreen},
        {"ComboBox", CBS_DROPDOWN, CBN_DROPDOWN, drop},
        {"ComboBox", CBS_DROPDOWN, CBN_CLOSEUP, drop},
        {"ComboBox", CBS_DROPDOWN, CBN_KILLFOCUS, focus},
        {"ListBox", LBS_NOTIFY, LBN_SELCHANGE, choose},
        {"ListBox", LBS_NOTIFY, LBN_DBLCLK, chooseOnScreen},
        {"ListBox", LBS_NOTIFY, LBN_SETFOCUS, focus},
        {"Button", BS_PUSHBUTTON, BN_CLICKED, click},
        {"Button", BS_AUTORADIOBUTTON, BN_CLICKED, click},
    };
    RunOnUserInterface([&] {
        for (const Case& each : cases) {
            const HWND parent = MakeShown(nullptr);
            const HWND control = MakeShown(parent, each.className, each.style);
            for (const char* row : {"one", "two"}) {
                SendMessageA(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
                SendMessageA(control, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
            }
            TheHandler() = [&](HWND window, UINT message, WPARAM wParam) {
                if (window == parent && message == WM_COMMAND && HIWORD(wParam) == each.code)
                    DestroyWindow(control);
            };
            each.act(control);
            EXPECT_FALSE(IsWindow(control)) << each.className << " at " << each.code;
            DestroyWindow(parent);
        }
    });
}

}  // namespace
