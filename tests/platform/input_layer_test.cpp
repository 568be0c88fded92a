// What a screen reports reaches the program as Windows would bring it.
#include "platform/core/window.h"
#include "platform/screen.h"
#include "res/resource.h"
#include "tests/kit/user_interface.h"

namespace {

// What the window was told, as words. User-interface thread.
std::string& Told() {
    static std::string told;
    return told;
}

LRESULT CALLBACK TellingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_CONTEXTMENU:
            Told() += lParam == -1 ? "menu by key " : "menu ";
            return 0;
        case WM_CLOSE:
            Told() += "close ";
            return 0;
        case WM_HSCROLL:
            Told() += "scroll " + std::to_string(LOWORD(wParam)) + " ";
            return 0;
        case WM_COMMAND:
            Told() += std::to_string(LOWORD(wParam)) + ":" + std::to_string(HIWORD(wParam)) + " ";
            return 0;
        default:
            return DefWindowProcA(window, message, wParam, lParam);
    }
}

HWND MakeWindow(int x = 0, int y = 0) {
    kit::RegisterWindowClass("Telling", TellingProcedure);
    return CreateWindowExA(0, "Telling", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, x, y, 200, 100,
                           nullptr, nullptr, nullptr, nullptr);
}

HWND MakeControl(HWND parent, const char* className, DWORD style) {
    return CreateWindowExA(0, className, "", style | WS_CHILD | WS_VISIBLE, 0, 0, 50, 50, parent,
                           reinterpret_cast<HMENU>(INT_PTR{7}), nullptr, nullptr);
}

// Runs all that waits and gives what the window was told by it.
std::string Drain() {
    Told().clear();
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        TranslateMessage(&message);
        DispatchMessageA(&message);
    }
    return Told();
}

vxd::input::KeyPress Press(std::uint32_t key, const char* with = "") {
    const std::string held = with;
    const auto holds = [&held](const char* name) { return held.find(name) != std::string::npos; };
    return {key, 0, holds("Shift"), holds("Control"), holds("Alt")};
}

// A key goes down and up; gives whether the core takes it.
bool Strike(HWND focus, const vxd::input::KeyPress& key) {
    const bool taken = vxd::input::KeyPressed(vxd::HandleNumber(focus), key);
    if (taken) {
        vxd::input::KeyReleased(key);
    }
    return taken;
}

PROGRAM_TEST(Input, AKeyThatIsHeldGoesDownAgainAndAgainAndComesUpOnce) {
    const HWND bar = MakeControl(MakeWindow(), "ScrollBar", SBS_HORZ);
    SetFocus(bar);
    Drain();
    for (int times = 0; times < 3; ++times) {
        EXPECT_TRUE(vxd::input::KeyPressed(vxd::HandleNumber(bar), Press(VK_RIGHT)));
    }
    vxd::input::KeyReleased(Press(VK_RIGHT));
    EXPECT_EQ(Drain(), "scroll 1 scroll 1 scroll 1 scroll 8 ");
}

PROGRAM_TEST(Input, KeysAskForTheMenuOfAWindowOrCloseItWhateverControlHasTheFocus) {
    const HWND window = MakeWindow();
    for (const HWND focus :
         {window, MakeControl(window, "Button", BS_AUTORADIOBUTTON),
          MakeControl(window, "ListBox", LBS_NOTIFY), MakeControl(window, "ScrollBar", SBS_HORZ)}) {
        SetFocus(focus);
        Drain();
        for (const auto& key : {Press(VK_APPS), Press(VK_F10, "Shift"), Press(VK_F10),
                                Press(VK_F4, "Alt"), Press(VK_F4)})
            Strike(focus, key);
        EXPECT_EQ(Drain(),
                  focus == window ? "menu by key menu by key close " : "menu by key menu by key ");
    }
}

PROGRAM_TEST(Input, AClickOnTheSelectedRowTellsTheProgramAgain) {
    for (const bool isList : {true, false}) {
        const HWND list = isList ? MakeControl(MakeWindow(), "ListBox", LBS_NOTIFY)
                                 : MakeControl(MakeWindow(), "ComboBox", CBS_DROPDOWNLIST);
        SendMessageA(list, isList ? LB_ADDSTRING : CB_ADDSTRING, 0,
                     reinterpret_cast<LPARAM>("row"));
        Drain();
        for (int click = 0; click < 2; ++click) {
            vxd::input::RowChosen(vxd::HandleNumber(list), 0);
            EXPECT_EQ(Drain(), isList ? "7:1 " : "7:9 7:1 ") << "click " << click;
        }
    }
}

PROGRAM_TEST(Input, ComesBehindWhatIsPostedAndBeforePainting) {
    const HWND window = MakeWindow();
    const HWND button = MakeControl(window, "Button", BS_PUSHBUTTON);
    Drain();
    InvalidateRect(window, nullptr, TRUE);
    vxd::input::Clicked(vxd::HandleNumber(button));
    PostMessageA(window, WM_APP, 0, 0);
    Told().clear();
    std::string order;
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        order += std::exchange(Told(), {});
        order += message.message == WM_APP     ? "posted "
                 : message.message == WM_PAINT ? "paint "
                                               : "";
        DispatchMessageA(&message);
    }
    EXPECT_EQ(order, "posted 7:0 paint ");
}

