#include "bench/map_benchmarks.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>

#include "driver/vpp.h"
#include "platform/win32.h"
#include "video/motion_map.h"

namespace {

HWND MakeWindow() {
    WNDCLASSA plain{};
    plain.lpfnWndProc = DefWindowProcA;
    plain.hInstance = GetModuleHandleA(nullptr);
    plain.lpszClassName = "MapBenchmark";
    RegisterClassA(&plain);
    return CreateWindowExA(0, "MapBenchmark", "", WS_POPUP | WS_VISIBLE, 0, 0, 352, 288, nullptr,
                           nullptr, plain.hInstance, nullptr);
}

// Every cell has something else in a record than in the other one.
std::array<VppStatistics, 2> MakeRecords() {
    std::array<VppStatistics, 2> records{};
    for (std::size_t block = 0; block < records[0].vectors.size(); ++block) {
        const auto x = static_cast<int8_t>(block % 16);
        const auto y = static_cast<int8_t>(block / 22 - 9);
        records[0].vectors[block] = {x, y};
        records[1].vectors[block] = {static_cast<int8_t>(-x - 1), y};
    }
    return records;
}

// Records one after the other, each of which changes all cells of the map or none, until they are
// on the screen.
void DrawRecords(benchmark::State& state, bool changing) {
    const HWND window = MakeWindow();
    MotionMap map;
    map.Load(GetModuleHandleA(nullptr), window);
    const auto records = MakeRecords();
    std::size_t newest = 0;
    for (auto _ : state) {
        const std::size_t before = newest;
        newest = changing ? 1 - newest : newest;
        map.Draw(window, records[newest], records[before], MotionShown::kMagnitude);
        MSG message;
        while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE)) {
            DispatchMessageA(&message);
        }
    }
    state.SetItemsProcessed(state.iterations());
    DestroyWindow(window);
}

}  // namespace

void RegisterMapBenchmarks() {
    for (const bool changing : {true, false}) {
        benchmark::RegisterBenchmark(changing ? "MotionMap/AllCells" : "MotionMap/NoCell",
                                     DrawRecords, changing)
            ->Unit(benchmark::kMicrosecond)
            ->UseRealTime();
    }
}
