#include "bench/dialog_benchmarks.h"

#include <benchmark/benchmark.h>

#include <filesystem>

#include "codec/raw_command.h"
#include "driver/papi.h"
#include "platform/win32.h"
#include "regs/saec_browser.h"
#include "video/palette.h"

namespace {

const char* openCaption = "";

// With all that opening fills and reads from the board.
void OpenAndClose(benchmark::State& state, INT_PTR (*open)(HINSTANCE, HWND), const char* caption) {
    const auto settings = std::filesystem::temp_directory_path() / "vxdtest-dialog-benchmark";
    SetEnvironmentVariableA("XDG_CONFIG_HOME", settings.c_str());
    openCaption = caption;
    vdapi_Initialize(0);
    for (auto _ : state) {
        if (open(GetModuleHandleA(nullptr), nullptr) < 0)
            state.SkipWithError("does not open");
    }
    vdapi_Terminate();
    std::filesystem::remove_all(settings);
}

void Register(const char* name, INT_PTR (*open)(HINSTANCE, HWND), const char* caption) {
    benchmark::RegisterBenchmark(name, OpenAndClose, open, caption)
        ->Unit(benchmark::kMicrosecond)
        ->UseRealTime();
}

}  // namespace

void RegisterDialogBenchmarks() {
    Register("OpenAndClose/SendRawCommand", OpenRawCommand, "Send Raw Command");
    Register("OpenAndClose/SaecPorts", OpenSaecPorts, "Siemens AEC Ports");
    // Stores its 769 keys when it is closed.
    Register("OpenAndClose/Palette", OpenPalette, "Palette Dialog");
}

void DialogIsSeen() {
    PostMessageA(FindWindowA(nullptr, openCaption), WM_COMMAND, IDOK, 0);
}
