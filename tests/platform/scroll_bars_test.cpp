// What scroll bars tell of a person's actions. They move only when the program moves them.
#include "tests/kit/dialog.h"
#include "tests/kit/person.h"
#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/difference.h"

namespace {

using kit::OnUserInterface;

constexpr int kFirst = 10;
constexpr int kLast = 41;
constexpr int kStart = 20;

// "h" or "v", the bar, the code, and the position where it is not 0. User-interface thread.
std::string& Told() {
    static std::string told;
    return told;
}

INT_PTR CALLBACK TellingProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_INITDIALOG) {
        for (const int id : {IDC_ACROSS, IDC_DOWN}) {
            SetScrollRange(GetDlgItem(dialog, id), SB_CTL, kFirst, kLast, TRUE);
            SetScrollPos(GetDlgItem(dialog, id), SB_CTL, kStart, TRUE);
        }
        return TRUE;
    }
    if (message == WM_MOUSEWHEEL) {
        Told() += "wheel=" + std::to_string(GET_WHEEL_DELTA_WPARAM(wParam)) + " ";
        return TRUE;
    }
    if (message != WM_HSCROLL && message != WM_VSCROLL)
        return FALSE;
    const int position = static_cast<SHORT>(HIWORD(wParam));
    Told() += (message == WM_HSCROLL ? "h" : "v") +
              std::to_string(GetDlgCtrlID(reinterpret_cast<HWND>(lParam))) + ":" +
              std::to_string(LOWORD(wParam)) +
              (position != 0 ? "=" + std::to_string(position) : "") + " ";
    return TRUE;
}

class ScrollBars : public testing::Test {
  protected:
    ScrollBars() {
        program_ = kit::StartProgram([] {
            return static_cast<int>(DialogBoxParamA(GetModuleHandleA(nullptr),
                                                    MAKEINTRESOURCEA(IDD_SCROLL), nullptr,
                                                    TellingProcedure, 0));
        });
        dialog_ = kit::WaitForDialog("Scroll");
    }
    ~ScrollBars() override {
        OnUserInterface([this] { EndDialog(dialog_.Handle(), 0); });
        program_.get();
    }

    HWND Bar(int id) const { return dialog_.Control(id); }
    int Position(int id) const {
        return OnUserInterface([=, this] { return GetScrollPos(Bar(id), SB_CTL); });
    }
    // What an action makes the bars tell.
    static std::string After(const std::function<void()>& action) {
        action();
        return OnUserInterface([] { return std::exchange(Told(), {}); });
    }

    kit::Dialog dialog_{nullptr};
    std::future<int> program_;
};

TEST_F(ScrollBars, KeepTheirPositionWithinTheirRange) {
    const auto move = [this](int position) {
        return OnUserInterface(
            [=, this] { return SetScrollPos(Bar(IDC_ACROSS), SB_CTL, position, TRUE); });
    };
    EXPECT_EQ(Position(IDC_ACROSS), kStart);
    EXPECT_EQ(move(kLast + 1), kStart) << "the position before";
    EXPECT_EQ(Position(IDC_ACROSS), kLast);
    EXPECT_EQ(move(-5), kLast);
    EXPECT_EQ(Position(IDC_ACROSS), kFirst);
    OnUserInterface([this] { SetScrollRange(Bar(IDC_ACROSS), SB_CTL, 15, 18, TRUE); });
    EXPECT_EQ(Position(IDC_ACROSS), 15);
    EXPECT_EQ(After([] {}), "") << "the program's own changes are not told";
}

TEST_F(ScrollBars, TellOfEachActionWithThePositionOfTheThumbAndStayWhereTheyAre) {
    OnUserInterface([this] { SetFocus(Bar(IDC_DOWN)); });
    EXPECT_EQ(After([this] { kit::ClickRightArrow(Bar(IDC_ACROSS)); }), "h501:1 h501:8 ");
    EXPECT_EQ(dialog_.FocusedId(), IDC_ACROSS);
    const std::string told = After([this] { kit::DragThumbToEnd(Bar(IDC_ACROSS), kLast); });
    EXPECT_TRUE(told.ends_with("h501:5=41 h501:4=41 h501:8 ")) << told;
    EXPECT_EQ(Position(IDC_ACROSS), kStart);
}

TEST_F(ScrollBars, LeaveTheWheelToTheirDialog) {
    OnUserInterface([this] { SetFocus(Bar(IDC_ACROSS)); });
    EXPECT_EQ(After([this] { kit::TurnWheel(Bar(IDC_ACROSS), 2); }), "wheel=240 ");
    EXPECT_EQ(Position(IDC_ACROSS), kStart);
}

TEST_F(ScrollBars, TakeKeys) {
    struct Case {
        WPARAM key;
        const char* code;
    };
    for (const int id : {IDC_ACROSS, IDC_DOWN}) {
        const std::string bar = (id == IDC_ACROSS ? "h" : "v") + std::to_string(id) + ":";
        OnUserInterface([=, this] { SetFocus(Bar(id)); });
        for (const Case& each :
             {Case{VK_LEFT, "0"}, Case{VK_UP, "0"}, Case{VK_RIGHT, "1"}, Case{VK_DOWN, "1"},
              Case{VK_PRIOR, "2"}, Case{VK_NEXT, "3"}, Case{VK_HOME, "6"}, Case{VK_END, "7"}}) {
            const std::string told = bar + each.code + " ";
            EXPECT_EQ(After([&] { dialog_.Key(each.key); }),
                      kit::ExceptOn(WindowSystem::kWine, told, "does not tell of a key's release",
                                    told + bar + "8 "));
        }
        EXPECT_EQ(After([&] { dialog_.Key(VK_SPACE); }), "");
    }
}

}  // namespace
