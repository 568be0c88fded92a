#include "bench/dialog_benchmarks.h"

#include <benchmark/benchmark.h>

#include <filesystem>
#include <string>
#include <vector>

#include "codec/raw_command.h"
#include "codec/recent_variables.h"
#include "codec/variable_access.h"
#include "driver/papi.h"
#include "platform/win32.h"
#include "regs/saec_browser.h"
#include "services/settings.h"
#include "video/palette.h"

namespace {

constexpr int kNames = 200;

const char* openCaption = "";

// With all that opening fills and reads from the board, on settings that `prepare` has written.
void OpenAndClose(benchmark::State& state, INT_PTR (*open)(HINSTANCE, HWND), const char* caption,
                  void (*prepare)()) {
    const auto settings = std::filesystem::temp_directory_path() / "vxdtest-dialog-benchmark";
    SetEnvironmentVariableA("XDG_CONFIG_HOME", settings.c_str());
    prepare();
    openCaption = caption;
    vdapi_Initialize(0);
    for (auto _ : state) {
        if (open(GetModuleHandleA(nullptr), nullptr) < 0)
            state.SkipWithError("does not open");
    }
    vdapi_Terminate();
    std::filesystem::remove_all(settings);
}

// 200 names of 127 characters in the list of variables used last.
void WriteLongList() {
    std::vector<SettingText> values;
    for (int place = 0; place < kNames; ++place) {
        std::string name = "vcx_" + std::to_string(place);
        name.resize(kVariableName - 1, 'x');
        values.push_back({setting::kVariableName[place], name});
        values.push_back({setting::kVariableShape[place], "20001"});
    }
    WriteSettings(values);
}

void Register(
    const char* name, INT_PTR (*open)(HINSTANCE, HWND), const char* caption,
    void (*prepare)() = [] {}) {
    benchmark::RegisterBenchmark(name, OpenAndClose, open, caption, prepare)
        ->Unit(benchmark::kMicrosecond)
        ->UseRealTime();
}

}  // namespace

void RegisterDialogBenchmarks() {
    Register("OpenAndClose/SendRawCommand", OpenRawCommand, "Send Raw Command");
    Register("OpenAndClose/SaecPorts", OpenSaecPorts, "Siemens AEC Ports");
    // Stores its 769 keys when it is closed.
    Register("OpenAndClose/Palette", OpenPalette, "Palette Dialog");
    Register("OpenAndClose/200Variables", OpenVariableAccess, "VCPXi Variable Access",
             WriteLongList);
}

void DialogIsSeen() {
    const HWND dialog = FindWindowA(nullptr, openCaption);
    const bool hasOk = GetDlgItem(dialog, IDOK) != nullptr;
    PostMessageA(dialog, WM_COMMAND, hasOk ? IDOK : IDCANCEL, 0);
}
