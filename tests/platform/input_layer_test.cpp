// What a screen reports reaches the program as Windows would bring it.
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

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
        case WM_GETDLGCODE:
            Told() += "asked ";
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

PROGRAM_TEST(Input, TheMenuKeysAskForTheMenuOfAWindowWhateverControlHasTheFocus) {
    const HWND window = MakeWindow();
    for (const HWND control :
         {MakeControl(window, "Button", BS_AUTORADIOBUTTON),
          MakeControl(window, "Button", BS_PUSHBUTTON), MakeControl(window, "ListBox", LBS_NOTIFY),
          MakeControl(window, "ScrollBar", SBS_HORZ)}) {
        SetFocus(control);
        Drain();
        for (const auto& key : {Press(VK_APPS), Press(VK_F10, "Shift")}) {
            EXPECT_TRUE(Strike(control, key));
            EXPECT_EQ(Drain(), "menu by key ") << "key " << key.virtualKey;
        }
    }
}

PROGRAM_TEST(Input, KeysOfAWindowAskForItsMenuOrCloseIt) {
    struct Case {
        vxd::input::KeyPress key;
        const char* told;
    };
    const HWND window = MakeWindow();
    for (const Case& each :
         {Case{Press(VK_APPS), "menu by key "}, Case{Press(VK_F10, "Shift"), "menu by key "},
          Case{Press(VK_F10), ""}, Case{Press(VK_F10, "Control"), ""},
          Case{Press(VK_F4, "Alt"), "close "}, Case{Press(VK_F4), ""}}) {
        EXPECT_TRUE(Strike(window, each.key));
        EXPECT_EQ(Drain(), each.told) << "key " << each.key.virtualKey;
    }
}

PROGRAM_TEST(Input, AClickOnTheSelectedRowTellsTheProgramAgain) {
    struct Case {
        const char* className;
        DWORD style;
        UINT add;
        std::string told;
    };
    const std::string chosen =
        "7:" + std::to_string(CBN_SELENDOK) + " 7:" + std::to_string(CBN_SELCHANGE) + " ";
    for (const Case& each :
         {Case{"ListBox", LBS_NOTIFY, LB_ADDSTRING, "7:" + std::to_string(LBN_SELCHANGE) + " "},
          Case{"ComboBox", CBS_DROPDOWNLIST, CB_ADDSTRING, chosen},
          Case{"ComboBox", CBS_DROPDOWN, CB_ADDSTRING, chosen}}) {
        const HWND list = MakeControl(MakeWindow(), each.className, each.style);
        SendMessageA(list, each.add, 0, reinterpret_cast<LPARAM>("row"));
        Drain();
        for (int click = 0; click < 2; ++click) {
            vxd::input::RowChosen(vxd::HandleNumber(list), 0);
            EXPECT_EQ(Drain(), each.told) << each.className << ", click " << click;
        }
    }
}

