#include "bench/video_soak.h"

#include <sys/resource.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <utility>

#include "bench/resident_memory.h"
#include "platform/win32.h"
#include "res/resource.h"

namespace {

using Clock = std::chrono::steady_clock;

constexpr char kCaption[] = "VPP Statistics";
constexpr UINT kStepMilliseconds = 1000;

// What is done in a step, to the main window or to the dialog. Nothing leaves the map alone.
enum class Where { kNothing, kMenu, kDialog };
struct Step {
    Where where = Where::kNothing;
    int id = 0;
};

// One a second, again and again.
constexpr auto kSteps = std::to_array<Step>({
    {Where::kMenu, IDM_VIDEO_OPEN_ALL},
    {Where::kMenu, IDM_VPP_STATISTICS},
    {Where::kDialog, IDC_VPP_STATISTICS_ENABLE},
    {Where::kDialog, IDC_MOTION_CONTINUOUS},
    {},
    {},
    {},
    {},
    {},
    {},
    {},
    {},
    {Where::kDialog, IDC_MOTION_X},
    {},
    {},
    {},
    {},
    {Where::kDialog, IDC_MOTION_Y},
    {},
    {},
    {},
    {Where::kDialog, IDC_MOTION_SINGLE},
    {Where::kDialog, IDC_MOTION_GET},
    {Where::kDialog, IDC_MOTION_GET},
    {Where::kDialog, IDC_MOTION_MAGNITUDE},
    {Where::kDialog, IDC_MOTION_CONTINUOUS},
    {},
    {},
    {},
    {},
    {Where::kDialog, IDC_VPP_STATISTICS_DISABLE},
    {Where::kDialog, IDC_VPP_STATISTICS_ENABLE},
    {},
    {},
    {},
    {Where::kDialog, IDCANCEL},
    {Where::kMenu, IDM_VIDEO_FREEZE},
    {Where::kMenu, IDM_VIDEO_RESTART},
    {},
    {Where::kMenu, IDM_VIDEO_CLOSE_ALL},
});

// A window that is looked at once a second.
struct Looked {
    std::uint32_t before = 0;
    int looks = 0;
    int moved = 0;
};

struct Soak {
    int seconds = 0;
    int step = 0;
    Clock::time_point start;
    double processorAtStart = 0;
    long firstMemory = 0;
    long lastMemory = 0;
    Looked picture;
    Looked map;
    bool ends = false;
};
Soak soak;

double ProcessorSeconds() {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

double SecondsSinceStart() {
    return std::chrono::duration<double>(Clock::now() - soak.start).count();
}

// What a window shows at points all over a picture's size. Of the map that is a corner of each
// cell, beside its arrow.
std::uint32_t HashOf(HWND window) {
    constexpr int kFirst = 2;
    constexpr int kDistance = 16;
    std::uint32_t hash = 2166136261;
    const HDC dc = GetDC(window);
    for (int y = kFirst; y < 288; y += kDistance) {
        for (int x = kFirst; x < 352; x += kDistance)
            hash = (hash ^ GetPixel(dc, x, y)) * 16777619;
    }
    ReleaseDC(window, dc);
    return hash;
}

void LookAt(HWND window, Looked& looked) {
    if (window == nullptr)
        return;
    const std::uint32_t now = HashOf(window);
    looked.moved += now != looked.before ? 1 : 0;
    looked.before = now;
    ++looked.looks;
}

HWND Dialog() {
    return FindWindowA(nullptr, kCaption);
}

void Do(const Step& step, HWND main) {
    switch (step.where) {
        case Where::kMenu:
            PostMessageA(main, WM_COMMAND, static_cast<WPARAM>(step.id), 0);
            break;
        case Where::kDialog:
            PostMessageA(GetDlgItem(Dialog(), step.id), BM_CLICK, 0, 0);
            break;
        case Where::kNothing:
            break;
    }
}

// Closes first what lies over the main window.
void End(HWND main) {
    if (const HWND dialog = Dialog()) {
        PostMessageA(GetDlgItem(dialog, IDCANCEL), BM_CLICK, 0, 0);
    } else if (!std::exchange(soak.ends, true)) {
        PostMessageA(main, WM_CLOSE, 0, 0);
    }
}

// Of the second fifth of the time and of the last one the most counts: by then all steps have been
// taken once, and in either part they are all taken again.
void NoteMemory() {
    const double part = SecondsSinceStart() * 5 / soak.seconds;
    const long now = ResidentKibibytes();
    if (part >= 1 && part < 2)
        soak.firstMemory = std::max(soak.firstMemory, now);
    if (part >= 4)
        soak.lastMemory = std::max(soak.lastMemory, now);
}

void CALLBACK TakeStep(HWND, UINT, UINT_PTR, DWORD) {
    const HWND main = FindWindowA("VxDTest", nullptr);
    if (main == nullptr)
        return;
    if (SecondsSinceStart() >= soak.seconds) {
        End(main);
        return;
    }
    NoteMemory();
    LookAt(FindWindowA(nullptr, "Remote Video"), soak.picture);
    if (const HWND dialog = Dialog())
        LookAt(GetDlgItem(dialog, IDC_MOTION_MAP), soak.map);
    Do(kSteps[static_cast<std::size_t>(soak.step++) % kSteps.size()], main);
}

bool Moved(const char* what, const Looked& looked) {
    std::printf("%s: had moved %d of %d times\n", what, looked.moved, looked.looks);
    return looked.moved > looked.looks / 2;
}

}  // namespace

int RunVideoSoak(int seconds) {
    const auto settings = std::filesystem::temp_directory_path() / "vxdtest-video-soak";
    SetEnvironmentVariableA("XDG_CONFIG_HOME", settings.c_str());
    soak.seconds = seconds;
    soak.start = Clock::now();
    soak.processorAtStart = ProcessorSeconds();
    SetTimer(nullptr, 0, kStepMilliseconds, TakeStep);
    char commandLine[] = "";
    const int exitCode = WinMain(GetModuleHandleA(nullptr), nullptr, commandLine, SW_SHOWNORMAL);
    const double share = (ProcessorSeconds() - soak.processorAtStart) / SecondsSinceStart();
    std::filesystem::remove_all(settings);
    std::printf("%.0f seconds, %.1f %% of a core\n", SecondsSinceStart(), 100 * share);
    std::printf("memory: %ld KiB in the second fifth, %ld KiB in the last\n", soak.firstMemory,
                soak.lastMemory);
    const bool pictureMoved = Moved("remote picture", soak.picture);
    const bool mapMoved = Moved("map", soak.map);
    return exitCode == 0 && pictureMoved && mapMoved ? 0 : 1;
}

int RunVideoSoak(int argc, char** argv) {
    constexpr int kMinute = 60;
    return RunVideoSoak(argc > 1 ? std::atoi(argv[1]) : kMinute);
}
