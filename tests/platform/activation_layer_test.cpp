// Activation against a desktop that takes its time: the core asks, the desktop tells, and neither
// answers the other for ever.
#include <deque>

#include "platform/core/window.h"
#include "platform/headless/headless_screen.h"
#include "tests/kit/user_interface.h"

namespace {

// Grants one request each time it is waited for, as a desktop does that is asked faster than it
// answers.
class SlowDesktop : public vxd::HeadlessScreen {
  public:
    void Raise(vxd::WidgetId id) override {
        waiting_.push_back(id);
        ++requests;
    }

    void Wait(int milliseconds) override {
        if (waiting_.empty())
            return HeadlessScreen::Wait(milliseconds);
        active = waiting_.front();
        waiting_.pop_front();
        vxd::input::Activated(active, true);
    }

    vxd::WidgetId active = 0;
    int requests = 0;

  private:
    std::deque<vxd::WidgetId> waiting_;
};

HWND MakeWindow(HWND owner) {
    kit::RegisterWindowClass("Plain", DefWindowProcA);
    return CreateWindowExA(0, "Plain", "", WS_OVERLAPPEDWINDOW | WS_VISIBLE, 0, 0, 200, 100, owner,
                           nullptr, nullptr, nullptr);
}

// Deals with what waits until nothing does; gives up after a thousand messages.
void Settle() {
    MSG message;
    for (int count = 0; count < 1000 && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE); ++count)
        DispatchMessageA(&message);
}

void RunOn(SlowDesktop& desktop, const std::function<void()>& body) {
    vxd::InstallScreen(desktop);
    kit::StartProgram([&body] {
        body();
        return 0;
    }).get();
}

TEST(Activation, WindowsThatAskInTurnsComeToRest) {
    static SlowDesktop desktop;
    RunOn(desktop, [] {
        const std::vector windows{MakeWindow(nullptr), MakeWindow(nullptr), MakeWindow(nullptr)};
        Settle();
        desktop.requests = 0;
        for (const HWND window : windows)
            SetFocus(window);
        Settle();
        EXPECT_EQ(desktop.requests, 3);
        EXPECT_EQ(GetActiveWindow(), windows.back());
        EXPECT_EQ(desktop.active, vxd::HandleNumber(windows.back()));
    });
}

TEST(Activation, OfADisabledWindowGoesToTheOneOverItThatWasActiveLast) {
    static SlowDesktop desktop;
    RunOn(desktop, [] {
        const HWND main = MakeWindow(nullptr);
        const HWND dialog = MakeWindow(main);
        const HWND box = MakeWindow(main);
        const HWND boxOfDialog = MakeWindow(dialog);
        EnableWindow(main, FALSE);
        for (const HWND front : {dialog, box, boxOfDialog}) {
            SetFocus(front);
            Settle();
            desktop.requests = 0;
            vxd::input::Activated(vxd::HandleNumber(main), true);
            Settle();
            EXPECT_EQ(desktop.requests, 1);
            EXPECT_EQ(GetActiveWindow(), front);
            EXPECT_EQ(desktop.active, vxd::HandleNumber(front));
        }
    });
}

TEST(Activation, OfAWindowThatABoxWithoutOwnerShutsOutGoesToTheBox) {
    static SlowDesktop desktop;
    static HWND main = nullptr;
    static HWND box = nullptr;
    RunOn(desktop, [] {
        main = MakeWindow(nullptr);
        Settle();
        SetTimer(nullptr, 0, 10, [](HWND, UINT, UINT_PTR timer, DWORD) {
            const HWND active = GetActiveWindow();
            if (box != nullptr) {
                EXPECT_EQ(desktop.requests, 1);
                EXPECT_EQ(active, box);
                KillTimer(nullptr, timer);
                EndDialog(box, IDOK);
            } else if (active != main && desktop.active == vxd::HandleNumber(active)) {
                box = active;
                desktop.requests = 0;
                vxd::input::Activated(vxd::HandleNumber(main), true);
            }
        });
        EXPECT_EQ(MessageBoxA(nullptr, "Text", "Title", MB_OK | MB_TASKMODAL), IDOK);
        EXPECT_EQ(GetActiveWindow(), main);
    });
}

}  // namespace
