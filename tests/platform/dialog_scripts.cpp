// Random scripts in the utility's own dialogs: what a person's keys and a program's calls make each
// tell, and what its controls then hold, written to standard output. The same seed makes the same
// script on every system, so two systems are held against each other by comparing what they write.
//
//   dialog_scripts SEED [STEPS]      so many steps in each dialog, 40 unless told
//
// Left out is what is known to differ, with the reason where it is left out.
#include <cctype>
#include <cstdio>
#include <random>

#include "tests/kit/user_interface.h"

namespace {

constexpr int kFirstNumber = 100;
constexpr int kLastNumber = 4999;

// The dialog that is open. Belongs to the user-interface thread.
struct Open {
    HWND dialog = nullptr;
    std::vector<HWND> controls;
    std::vector<std::string> states;
    std::string focus;
};

Open& TheOpen() {
    static Open open;
    return open;
}

std::mt19937& Chance() {
    static std::mt19937 chance;
    return chance;
}

int Below(std::size_t limit) {
    return static_cast<int>(Chance()() % limit);
}

template <typename Value, std::size_t kCount>
Value OneOf(const Value (&values)[kCount]) {
    return values[Below(kCount)];
}

std::string ClassOf(HWND window) {
    char name[32] = "";
    GetClassNameA(window, name, sizeof name);
    return name;
}

std::string TextOf(HWND window) {
    char text[400] = "";
    GetWindowTextA(window, text, sizeof text);
    std::string shown = text;
    std::replace(shown.begin(), shown.end(), '\r', '\\');
    std::replace(shown.begin(), shown.end(), '\n', '/');
    return shown;
}

DWORD StyleOf(HWND window) {
    return static_cast<DWORD>(GetWindowLongPtrA(window, GWL_STYLE));
}

bool Takes(HWND window) {
    return IsWindowVisible(window) && IsWindowEnabled(window);
}

// A control's place in the dialog; a combo box may be made of several windows.
int PlaceOf(HWND window) {
    const auto& controls = TheOpen().controls;
    while (window != nullptr && window != TheOpen().dialog && GetParent(window) != TheOpen().dialog)
        window = GetParent(window);
    const auto found = std::find(controls.begin(), controls.end(), window);
    return found != controls.end() ? static_cast<int>(found - controls.begin()) : -1;
}

HWND FocusedControl() {
    const int place = PlaceOf(GetFocus());
    return place >= 0 ? TheOpen().controls[static_cast<std::size_t>(place)] : nullptr;
}

enum class Kind { kStatic, kPush, kCheck, kRadio, kEdit, kLines, kList, kDropList, kCombo, kOther };

Kind KindOf(HWND control) {
    const std::string name = ClassOf(control);
    const DWORD style = StyleOf(control);
    if (name == "Button") {
        const LRESULT code = SendMessageA(control, WM_GETDLGCODE, 0, 0);
        if ((code & DLGC_STATIC) != 0)
            return Kind::kStatic;
        if ((code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) != 0)
            return Kind::kPush;
        return (code & DLGC_RADIOBUTTON) != 0 ? Kind::kRadio : Kind::kCheck;
    }
    if (name == "Edit")
        return (style & ES_MULTILINE) != 0 ? Kind::kLines : Kind::kEdit;
    if (name == "ListBox")
        return Kind::kList;
    if (name == "ComboBox")
        return (style & CBS_DROPDOWNLIST) == CBS_DROPDOWNLIST ? Kind::kDropList : Kind::kCombo;
    return name == "Static" ? Kind::kStatic : Kind::kOther;
}

std::string StateOf(HWND control) {
    const Kind kind = KindOf(control);
    const auto ask = [control](UINT message) {
        return std::to_string(static_cast<int>(SendMessageA(control, message, 0, 0)));
    };
    std::string state = std::string(IsWindowEnabled(control) ? "" : " disabled") +
                        (IsWindowVisible(control) ? "" : " hidden") +
                        ((StyleOf(control) & WS_TABSTOP) != 0 ? " stop" : "");
    if (kind != Kind::kStatic)  // Wine gives an icon's number as its text
        state += " \"" + TextOf(control) + '"';
    if (kind == Kind::kCheck || kind == Kind::kRadio)
        state += " check " + ask(BM_GETCHECK);
    if (kind == Kind::kEdit || kind == Kind::kLines)
        state += " selection " + ask(EM_GETSEL);
    if (kind == Kind::kList)
        state += " row " + ask(LB_GETCURSEL) + " of " + ask(LB_GETCOUNT);
    if (kind == Kind::kDropList || kind == Kind::kCombo)
        state += " row " + ask(CB_GETCURSEL) + " of " + ask(CB_GETCOUNT);
    return state;
}

// Writes down what has changed.
void Describe() {
    Open& open = TheOpen();
    const HWND focus = GetFocus();
    const std::string where = focus == nullptr       ? "nothing"
                              : focus == open.dialog ? "dialog"
                                                     : std::to_string(PlaceOf(focus));
    if (where != open.focus)
        std::printf("  focus %s\n", (open.focus = where).c_str());
    open.states.resize(open.controls.size());
    for (std::size_t place = 0; place < open.controls.size(); ++place) {
        const std::string state = StateOf(open.controls[place]);
        if (state != open.states[place])
            std::printf("  %zu:%s\n", place, (open.states[place] = state).c_str());
    }
}

INT_PTR CALLBACK Procedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    // Only what the layer knows too: Windows tells of more that no program here asks for.
    static const std::vector<int> told = {BN_CLICKED,   EN_SETFOCUS,   EN_KILLFOCUS, EN_CHANGE,
                                          EN_UPDATE,    LBN_SELCHANGE, LBN_SETFOCUS, LBN_KILLFOCUS,
                                          CBN_SETFOCUS, CBN_SELENDOK};
    if (message == WM_INITDIALOG) {
        Open& open = TheOpen() = {};
        open.dialog = dialog;
        for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT))
            open.controls.push_back(child);
        std::printf("dialog %d\n  first %d\n", static_cast<int>(lParam),
                    PlaceOf(reinterpret_cast<HWND>(wParam)));
        for (const HWND control : open.controls) {
            const Kind kind = KindOf(control);
            const bool list = kind == Kind::kList;
            for (int row = list || kind == Kind::kDropList ? 5 : 0; row > 0; --row) {
                SendMessageA(control, list ? LB_ADDSTRING : CB_ADDSTRING, 0,
                             reinterpret_cast<LPARAM>(OneOf({"Ab", "abc", "Bee", "cab", "12"})));
            }
            if (list || kind == Kind::kDropList) {
                SendMessageA(control, list ? LB_SETCURSEL : CB_SETCURSEL,
                             static_cast<WPARAM>(Below(5)), 0);
            }
            if (kind == Kind::kRadio && Below(3) == 0)
                SendMessageA(control, BM_SETCHECK, BST_CHECKED, 0);
            if (kind == Kind::kEdit)
                SetWindowTextA(control, OneOf({"", "1", "0x1F", "abc"}));
        }
        return TRUE;
    }
    if (message == WM_COMMAND &&
        std::find(told.begin(), told.end(), HIWORD(wParam)) != told.end()) {
        std::printf("  command %d %d of %d\n", LOWORD(wParam), HIWORD(wParam),
                    lParam != 0 ? PlaceOf(reinterpret_cast<HWND>(lParam)) : -1);
    }
    return message == WM_COMMAND;
}

