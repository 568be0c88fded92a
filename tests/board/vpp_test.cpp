// The video post-processing's mode and its statistics.
#include <cstring>

#include "board/state.h"
#include "board/vpp.h"
#include "driver/vpp.h"
#include "tests/board/driver_test.h"

using namespace std::chrono_literals;

namespace {

ResultCode SetMode(uint32_t word, uint32_t frameRate = 20) {
    const VppParameters parameters{frameRate, 1, 2, {}};
    return CodeOf(vdapi_VPP_SetMode(word, reinterpret_cast<const uint32_t*>(&parameters)));
}

// What the window of the test was told: i, d, t.
std::string told;
VppStatistics last;

LRESULT CALLBACK Note(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_VPP_STATIST_INIT) {
        told += 'i';
    } else if (message == WM_VPP_STATIST_TERM) {
        told += 't';
    } else if (message == WM_VPP_STATIST_DATA) {
        told += 'd';
        std::memcpy(&last, reinterpret_cast<const void*>(lParam), sizeof last);
    } else {
        return DefWindowProcA(window, message, wParam, lParam);
    }
    return TRUE;
}

void Pump(std::chrono::milliseconds duration) {
    const auto end = std::chrono::steady_clock::now() + duration;
    while (std::chrono::steady_clock::now() < end) {
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageA(&message);
        }
        std::this_thread::sleep_for(1ms);
    }
}

}  // namespace

using VideoPostProcessing = DriverTest;

TEST_F(VideoPostProcessing, TakesTheModesThatThereAreWhileItIsUp) {
    for (const uint32_t word : {0x10000u, 0x10001u, 0x10002u, 0x10004u, 0x10008u}) {
        EXPECT_EQ(SetMode(word, word), VXD_SUCCESS);
        EXPECT_EQ(board::GetServices().vpp.mode, word);
        EXPECT_EQ(board::GetServices().vpp.parameters.frameRate, word);
    }
    EXPECT_EQ(SetMode(2), VXD_INVALID_PARAMETER);
    EXPECT_EQ(SetMode(0x10003), VXD_INVALID_PARAMETER);
    EXPECT_EQ(vdapi_VPP_Terminate(), VXD_SUCCESS);
    EXPECT_EQ(SetMode(VPP_MODE_LINEAR), VXD_CONFIGURATION_NOT_SET);
    EXPECT_EQ(board::GetServices().vpp.mode, 0x10008u);
}

TEST_F(VideoPostProcessing, SendsStatisticsBetweenTheirBeginAndTheirEnd) {
    WNDCLASSA noting{};
    noting.lpfnWndProc = Note;
    noting.hInstance = GetModuleHandleA(nullptr);
    noting.lpszClassName = "VppTest";
    RegisterClassA(&noting);
    const HWND window = CreateWindowExA(0, "VppTest", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                        noting.hInstance, nullptr);
    const HWND other = CreateWindowExA(0, "STATIC", "", WS_POPUP, 0, 0, 10, 10, nullptr, nullptr,
                                       noting.hInstance, nullptr);
    EXPECT_EQ(KORA_DLL_StopVppStatistics(), VXD_CONFIGURATION_NOT_SET);
    board::SetTime(40 * 200);
    EXPECT_EQ(SetMode(VPP_MODE_LINEAR, 255), VXD_SUCCESS);  // counts as the picture's 25
    EXPECT_EQ(KORA_DLL_StartVppStatistics(window), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_StartVppStatistics(other), VXD_BUSY_WITH_PRIOR_REQUEST);
    Pump(1000ms);
    EXPECT_TRUE(told.starts_with("idd")) << told;
    EXPECT_LE(told.size(), 28u) << told;
    EXPECT_EQ(last.frame, static_cast<int8_t>(200));
    EXPECT_EQ(last.vectors[22 * 17], (MotionVector{14, 0})) << "the lowest stripe's speed";

    // What is not taken in time is replaced.
    std::this_thread::sleep_for(500ms);
    board::SetTime(40 * 300);
    std::this_thread::sleep_for(500ms);
    told.clear();
    Pump(20ms);
    EXPECT_LE(told.size(), 2u) << told;
    EXPECT_EQ(last.frame, static_cast<int8_t>(300));

    EXPECT_EQ(KORA_DLL_StopVppStatistics(), VXD_SUCCESS);
    told.clear();
    Pump(200ms);
    EXPECT_EQ(told, "t");
    // At 5 frames a second five frames lie in between; and it ends with the post-processing.
    EXPECT_EQ(SetMode(VPP_MODE_LINEAR, 5), VXD_SUCCESS);
    EXPECT_EQ(KORA_DLL_StartVppStatistics(window), VXD_SUCCESS);
    Pump(50ms);
    EXPECT_EQ(last.vectors[22 * 17], (MotionVector{70, 0}));
    EXPECT_EQ(vdapi_VPP_Terminate(), VXD_SUCCESS);
    Pump(500ms);
    EXPECT_TRUE(told.ends_with('t')) << told;
    EXPECT_EQ(KORA_DLL_StartVppStatistics(window), VXD_CONFIGURATION_NOT_SET);
    DestroyWindow(window);
    DestroyWindow(other);
}

// Of the stripe that goes three pixels in a frame: in a second, the longest period, 75.
TEST(VideoStatistics, TellAllOfTheMotionAtEveryRate) {
    for (uint32_t rate = 0; rate <= 26; ++rate) {
        board::State state;
        state.services.vpp.parameters.frameRate = rate;
        const uint32_t period = 1000 / (rate == 0 ? 25 : std::min(rate, 25u));
        constexpr uint32_t kStart = 40'017;
        uint32_t time = kStart;
        int sum = 0;
        for (int record = 0; record < 50; ++record) {
            time += period;
            state.keptTime = time;
            sum += board::MeasureMotion(state).vectors[22 * 15].x;
        }
        EXPECT_EQ(sum, 3 * static_cast<int>(time / 40 - kStart / 40)) << rate;
    }
}
