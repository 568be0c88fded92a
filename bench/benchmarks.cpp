// How long the utility's everyday steps take, dialogs on the screen without a display.
#include <benchmark/benchmark.h>

#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "bench/dialog_benchmarks.h"
#include "bench/map_benchmarks.h"
#include "driver/firmware_command.h"
#include "driver/papi.h"
#include "platform/headless/headless_screen.h"
#include "platform/win32.h"

namespace {

// Waits where a dialog is open and has no more to do.
class OpenDialogSeen : public vxd::HeadlessScreen {
  public:
    void Wait(int /*milliseconds*/) override { DialogIsSeen(); }
};

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

// All keys of the palette, one by one, into a file that holds them already with other values.
void WriteThePalette(benchmark::State& state) {
    const auto file = (std::filesystem::temp_directory_path() / "vxdtest-benchmark.ini").string();
    const auto writeAll = [&file](int value) {
        const std::string text = std::to_string(value);
        for (int key = 0; key < kPaletteKeys; ++key) {
            WritePrivateProfileStringA("BTPalette", ("Red_" + std::to_string(key)).c_str(),
                                       text.c_str(), file.c_str());
        }
    };
    int value = 100;
    writeAll(value);
    for (auto _ : state)
        writeAll(value = value == 999 ? 100 : value + 1);
    std::filesystem::remove(file);
}
BENCHMARK(WriteThePalette)->Unit(benchmark::kMillisecond);

// A firmware command to the simulated board, with a settings file that says what fails and without
// one. What the board has read of a file it keeps once the file has been at rest for a while.
void SendFirmwareCommand(benchmark::State& state, bool hasSettingsFile) {
    const auto folder = std::filesystem::temp_directory_path() / "vxdtest-benchmark";
    SetEnvironmentVariableA("XDG_CONFIG_HOME", folder.c_str());
    std::filesystem::create_directories(folder / "vxdtest");
    if (hasSettingsFile)
        std::ofstream(folder / "vxdtest" / "board.ini") << "[Fail]\nPELLAN_COMMAND_STANDBY = 13\n";
    vdapi_Initialize(0);
    Sleep(3000);
    uint32_t response1 = 0;
    uint32_t response2 = 0;
    uint16_t response3 = 0;
    for (auto _ : state)
        vdapi_SendCommand(PELLAN_COMMAND_GET_VER, 0, 0, 0, &response1, &response2, &response3);
    vdapi_Terminate();
    std::filesystem::remove_all(folder);
}
BENCHMARK_CAPTURE(SendFirmwareCommand, plain, false)->Unit(benchmark::kMicrosecond);
BENCHMARK_CAPTURE(SendFirmwareCommand, board_ini, true)->Unit(benchmark::kMicrosecond);

}  // namespace

int main(int argc, char** argv) {
    OpenDialogSeen screen;
    vxd::InstallScreen(screen);
    RegisterDialogBenchmarks();
    RegisterMapBenchmarks();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
