// The message queue, timers and painting.
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <functional>
#include <thread>
#include <vector>

#include "tests/kit/user_interface.h"

namespace {

constexpr UINT kFirst = WM_APP + 10;

// What the window's procedure was told, in order. User-interface thread, or after its end.
std::vector<UINT>& Told() {
    static std::vector<UINT> told;
    return told;
}

LRESULT CALLBACK TellingProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message >= WM_APP || message == WM_PAINT || message == WM_TIMER)
        Told().push_back(message);
    if (message == kFirst + 5)
        return static_cast<LRESULT>(wParam) * 2;
    return message >= WM_APP ? 0 : DefWindowProcA(window, message, wParam, lParam);
}

HWND MakeWindow(DWORD style = WS_OVERLAPPEDWINDOW) {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = TellingProcedure;
    windowClass.hInstance = GetModuleHandleA(nullptr);
    windowClass.hCursor = LoadCursorA(nullptr, IDC_ARROW);
    windowClass.hbrBackground = CreateSolidBrush(RGB(1, 2, 3));
    windowClass.lpszClassName = "Telling";
    RegisterClassA(&windowClass);
    return CreateWindowExA(0, "Telling", "Telling", style, 10, 10, 200, 100, nullptr, nullptr,
                           windowClass.hInstance, nullptr);
}

// Runs a test's body on the user-interface thread.
void RunOnUserInterface(const std::function<void()>& body) {
    kit::StartProgram([&body] {
        body();
        return 0;
    }).get();
}

std::vector<UINT> Drain() {
    std::vector<UINT> order;
    MSG message;
    while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
        order.push_back(message.message);
        DispatchMessageA(&message);
    }
    return order;
}

TEST(Queue, PostedMessagesKeepTheirOrderAndQuitComesAfterThem) {
    RunOnUserInterface([] {
        const HWND window = MakeWindow();
        PostQuitMessage(3);
        PostMessageA(window, kFirst, 0, 0);
        PostMessageA(window, kFirst + 1, 0, 0);
        MSG message;
        EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
        EXPECT_EQ(message.message, kFirst);
        EXPECT_TRUE(GetMessageA(&message, nullptr, 0, 0));
        EXPECT_EQ(message.message, kFirst + 1);
        EXPECT_FALSE(GetMessageA(&message, nullptr, 0, 0));
        EXPECT_EQ(message.wParam, 3u);
    });
}

TEST(Queue, PaintingComesAfterPostedMessagesAndTimersComeLast) {
    RunOnUserInterface([] {
        const HWND window = MakeWindow();
        ShowWindow(window, SW_SHOW);
        Drain();
        SetTimer(window, 1, 10, nullptr);
        Sleep(30);
        InvalidateRect(window, nullptr, TRUE);
        PostMessageA(window, kFirst, 0, 0);
        EXPECT_EQ(Drain(), (std::vector<UINT>{kFirst, WM_PAINT, WM_TIMER}));
        KillTimer(window, 1);
        Sleep(30);
        EXPECT_TRUE(Drain().empty());
    });
}

TEST(Queue, MissedTimerPeriodsFallTogetherAndSettingAgainReplaces) {
    RunOnUserInterface([] {
        const HWND window = MakeWindow();
        SetTimer(window, 1, 10, nullptr);
        SetTimer(window, 1, 20, nullptr);
        Sleep(100);
        EXPECT_EQ(Drain(), (std::vector<UINT>{WM_TIMER}));
        EXPECT_TRUE(KillTimer(window, 1));
        EXPECT_FALSE(KillTimer(window, 1));
    });
}

TEST(Queue, WhatIsMeantForAWindowThatIsGoneIsDropped) {
    RunOnUserInterface([] {
        const HWND window = MakeWindow();
        PostMessageA(window, kFirst, 0, 0);
        SetTimer(window, 1, 10, nullptr);
        DestroyWindow(window);
        Sleep(20);
        EXPECT_TRUE(Drain().empty());
        EXPECT_FALSE(PostMessageA(window, kFirst, 0, 0));
        EXPECT_FALSE(IsWindow(window));
        const HWND next = MakeWindow();
        EXPECT_NE(next, window) << "an old handle must not reach a new window";
        EXPECT_EQ(SendMessageA(window, kFirst + 5, 4, 0), 0);
    });
}

TEST(Queue, RefusesMoreThanTenThousandPostedMessages) {
    RunOnUserInterface([] {
        const HWND window = MakeWindow();
        int taken = 0;
        while (taken < 20000 && PostMessageA(window, kFirst, 0, 0))
            ++taken;
        EXPECT_EQ(taken, 10000);
    });
}

