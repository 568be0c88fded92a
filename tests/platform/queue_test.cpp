// The message queue and timers.
#include "tests/kit/user_interface.h"
#include "tests/platform/plain_window.h"

namespace {

using kit::Drain;
using kit::kDoubleMessage;
using kit::kFirstMessage;
using kit::MakePlainWindow;
using kit::ShowPlainWindow;
using kit::Told;

PROGRAM_TEST(Queue, PostedMessagesComeFirstInTheirOrderThenQuitThenPaintingThenTimers) {
    const HWND window = ShowPlainWindow();
    SetTimer(window, 1, 200, nullptr);
    Sleep(250);
    InvalidateRect(window, nullptr, TRUE);
    PostQuitMessage(3);
    PostMessageA(window, kFirstMessage, 0, 0);
    PostMessageA(window, kFirstMessage + 1, 0, 0);
    std::vector<UINT> order;
    MSG message;
    while (GetMessageA(&message, nullptr, 0, 0)) {
        order.push_back(message.message);
        DispatchMessageA(&message);
    }
    EXPECT_EQ(order, (std::vector<UINT>{kFirstMessage, kFirstMessage + 1}));
    EXPECT_EQ(message.wParam, 3u);
    EXPECT_EQ(Drain(), (std::vector<UINT>{WM_PAINT, WM_TIMER}));
}

PROGRAM_TEST(Queue, MissedTimerPeriodsFallTogetherAndOnlyWhatIsPostedOutlivesTheTimer) {
    const HWND window = MakePlainWindow();
    SetTimer(window, 1, 10, nullptr);
    SetTimer(window, 1, 200, nullptr);
    Sleep(650);
    EXPECT_EQ(Drain(), (std::vector<UINT>{WM_TIMER}));
    PostMessageA(window, WM_TIMER, 1, 0);
    EXPECT_TRUE(KillTimer(window, 1));
    EXPECT_FALSE(KillTimer(window, 1)) << "setting again has replaced the first";
    Sleep(250);
    EXPECT_EQ(Drain(), (std::vector<UINT>{WM_TIMER})) << "the posted one";
}

PROGRAM_TEST(Queue, ATimerThatIsAlwaysDueKeepsNoOtherWaiting) {
    const HWND window = MakePlainWindow();
    for (const UINT_PTR id : {1, 2, 3})
        SetTimer(window, id, 10, nullptr);
    std::set<WPARAM> served;
    for (int taken = 0; taken < 6; ++taken) {
        Sleep(30);  // longer than every period
        MSG message;
        GetMessageA(&message, nullptr, WM_TIMER, WM_TIMER);
        served.insert(message.wParam);
    }
    EXPECT_EQ(served, (std::set<WPARAM>{1, 2, 3}));
}

PROGRAM_TEST(Queue, WhatIsMeantForAWindowThatIsGoneIsDropped) {
    const HWND window = MakePlainWindow();
    PostMessageA(window, kFirstMessage, 0, 0);
    SetTimer(window, 1, 10, nullptr);
    DestroyWindow(window);
    Sleep(20);
    EXPECT_TRUE(Drain().empty());
    EXPECT_FALSE(PostMessageA(window, kFirstMessage, 0, 0));
    EXPECT_FALSE(IsWindow(window));
    const HWND next = MakePlainWindow();
    EXPECT_NE(next, window) << "an old handle must not reach a new window";
    EXPECT_EQ(SendMessageA(window, kDoubleMessage, 4, 0), 0);
}

PROGRAM_TEST(Queue, WhatOtherThreadsSendComesBeforeWhatIsPosted) {
    const HWND window = MakePlainWindow();
    PostMessageA(window, kFirstMessage, 0, 0);
    std::atomic<bool> sends{false};
    std::thread other([&] {
        sends = true;
        SendMessageA(window, kDoubleMessage, 1, 0);
    });
    while (!sends)
        Sleep(1);
    Sleep(50);
    EXPECT_TRUE(Told().empty()) << "a sent message waits until messages are retrieved";
    MSG message;
    EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
    EXPECT_EQ(message.message, kFirstMessage);
    EXPECT_EQ(Told(), std::vector<UINT>{kDoubleMessage});
    other.join();
}

PROGRAM_TEST(Queue, LookingLeavesAMessageThereAndARangeTakesOnlyItsOwn) {
    const HWND window = MakePlainWindow();
    PostMessageA(window, kFirstMessage, 7, 8);
    PostMessageA(window, kFirstMessage + 1, 0, 0);
    MSG message;
    EXPECT_TRUE(PeekMessageA(&message, window, kFirstMessage + 1, kFirstMessage + 1, PM_NOREMOVE));
    EXPECT_EQ(message.message, kFirstMessage + 1);
    EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_NOREMOVE));
    EXPECT_EQ(message.message, kFirstMessage);
    EXPECT_EQ(message.lParam, 8);
    EXPECT_EQ(Drain(), (std::vector<UINT>{kFirstMessage, kFirstMessage + 1}));
    EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
}

TEST(Queue, AThreadThatWaitsForAnAnswerDoesNotKeepTheProcessFromEnding) {
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    constexpr int kEnded = 3;
    const auto end = [] {
        const HWND window = MakePlainWindow();
        std::thread([window] { SendMessageA(window, kFirstMessage, 0, 0); }).detach();
        // Fails the test instead of hanging it.
        std::thread([] {
            std::this_thread::sleep_for(std::chrono::seconds(20));
            std::_Exit(kEnded + 1);
        }).detach();
        Sleep(100);  // the other thread waits now
        std::exit(kEnded);
        return 0;
    };
    EXPECT_EXIT(kit::StartProgram(end).get(), testing::ExitedWithCode(kEnded), "");
}

}  // namespace
