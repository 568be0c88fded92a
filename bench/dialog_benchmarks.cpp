#include "bench/dialog_benchmarks.h"

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <filesystem>
#include <string>
#include <vector>

#include "codec/raw_command.h"
#include "codec/recent_variables.h"
#include "codec/variable_access.h"
#include "driver/papi.h"
#include "platform/win32.h"
#include "regs/saec_browser.h"
#include "res/resource.h"
#include "services/settings.h"
#include "video/palette.h"

namespace {

constexpr int kNames = 200;

struct Measured {
    const char* name;
    INT_PTR (*open)(HINSTANCE instance, HWND owner);
    const char* caption;
    void (*prepare)() = [] {};               // writes settings, once
    void (*change)(int round) = [](int) {};  // what the dialog finds on the board, each time
    int press = 0;                           // before it is closed
};
Measured measured{};

// With all that opening fills and reads from the board.
void OpenAndClose(benchmark::State& state, const Measured& dialog) {
    const auto settings = std::filesystem::temp_directory_path() / "vxdtest-dialog-benchmark";
    SetEnvironmentVariableA("XDG_CONFIG_HOME", settings.c_str());
    measured = dialog;
    dialog.prepare();
    vdapi_Initialize(0);
    int round = 0;
    for (auto _ : state) {
        state.PauseTiming();
        dialog.change(++round);
        state.ResumeTiming();
        if (dialog.open(GetModuleHandleA(nullptr), nullptr) < 0)
            state.SkipWithError("does not open");
    }
    vdapi_Terminate();
    measured = {};
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

// A palette whose 256 colours are all others than before, in each part.
void ChangePalette(int round) {
    std::array<uint32_t, 256> colours{};
    for (std::size_t entry = 0; entry < colours.size(); ++entry) {
        colours[entry] =
            ((static_cast<uint32_t>(entry) + static_cast<uint32_t>(round)) % 256) * 0x010101;
    }
    vdapi_BT85X_DownloadPalette(colours.data());
}

constexpr auto kDialogs = std::to_array<Measured>({
    {"OpenAndClose/SendRawCommand", OpenRawCommand, "Send Raw Command"},
    {"OpenAndClose/SaecPorts", OpenSaecPorts, "Siemens AEC Ports"},
    // Reads another palette each time and stores it when it is closed: 769 keys, all but one of
    // them with a new value.
    {.name = "OpenAndClose/Palette",
     .open = OpenPalette,
     .caption = "Palette Dialog",
     .change = ChangePalette,
     .press = IDC_COLOURS_READ_ALL},
    {"OpenAndClose/200Variables", OpenVariableAccess, "VCPXi Variable Access", WriteLongList},
});

}  // namespace

void RegisterDialogBenchmarks() {
    for (const Measured& dialog : kDialogs) {
        benchmark::RegisterBenchmark(dialog.name, OpenAndClose, dialog)
            ->Unit(benchmark::kMicrosecond)
            ->UseRealTime();
    }
}

void DialogIsSeen() {
    const HWND dialog = measured.open != nullptr ? FindWindowA(nullptr, measured.caption) : nullptr;
    if (dialog == nullptr)
        return;
    if (measured.press != 0)
        PostMessageA(dialog, WM_COMMAND, static_cast<WPARAM>(measured.press), 0);
    const bool hasOk = GetDlgItem(dialog, IDOK) != nullptr;
    PostMessageA(dialog, WM_COMMAND, hasOk ? IDOK : IDCANCEL, 0);
}
