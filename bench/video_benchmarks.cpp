#include "bench/video_benchmarks.h"

#include <benchmark/benchmark.h>

#include "driver/papi.h"
#include "platform/win32.h"
#include "services/application.h"
#include "video/kora_vid.h"

namespace {

void RunMessageLoopFor(DWORD milliseconds) {
    const DWORD start = GetTickCount();
    MSG message{};
    // The pictures' timers end every wait.
    while (GetTickCount() - start < milliseconds && GetMessageA(&message, nullptr, 0, 0)) {
        DispatchMessageA(&message);
    }
}

void ShowBothPicturesForASecond(benchmark::State& state) {
    constexpr DWORD kSecond = 1000;
    AppInstance = GetModuleHandleA(nullptr);
    vdapi_Initialize(0);
    if (!OpenAllVideo()) {
        state.SkipWithError("does not open");
    }
    for (auto _ : state) {
        RunMessageLoopFor(kSecond);
    }
    ShutDownVideo();
    vdapi_Terminate();
}

}  // namespace

void RegisterVideoBenchmarks() {
    benchmark::RegisterBenchmark("ShowBothPicturesForASecond", ShowBothPicturesForASecond)
        ->Unit(benchmark::kMillisecond)
        ->MeasureProcessCPUTime()
        ->UseRealTime()
        ->Iterations(5);
}
