// How long the utility's everyday steps take.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <string>

#include "codec/raw_command.h"
#include "driver/papi.h"
#include "platform/win32.h"
#include "regs/saec_browser.h"

namespace {

constexpr int kPaletteKeys = 769;  // three colours of 256 entries, and the entry shown first

// From the process's start to its end at the first paint.
void StartToFirstPaint(benchmark::State& state, const char* program, const char* environment) {
    const std::filesystem::path path = std::filesystem::path(BENCH_FOLDER) / program;
    if (!std::filesystem::exists(path)) {
        state.SkipWithError("not built");
        return;
    }
    const std::string command =
        std::string(environment) + " " + path.string() + " 0 > /dev/null 2>&1";
    for (auto _ : state) {
        if (std::system(command.c_str()) != 0)
            state.SkipWithError("does not start");
    }
}
BENCHMARK_CAPTURE(StartToFirstPaint, headless, "vxdtest_headless_start", "")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(StartToFirstPaint, offscreen, "vxdtest_start", "QT_QPA_PLATFORM=offscreen")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

constexpr char kCloserClass[] = "BenchmarkCloser";

// Closes the dialog of the caption that the message carries; the message waits in the queue until
// the dialog's loop runs.
LRESULT CALLBACK CloserProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    if (message != WM_APP)
        return DefWindowProcA(window, message, wParam, lParam);
    SendMessageA(FindWindowA("#32770", reinterpret_cast<LPCSTR>(lParam)), WM_COMMAND, IDOK, 0);
    return 0;
}

HWND MakeCloser() {
    WNDCLASSA windowClass{};
    windowClass.lpfnWndProc = CloserProcedure;
    windowClass.lpszClassName = kCloserClass;
    RegisterClassA(&windowClass);
    return CreateWindowExA(0, kCloserClass, "", WS_POPUP, 0, 0, 0, 0, nullptr, nullptr, nullptr,
                           nullptr);
}

// With all that opening fills and reads from the board.
void OpenAndClose(benchmark::State& state, INT_PTR (*open)(HINSTANCE, HWND), const char* caption) {
    static const HWND closer = MakeCloser();
    vdapi_Initialize(0);
    for (auto _ : state) {
        PostMessageA(closer, WM_APP, 0, reinterpret_cast<LPARAM>(caption));
        open(GetModuleHandleA(nullptr), nullptr);
    }
    vdapi_Terminate();
}
BENCHMARK_CAPTURE(OpenAndClose, SendRawCommand, OpenRawCommand, "Send Raw Command")
    ->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(OpenAndClose, SaecPorts, OpenSaecPorts, "Siemens AEC Ports")
    ->Unit(benchmark::kMicrosecond);

// All keys of the palette, one by one, into a file that holds them already with other values.
void WriteThePalette(benchmark::State& state) {
    const auto file = (std::filesystem::temp_directory_path() / "vxdtest-benchmark.ini").string();
    const auto writeAll = [&file](int value) {
        const std::string text = std::to_string(value);
        for (int key = 0; key < kPaletteKeys; ++key)
            WritePrivateProfileStringA("BTPalette", ("Red_" + std::to_string(key)).c_str(),
                                       text.c_str(), file.c_str());
    };
    int value = 100;
    writeAll(value);
    for (auto _ : state)
        writeAll(value = value == 999 ? 100 : value + 1);
    std::filesystem::remove(file);
}
BENCHMARK(WriteThePalette)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