// Whether a static is in the group of a control: Wine's arrows stop at it.
bool SharesGroupWithStatic(HWND control) {
    const auto& controls = TheOpen().controls;
    const int count = static_cast<int>(controls.size());
    const auto at = [&](int place) {
        return controls[static_cast<std::size_t>((place + count) % count)];
    };
    const int start = PlaceOf(control);
    int first = start;
    while (first > start - count && (StyleOf(at(first)) & WS_GROUP) == 0)
        --first;
    for (int place = first;
         place < first + count && (place == first || (StyleOf(at(place)) & WS_GROUP) == 0);
         ++place) {
        if (KindOf(at(place)) == Kind::kStatic)
            return true;
    }
    return false;
}

// The letter that a caption marks, where no other control has the same one: which of several Wine
// presses is its own affair. 0 where there is none.
char OwnLetterOf(HWND control) {
    std::map<char, int> uses;
    const auto letterOf = [](HWND window) {
        const std::string text = TextOf(window);
        const std::size_t mark = text.find('&');
        const std::string name = ClassOf(window);
        const bool shown = name == "Button" || name == "Static";
        return shown && mark + 1 < text.size() && mark != text.npos
                   ? static_cast<char>(std::tolower(static_cast<unsigned char>(text[mark + 1])))
                   : '\0';
    };
    for (const HWND each : TheOpen().controls)
        ++uses[letterOf(each)];
    const char letter = Takes(control) ? letterOf(control) : '\0';
    return uses[letter] == 1 ? letter : '\0';
}

// The keys that lead to the same on both systems, by who has the focus. Not in: Enter in a push
// button that was clicked (Wine does not make it the default one), what depends on how lines are
// broken, typing into a combo box (Wine selects its text only once) and keys in a scroll bar (Wine
// does not tell of their end).
std::vector<WPARAM> KeysFor(HWND focus) {
    std::vector<WPARAM> keys = {VK_TAB, VK_TAB, VK_TAB, VK_ESCAPE};
    const auto add = [&keys](std::initializer_list<WPARAM> more) { keys.insert(keys.end(), more); };
    if (focus == nullptr)
        return keys;
    const Kind kind = KindOf(focus);
    if (kind != Kind::kPush)
        add({VK_RETURN});
    switch (kind) {
        case Kind::kEdit:
            add({VK_HOME, VK_END, VK_UP, VK_DOWN});
            [[fallthrough]];
        case Kind::kLines:
            add({VK_LEFT, VK_RIGHT, VK_BACK, VK_DELETE, 'A', 'B', '1', '1'});
            break;
        case Kind::kList:
        case Kind::kDropList:
            add({VK_UP, VK_DOWN, VK_HOME, VK_END, VK_SPACE});
            break;
        case Kind::kPush:
        case Kind::kCheck:
        case Kind::kRadio:
            add({VK_SPACE, VK_SPACE});
            if (!SharesGroupWithStatic(focus))
                add({VK_LEFT, VK_UP, VK_RIGHT, VK_DOWN});
            break;
        default:
            break;
    }
    return keys;
}