// An edit's text, by what a person has made of it and what the program has set before its turn.
std::string Edit(HWND edit, const char* before, const char* edited, const char* set) {
    SetWindowTextA(edit, before);
    Drain();
    vxd::input::Edited(vxd::HandleNumber(edit), edited, 0, 0);
    SetWindowTextA(edit, set);
    Drain();
    char text[64];
    GetWindowTextA(edit, text, sizeof text);
    return text;
}

PROGRAM_TEST(Input, AnEditGoesIntoTheTextThatTheProgramHasSetMeanwhile) {
    for (const HWND edit : {MakeControl(MakeWindow(), "Edit", 0),
                            MakeControl(MakeWindow(), "ComboBox", CBS_DROPDOWN)}) {
        EXPECT_EQ(Edit(edit, "0x12", "0x123", "0x98"), "0x983");
        EXPECT_EQ(Edit(edit, "0x12", "0x132", ""), "3");
        EXPECT_EQ(Edit(edit, "0x12", "0x2", "0xABC"), "0xBC");
        EXPECT_EQ(Edit(edit, "a\xC3\xA4", "a\xC3\xA9", "xyz"), "x\xC3\xA9");
    }
}

PROGRAM_TEST(Input, AnEditOfDigitsAloneAndAReadOnlyOneLookAtWhatIsPutIn) {
    const HWND digits = MakeControl(MakeWindow(), "Edit", ES_NUMBER);
    EXPECT_EQ(Edit(digits, "Prev", "1Prev", "Prev"), "1Prev");
    EXPECT_EQ(Edit(digits, "Prev", "Pr", "Prev"), "Pr");
    EXPECT_EQ(Edit(digits, "Prev", "Pr5x", "Prev"), "Prev");
    const HWND fixed = MakeControl(MakeWindow(), "Edit", ES_READONLY);
    EXPECT_EQ(Edit(fixed, "0x0A", "0x0B", "0x0A"), "0x0A");
}

PROGRAM_TEST(Input, AChosenRowStaysThatRowUntilItsTurn) {
    const auto text = reinterpret_cast<LPARAM>("row");
    // The second of three rows is chosen; gives which one is when the program has acted meanwhile.
    const auto chosenAfter = [text](UINT message, WPARAM row) {
        const HWND list = MakeControl(MakeWindow(), "ListBox", LBS_NOTIFY);
        for (int count = 0; count < 3; ++count)
            SendMessageA(list, LB_ADDSTRING, 0, text);
        vxd::input::RowChosen(vxd::HandleNumber(list), 1);
        SendMessageA(list, message, row, text);
        const bool told = !Drain().empty();
        const LRESULT chosen = SendMessageA(list, LB_GETCURSEL, 0, 0);
        EXPECT_EQ(told, chosen >= 0);
        return chosen;
    };
    EXPECT_EQ(chosenAfter(LB_INSERTSTRING, 0), 2);
    EXPECT_EQ(chosenAfter(LB_DELETESTRING, 0), 0);
    EXPECT_EQ(chosenAfter(LB_DELETESTRING, 1), LB_ERR) << "it is gone";
    EXPECT_EQ(chosenAfter(LB_RESETCONTENT, 0), LB_ERR);
}

// A dialog may have come between what a person did and its turn.
PROGRAM_TEST(Input, CountsForNothingInAWindowThatIsDisabledByThen) {
    const HWND window = MakeWindow();
    const HWND button = MakeControl(window, "Button", BS_PUSHBUTTON);
    const HWND other = MakeWindow();
    SetFocus(window);
    Drain();
    const vxd::WidgetId id = vxd::HandleNumber(window);
    vxd::input::MenuChosen(id, 9);
    vxd::input::Clicked(vxd::HandleNumber(button));
    vxd::input::Mouse(id, WM_RBUTTONUP, {1, 1});
    vxd::input::CloseRequested(id);
    EXPECT_TRUE(Strike(window, Press(VK_APPS)));
    EnableWindow(window, FALSE);
    SetFocus(other);
    EXPECT_TRUE(vxd::input::Waits());
    EXPECT_EQ(Drain(), "menu by key ") << "only the key has somewhere to go";
    EXPECT_FALSE(vxd::input::Waits());
}

PROGRAM_TEST(Input, TheSameTypedOverItselfIsAChangeAndMovesTheCaret) {
    const HWND edit = MakeControl(MakeWindow(), "Edit", 0);
    SetWindowTextA(edit, "0x98");
    vxd::input::SelectionMoved(vxd::HandleNumber(edit), 2, 3);
    Drain();
    vxd::input::Edited(vxd::HandleNumber(edit), "0x98", 3, 3);
    EXPECT_NE(Drain(), "");
    EXPECT_EQ(SendMessageA(edit, EM_GETSEL, 0, 0), MAKELONG(3, 3));
}

PROGRAM_TEST(Placement, ADialogStaysInsideTheWorkAreaWhereverItsOwnerIs) {
    const auto procedure = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message == WM_INITDIALOG) {
            const vxd::Rect area = vxd::CurrentScreen().WorkArea();
            RECT place{};
            GetWindowRect(dialog, &place);
            EXPECT_GE(place.left, area.x);
            EXPECT_GE(place.top, area.y);
            EXPECT_LE(place.right, area.x + area.width);
            EXPECT_LE(place.bottom, area.y + area.height);
            EndDialog(dialog, 1);
        }
        return TRUE;
    };
    for (const int corner : {5000, -5000}) {
        EXPECT_EQ(DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_ABOUT),
                                  MakeWindow(corner, corner), +procedure, 0),
                  1);
    }
}

}  // namespace