// It is none of the controls that a walk through its group meets, so the walk must know its end.
PROGRAM_TEST(Input, AHiddenRadioButtonCanBeClicked) {
    const HWND window = MakeWindow();
    const HWND radio = MakeControl(window, "Button", BS_AUTORADIOBUTTON);
    const HWND shown = MakeControl(window, "Button", BS_AUTORADIOBUTTON);
    SendMessageA(shown, BM_SETCHECK, BST_CHECKED, 0);
    ShowWindow(radio, SW_HIDE);
    SendMessageA(radio, BM_CLICK, 0, 0);
    EXPECT_EQ(SendMessageA(radio, BM_GETCHECK, 0, 0), BST_CHECKED);
    EXPECT_EQ(SendMessageA(shown, BM_GETCHECK, 0, 0), BST_UNCHECKED);
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

PROGRAM_TEST(Input, WaitsForACallerThatTakesIt) {
    const HWND window = MakeWindow();
    const HWND button = MakeControl(window, "Button", BS_PUSHBUTTON);
    Drain();
    vxd::input::Clicked(vxd::HandleNumber(button));
    MSG message;
    EXPECT_FALSE(PeekMessageA(&message, nullptr, WM_TIMER, WM_TIMER, PM_REMOVE));
    SetTimer(window, 1, 10, nullptr);
    EXPECT_TRUE(GetMessageA(&message, nullptr, WM_TIMER, WM_TIMER));
    EXPECT_EQ(message.message, static_cast<UINT>(WM_TIMER));
    KillTimer(window, 1);
    EXPECT_EQ(Told(), "") << "it ran although nobody took it";
    EXPECT_EQ(Drain(), "7:0 ");
}

std::string TextOf(HWND window) {
    char text[64];
    GetWindowTextA(window, text, sizeof text);
    return text;
}

PROGRAM_TEST(Input, AnEditGoesIntoTheTextThatTheProgramHasSetMeanwhile) {
    struct Case {
        const char* before;
        const char* edited;
        const char* set;  // by the program, before the edit has its turn
        const char* after;
    };
    for (const char* className : {"Edit", "ComboBox"}) {
        const HWND edit =
            MakeControl(MakeWindow(), className, *className == 'E' ? 0 : CBS_DROPDOWN);
        for (const Case& each :
             {Case{"0x12", "0x123", "0x98", "0x983"}, Case{"0x12", "0x12", "0x98", "0x98"},
              Case{"0x12", "0x132", "", "3"}, Case{"0x12", "0x2", "0xABC", "0xBC"},
              Case{"a\xC3\xA4", "a\xC3\xA9", "xyz", "x\xC3\xA9"}}) {
            SetWindowTextA(edit, each.before);
            Drain();
            vxd::input::Edited(vxd::HandleNumber(edit), each.edited, 0, 0);
            SetWindowTextA(edit, each.set);
            Drain();
            EXPECT_EQ(TextOf(edit), each.after) << className << ": " << each.edited;
        }
    }
}

PROGRAM_TEST(Input, AnEditOfDigitsAloneLooksAtWhatIsPutIn) {
    struct Case {
        const char* edited;
        const char* after;
    };
    const HWND edit = MakeControl(MakeWindow(), "Edit", ES_NUMBER);
    for (const Case& each :
         {Case{"Prev5", "Prev5"}, Case{"1Prev", "1Prev"}, Case{"77", "77"}, Case{"Pr", "Pr"},
          Case{"Prevx", "Prev"}, Case{"ab", "Prev"}, Case{"Pr5x", "Prev"}}) {
        SetWindowTextA(edit, "Prev");
        vxd::input::Edited(vxd::HandleNumber(edit), each.edited, 0, 0);
        Drain();
        EXPECT_EQ(TextOf(edit), each.after) << each.edited;
    }
}

PROGRAM_TEST(Input, AChosenRowStaysThatRowUntilItsTurn) {
    struct Case {
        UINT message;
        WPARAM row;
        int chosen;  // -1: nothing, for the row is gone
    };
    for (const Case& each :
         {Case{LB_INSERTSTRING, 0, 2}, Case{LB_INSERTSTRING, 2, 1}, Case{LB_DELETESTRING, 0, 0},
          Case{LB_DELETESTRING, 1, -1}, Case{LB_RESETCONTENT, 0, -1}}) {
        const HWND list = MakeControl(MakeWindow(), "ListBox", LBS_NOTIFY);
        const auto text = reinterpret_cast<LPARAM>("row");
        for (int row = 0; row < 3; ++row)
            SendMessageA(list, LB_ADDSTRING, 0, text);
        Drain();
        vxd::input::RowChosen(vxd::HandleNumber(list), 1);
        SendMessageA(list, each.message, each.row, text);
        const std::string told = each.chosen < 0 ? "" : "7:" + std::to_string(LBN_SELCHANGE) + " ";
        EXPECT_EQ(Drain(), told) << each.message << " at " << each.row;
        EXPECT_EQ(SendMessageA(list, LB_GETCURSEL, 0, 0), each.chosen);
    }
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
    for (const bool isEdit : {true, false}) {
        const HWND edit =
            MakeControl(MakeWindow(), isEdit ? "Edit" : "ComboBox", isEdit ? 0 : CBS_DROPDOWN);
        const auto id = vxd::HandleNumber(edit);
        SetWindowTextA(edit, "0x98");
        vxd::input::SelectionMoved(id, 2, 3);
        Drain();
        vxd::input::Edited(id, "0x98", 3, 3);
        const auto told = [](int code) { return "7:" + std::to_string(code) + " "; };
        EXPECT_EQ(Drain(), isEdit ? told(EN_UPDATE) + told(EN_CHANGE)
                                  : told(CBN_EDITUPDATE) + told(CBN_EDITCHANGE));
        EXPECT_EQ(SendMessageA(edit, isEdit ? EM_GETSEL : CB_GETEDITSEL, 0, 0), MAKELONG(3, 3));
        vxd::input::Edited(id, "0x98", 4, 4);
        EXPECT_EQ(Drain(), "");
    }
}

PROGRAM_TEST(Input, AReadOnlyEditKeepsItsText) {
    const HWND edit = MakeControl(MakeWindow(), "Edit", ES_READONLY);
    SetWindowTextA(edit, "0x0A");
    Drain();
    vxd::input::Edited(vxd::HandleNumber(edit), "0x0B", 4, 4);
    EXPECT_EQ(Drain(), "");
    EXPECT_EQ(TextOf(edit), "0x0A");
}

// A screen reports keys from within its native events, where no program code may run.
PROGRAM_TEST(Input, AKeyAsksTheProgramNothingBeforeItsTurn) {
    MakeWindow();  // its class
    const auto procedure = [](HWND dialog, UINT message, WPARAM, LPARAM) -> INT_PTR {
        if (message != WM_INITDIALOG)
            return FALSE;
        const HWND own = MakeControl(dialog, "Telling", WS_TABSTOP);
        SetWindowTextA(own, "&Own");
        Told().clear();
        for (const HWND focus : {GetDlgItem(dialog, IDOK), own}) {
            vxd::input::KeyPress letter = Press('O');
            letter.character = 'o';
            EXPECT_TRUE(vxd::input::KeyPressed(vxd::HandleNumber(focus), letter));
            EXPECT_TRUE(vxd::input::KeyPressed(vxd::HandleNumber(focus), Press(VK_TAB)));
        }
        EXPECT_EQ(Told(), "");
        EndDialog(dialog, 1);
        return TRUE;
    };
    EXPECT_EQ(DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_ABOUT), nullptr,
                              +procedure, 0),
              1);
}

PROGRAM_TEST(Placement, ADialogStaysInsideTheWorkAreaWhereverItsOwnerIs) {
    const vxd::Rect area = vxd::CurrentScreen().WorkArea();
    for (const vxd::Point corner : {vxd::Point{5000, 5000}, vxd::Point{-5000, -5000}}) {
        const auto procedure = [](HWND dialog, UINT message, WPARAM, LPARAM place) -> INT_PTR {
            if (message == WM_INITDIALOG) {
                GetWindowRect(dialog, reinterpret_cast<RECT*>(place));
                EndDialog(dialog, 1);
            }
            return TRUE;
        };
        RECT place{};
        ASSERT_EQ(DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_ABOUT),
                                  MakeWindow(corner.x, corner.y), +procedure,
                                  reinterpret_cast<LPARAM>(&place)),
                  1);
        EXPECT_GE(place.left, area.x);
        EXPECT_GE(place.top, area.y);
        EXPECT_LE(place.right, area.x + area.width);
        EXPECT_LE(place.bottom, area.y + area.height);
    }
}

}  // namespace