void PressKey() {
    const HWND focus = FocusedControl();
    const std::vector<WPARAM> keys = KeysFor(focus);
    const WPARAM key = keys[static_cast<std::size_t>(Below(keys.size()))];
    const HWND target = focus != nullptr ? GetFocus() : TheOpen().dialog;
    std::printf("key %u\n", static_cast<unsigned>(key));
    PostMessageA(target, WM_KEYDOWN, key, 0);
    PostMessageA(target, WM_KEYUP, key, 0);
}

void PressLetter(HWND control) {
    const char letter = OwnLetterOf(control);
    const HWND focus = FocusedControl();
    // From a label back to where it was Wine takes the focus all the same.
    if (letter == '\0' || (KindOf(control) == Kind::kStatic &&
                           GetNextDlgTabItem(TheOpen().dialog, control, FALSE) == focus))
        return;
    std::printf("letter %c\n", letter);
    PostMessageA(focus != nullptr ? GetFocus() : TheOpen().dialog, WM_SYSCHAR,
                 static_cast<WPARAM>(letter), 0x20000000);
}

void ActAsProgram(HWND control) {
    const HWND dialog = TheOpen().dialog;
    const int place = PlaceOf(control);
    const Kind kind = KindOf(control);
    const int what = Below(7);
    std::printf("program %d on %d\n", what, place);
    switch (what) {
        case 0:
            // Wine sends the command of a Cancel button that is disabled.
            if (kind != Kind::kStatic && GetDlgCtrlID(control) != IDCANCEL)
                EnableWindow(control, Below(3) != 0);
            break;
        case 1:
            // Wine looks for ever for a radio button of a group that has none to be seen.
            if (kind == Kind::kEdit || kind == Kind::kCheck)
                ShowWindow(control, Below(3) != 0 ? SW_SHOW : SW_HIDE);
            break;
        case 2:
        case 3:
            // Wine tells of a focus that a combo box loses to itself.
            if (!Takes(control) || kind == Kind::kStatic || control == FocusedControl())
                break;
            if (what == 2) {
                SetFocus(control);
            } else {
                SendMessageA(dialog, WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control), TRUE);
            }
            break;
        case 4:
            if (kind == Kind::kEdit)
                SetWindowTextA(control, OneOf({"", "1", "two words"}));
            break;
        case 5:
            if (kind == Kind::kCheck || kind == Kind::kRadio)
                SendMessageA(control, BM_SETCHECK, static_cast<WPARAM>(Below(2)), 0);
            if (kind == Kind::kList)
                SendMessageA(control, LB_SETCURSEL, static_cast<WPARAM>(Below(7)), 0);
            break;
        default:
            if (Takes(control) &&
                (kind == Kind::kPush || kind == Kind::kCheck || kind == Kind::kRadio))
                SendMessageA(control, BM_CLICK, 0, 0);
            break;
    }
}

void TakeStep() {
    const auto& controls = TheOpen().controls;
    const HWND control = controls[static_cast<std::size_t>(Below(controls.size()))];
    const int what = Below(10);
    if (what < 6) {
        PressKey();
    } else if (what < 8) {
        PressLetter(control);
    } else {
        ActAsProgram(control);
    }
}

int seed = 1;
int steps = 40;

// Runs on the dialog that is open, if one is; whether the program goes on.
bool Act(void (*what)()) {
    return kit::TryStep([what] {
        if (TheOpen().dialog != nullptr)
            what();
    });
}

// Waits for the next dialog; false when the program has opened all.
bool Meet() {
    for (bool shown = false; !shown;) {
        if (!kit::TryStep([&shown] { shown = IsWindowVisible(TheOpen().dialog) != 0; }))
            return false;
    }
    return true;
}

TEST(DialogScripts, WriteDownWhatDialogsTell) {
    Chance().seed(static_cast<unsigned>(seed));
    auto program = kit::StartProgram([] {
        for (int number = kFirstNumber; number <= kLastNumber; ++number) {
            DialogBoxParamA(GetModuleHandleA(nullptr), MAKEINTRESOURCEA(number), nullptr, Procedure,
                            number);
            TheOpen() = {};
        }
        return 0;
    });
    while (Meet()) {
        Act(Describe);
        for (int step = 0; step < steps; ++step) {
            Act(TakeStep);
            kit::Settle();
            Act(Describe);
        }
        Act([] { EndDialog(TheOpen().dialog, 0); });
    }
    EXPECT_EQ(program.get(), 0);
    std::printf("end of scripts\n");
}

}  // namespace

int main(int argc, char** argv) {
    testing::InitGoogleTest(&argc, argv);
    if (argc > 1)
        seed = std::atoi(argv[1]);
    if (argc > 2)
        steps = std::atoi(argv[2]);
    return kit::RunTests();
}