TEST(Queue, OtherThreadsSendAndWaitAndPostInOrder) {
    constexpr int kThreads = 4;
    constexpr int kRounds = 200;
    RunOnUserInterface([] {
        const HWND window = MakeWindow();
        std::atomic<int> wrong{0};
        std::vector<std::thread> others;
        for (int each = 0; each < kThreads; ++each) {
            others.emplace_back([&, each] {
                for (int round = 0; round < kRounds; ++round) {
                    const auto value = static_cast<WPARAM>(each * kRounds + round);
                    if (SendMessageA(window, kFirst + 5, value, 0) !=
                        static_cast<LRESULT>(value) * 2)
                        ++wrong;
                    PostMessageA(window, kFirst + 1, 0, 0);
                }
                PostMessageA(window, kFirst + 2, 0, 0);
            });
        }
        int ended = 0;
        MSG message;
        while (ended < kThreads && GetMessageA(&message, nullptr, 0, 0)) {
            DispatchMessageA(&message);
            ended += message.message == kFirst + 2;
        }
        for (std::thread& other : others)
            other.join();
        EXPECT_EQ(wrong, 0);
        EXPECT_EQ(std::count(Told().begin(), Told().end(), kFirst + 1), kThreads * kRounds);
    });
}

TEST(Painting, ComesAgainUntilTheUpdateRegionIsTaken) {
    RunOnUserInterface([] {
        const HWND window = MakeWindow();
        ShowWindow(window, SW_SHOW);
        Drain();
        RECT part{5, 6, 25, 16};
        InvalidateRect(window, &part, FALSE);
        MSG message;
        EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
        EXPECT_EQ(message.message, static_cast<UINT>(WM_PAINT));
        EXPECT_TRUE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
        EXPECT_EQ(message.message, static_cast<UINT>(WM_PAINT));
        PAINTSTRUCT paint;
        const HDC dc = BeginPaint(window, &paint);
        EXPECT_EQ(paint.rcPaint.left, 5);
        EXPECT_EQ(paint.rcPaint.bottom, 16);
        // Only what waits to be painted is drawn on.
        const HBRUSH brush = CreateSolidBrush(RGB(200, 100, 50));
        RECT all{0, 0, 200, 100};
        FillRect(dc, &all, brush);
        DeleteObject(brush);
        EndPaint(window, &paint);
        EXPECT_FALSE(PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE));
        const HDC look = GetDC(window);
        EXPECT_EQ(GetPixel(look, 10, 10), RGB(200, 100, 50));
        EXPECT_EQ(GetPixel(look, 40, 40), RGB(1, 2, 3)) << "the class's background";
        ReleaseDC(window, look);
    });
}

TEST(Windows, TheProgramsLimitBoundsTheSize) {
    RunOnUserInterface([] {
        const auto procedure = [](HWND window, UINT message, WPARAM wParam,
                                  LPARAM lParam) -> LRESULT {
            if (message != WM_GETMINMAXINFO)
                return DefWindowProcA(window, message, wParam, lParam);
            auto& info = *reinterpret_cast<MINMAXINFO*>(lParam);
            info.ptMaxTrackSize = {300, 120};
            return 0;
        };
        WNDCLASSA windowClass{};
        windowClass.lpfnWndProc = +procedure;
        windowClass.hInstance = GetModuleHandleA(nullptr);
        windowClass.lpszClassName = "Limited";
        ASSERT_NE(RegisterClassA(&windowClass), 0);
        EXPECT_EQ(RegisterClassA(&windowClass), 0) << "a class is registered once";
        const HWND window =
            CreateWindowExA(0, "Limited", "", WS_OVERLAPPEDWINDOW, 0, 0, CW_USEDEFAULT, 0, nullptr,
                            nullptr, windowClass.hInstance, nullptr);
        SetWindowPos(window, nullptr, 0, 0, 2000, 2000, SWP_NOMOVE | SWP_NOZORDER);
        RECT rect;
        GetWindowRect(window, &rect);
        EXPECT_EQ(rect.right - rect.left, 300);
        EXPECT_EQ(rect.bottom - rect.top, 120);
        SetWindowPos(window, nullptr, 0, 0, 150, 80, SWP_NOMOVE | SWP_NOZORDER);
        GetWindowRect(window, &rect);
        EXPECT_EQ(rect.right - rect.left, 150) << "smaller is free";
    });
}

}  // namespace
