// Whatever a program destroys while it is called back, the layer carries on.
#include <gtest/gtest.h>

#include <array>
#include <functional>
#include <set>
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

PROGRAM_TEST(Destruction, AWindowThatIsDestroyedWhileItIsMadeIsNotMade) {
    for (const UINT at : {UINT{WM_NCCREATE}, UINT{WM_CREATE}, UINT{WM_SIZE}, UINT{WM_MOVE},
                          UINT{WM_GETMINMAXINFO}, UINT{WM_SHOWWINDOW}}) {
        TheHandler() = [at](HWND window, UINT message, WPARAM) {
            if (message == at)
                DestroyWindow(window);
        };
        EXPECT_EQ(MakeShown(nullptr, "Handling", WS_OVERLAPPEDWINDOW), nullptr) << "message " << at;
        EXPECT_EQ(FindWindowA("Handling", nullptr), nullptr) << "message " << at;
    }
}

PROGRAM_TEST(Destruction, AChildOfAWindowThatIsGoingIsRefused) {
    for (const UINT at : {UINT{WM_DESTROY}, UINT{WM_NCDESTROY}}) {
        const HWND parent = MakeShown(nullptr);
        const HWND child = MakeShown(parent);
        int asked = 0;
        TheHandler() = [&](HWND window, UINT message, WPARAM) {
            if (message != at)
                return;
            ++asked;
            EXPECT_EQ(MakeShown(window), nullptr);
            EXPECT_EQ(MakeShown(child), nullptr) << "its parent is going";
        };
        DestroyWindow(parent);
        EXPECT_EQ(asked, 2);
    }
}

PROGRAM_TEST(Destruction, APopupMenuEndsWithItsWindow) {
    for (const bool byParent : {false, true}) {
        const HWND parent = MakeShown(nullptr);
        const HWND child = MakeShown(parent);
        TheHandler() = [=](HWND, UINT message, WPARAM) {
            if (message == WM_APP)
                DestroyWindow(byParent ? parent : child);
        };
        const HMENU menu = CreatePopupMenu();
        AppendMenuA(menu, MF_STRING, 41, "only");
        PostMessageA(parent, WM_APP, 0, 0);
        EXPECT_EQ(TrackPopupMenu(menu, TPM_RETURNCMD, 0, 0, 0, child, nullptr), 0);
        EXPECT_FALSE(IsWindow(child));
        DestroyMenu(menu);
        TheHandler() = nullptr;
        DestroyWindow(parent);
    }
}

PROGRAM_TEST(Arguments, ANullTextIsAnEmptyOne) {
    const HWND parent = MakeShown(nullptr);
    const HWND list = MakeShown(parent, "ListBox", LBS_NOTIFY);
    const HWND combo = MakeShown(parent, "ComboBox", CBS_DROPDOWN);
    const HWND edit = MakeShown(parent, "Edit");
    for (const UINT message : {LB_ADDSTRING, LB_INSERTSTRING, LB_FINDSTRING, LB_SELECTSTRING,
                               LB_FINDSTRINGEXACT, WM_SETTEXT})
        SendMessageA(list, message, 0, 0);
    EXPECT_EQ(SendMessageA(list, LB_GETCOUNT, 0, 0), 2);
    EXPECT_EQ(SendMessageA(list, LB_GETTEXTLEN, 1, 0), 0);
    for (const UINT message : {CB_ADDSTRING, CB_INSERTSTRING, CB_FINDSTRING, CB_SELECTSTRING,
                               CB_FINDSTRINGEXACT, WM_SETTEXT})
        SendMessageA(combo, message, 0, 0);
    EXPECT_EQ(SendMessageA(combo, CB_GETCOUNT, 0, 0), 2);
    SendMessageA(edit, WM_SETTEXT, 0, 0);
    EXPECT_EQ(GetWindowTextLengthA(edit), 0);
}

PROGRAM_TEST(Destruction, AControlGoesWithItsOwnNotification) {
    struct Kind {
        const char* className;
        DWORD style;
    };
    constexpr std::array kKinds{Kind{"Edit", 0},
                                Kind{"ComboBox", CBS_DROPDOWNLIST},
                                Kind{"ComboBox", CBS_DROPDOWN},
                                Kind{"ListBox", LBS_NOTIFY},
                                Kind{"Button", BS_PUSHBUTTON},
                                Kind{"Button", BS_AUTORADIOBUTTON}};
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
        [](HWND control) {
            vxd::input::RowDoubleClicked(vxd::HandleNumber(control), 1);
            Drain();
        },
        [](HWND control) {
            vxd::input::Edited(vxd::HandleNumber(control), "text", 4, 4);
            Drain();
        }};
    // What a new control tells on the action; it is destroyed when it tells `fatal`.
    const auto codesOf = [](const Kind& kind, const std::function<void(HWND)>& act, int fatal) {
        const HWND parent = MakeShown(nullptr);
        const HWND control = MakeShown(parent, kind.className, kind.style);
        for (const char* row : {"one", "two"}) {
            SendMessageA(control, CB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
            SendMessageA(control, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(row));
        }
        std::set<int> codes;
        TheHandler() = [&](HWND window, UINT message, WPARAM wParam) {
            if (window != parent || message != WM_COMMAND)
                return;
            codes.insert(HIWORD(wParam));
            if (HIWORD(wParam) == fatal)
                DestroyWindow(control);
        };
        act(control);
        EXPECT_EQ(IsWindow(control) != FALSE, !codes.contains(fatal))
            << kind.className << " at " << fatal;
        DestroyWindow(parent);
        TheHandler() = nullptr;
        return codes;
    };
    std::size_t destroyed = 0;
    for (const Kind& kind : kKinds) {
        for (const auto& act : actions) {
            const std::set<int> codes = codesOf(kind, act, -1);
            for (const int code : codes)
                EXPECT_TRUE(codesOf(kind, act, code).contains(code));
            destroyed += codes.size();
        }
    }
    EXPECT_GE(destroyed, 36u);
}

}  // namespace
