// "VPP Statistics": the motion vectors that the video post-processing reports, as a map that
// follows them and, of one record, as a list, with its times.
#include "video/vpp_statistics.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "driver/kora_dll32.h"
#include "driver/result_code.h"
#include "driver/vpp.h"
#include "res/resource.h"
#include "services/application.h"
#include "services/dialog_kit.h"
#include "video/motion_map.h"

namespace {

// What bitmaps are drawn into has its place in pixels, of which dialog units have more the larger
// the font is. Of the map each pixel is one of the picture's; the scale lies between it and the
// caption of the group, also where a dialog unit has 3.25 pixels.
struct Place {
    int control;
    int x;
    int y;
    int width;
    int height;
};
constexpr auto kPlaces = std::to_array<Place>({
    {IDC_MOTION_SCALE, 20, 35, 400, 46},
    {IDC_MOTION_MAP, 28, 82, 352, 288},
});

// What is enabled along with the statistics.
constexpr std::array kStatisticsControls{
    IDC_MOTION_MAPPING,    IDC_MOTION_MAGNITUDE,      IDC_MOTION_X,
    IDC_MOTION_Y,          IDC_MOTION_CONTINUOUS,     IDC_MOTION_SINGLE,
    IDC_MOTION_GET,        IDC_VPP_TIMINGS,           IDC_VPP_FRAME_LABEL,
    IDC_VPP_FRAME,         IDC_VPP_EXTRAPOLATE_LABEL, IDC_VPP_EXTRAPOLATE,
    IDC_VPP_PROCESS_LABEL, IDC_VPP_PROCESS,           IDC_VPP_MACROBLOCK_LABEL,
    IDC_VPP_MACROBLOCK,
};

struct Statistics {
    VppStatistics current{};
    VppStatistics previous{};  // what the map shows; of it only what differs is drawn
    bool on = false;
    bool feeding = false;  // the driver was asked for records and not to stop them
    bool continuous = false;
    bool snapshotRequested = false;
    MotionShown shown = MotionShown::kMagnitude;
    MotionMap map;
};

Statistics& Of(HWND dialog) {
    return StateOf<Statistics>(dialog);
}

void EnableControls(HWND dialog, bool enable) {
    for (const int control : kStatisticsControls) {
        EnableWindow(GetDlgItem(dialog, control), enable);
    }
}

void DrawMap(HWND dialog) {
    const Statistics& statistics = Of(dialog);
    statistics.map.Draw(GetDlgItem(dialog, IDC_MOTION_MAP), statistics.current, statistics.previous,
                        statistics.shown);
}

void Open(HWND dialog) {
    CheckRadioButton(dialog, IDC_VPP_STATISTICS_DISABLE, IDC_VPP_STATISTICS_ENABLE,
                     IDC_VPP_STATISTICS_DISABLE);
    CheckRadioButton(dialog, IDC_MOTION_MAGNITUDE, IDC_MOTION_Y, IDC_MOTION_MAGNITUDE);
    CheckDlgButton(dialog, IDC_MOTION_SINGLE, BST_CHECKED);
    EnableControls(dialog, false);
    for (const Place& place : kPlaces) {
        SetWindowPos(GetDlgItem(dialog, place.control), nullptr, place.x, place.y, place.width,
                     place.height, SWP_NOZORDER);
    }
    Of(dialog).map.Load(AppInstance, dialog);
}

void Stop(HWND dialog) {
    Of(dialog).feeding = false;
    KORA_DLL_StopVppStatistics();
}

void EnableStatistics(HWND dialog) {
    Statistics& statistics = Of(dialog);
    statistics.on = true;
    statistics.feeding = CodeOf(KORA_DLL_StartVppStatistics(dialog)) == VXD_SUCCESS;
    if (!statistics.feeding) {
        Stop(dialog);
    }
    EnableControls(dialog, statistics.feeding);
}

void DisableStatistics(HWND dialog) {
    Of(dialog).on = false;
    Stop(dialog);
    EnableControls(dialog, false);
}

template <MotionShown kShown>
void Show(HWND dialog) {
    Of(dialog).previous = {};
    Of(dialog).shown = kShown;
    DrawMap(dialog);
}

template <bool kContinuous>
void ChooseRefresh(HWND dialog) {
    Of(dialog).previous = {};
    Of(dialog).continuous = kContinuous;
    EnableWindow(GetDlgItem(dialog, IDC_MOTION_GET), !kContinuous);
}

void RequestSnapshot(HWND dialog) {
    Of(dialog).previous = {};
    Of(dialog).snapshotRequested = true;
}

void ListVectors(HWND dialog, const VppStatistics& record) {
    const HWND list = GetDlgItem(dialog, IDC_MOTION_LIST);
    SendMessageA(list, LB_RESETCONTENT, 0, 0);
    for (std::size_t block = 0; block < record.vectors.size(); ++block) {
        const MotionVector vector = record.vectors[block];
        char line[32];
        std::snprintf(line, sizeof line, "%03u: (%3d,%3d)", static_cast<unsigned>(block), vector.x,
                      vector.y);
        SendMessageA(list, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>(line));
    }
}

void ShowTimings(HWND dialog, const VppStatistics& record) {
    ShowField(dialog, IDC_VPP_FRAME, "%d", record.frame);
    ShowField(dialog, IDC_VPP_EXTRAPOLATE, "%u", record.extrapolateTime);
    ShowField(dialog, IDC_VPP_PROCESS, "%u", record.frameProcessTime);
    ShowField(dialog, IDC_VPP_MACROBLOCK, "%u", record.macroblockProcessTime);
}

void Copy(VppStatistics& record, LPARAM address) {
    std::memcpy(&record, reinterpret_cast<const void*>(address), sizeof record);
}

// Takes the records that have come meanwhile too, up to whatever else the driver says, and leaves
// the newest: a map that is slower than its records follows them all the same.
void TakeWaitingRecords(HWND dialog, VppStatistics& record) {
    MSG next;
    while (PeekMessageA(&next, dialog, WM_VPP_STATIST_INIT, WM_VPP_STATIST_DATA, PM_NOREMOVE) &&
           next.message == WM_VPP_STATIST_DATA &&
           PeekMessageA(&next, dialog, WM_VPP_STATIST_DATA, WM_VPP_STATIST_DATA, PM_REMOVE)) {
        Copy(record, next.lParam);
    }
}

void TakeRecord(HWND dialog, WPARAM /*wParam*/, LPARAM address) {
    Statistics& statistics = Of(dialog);
    if (!statistics.on || !(statistics.continuous || statistics.snapshotRequested)) {
        return;
    }
    statistics.previous = statistics.current;
    Copy(statistics.current, address);
    // One that was asked for before the refresh mode changed is this one.
    statistics.snapshotRequested = false;
    if (statistics.continuous) {
        TakeWaitingRecords(dialog, statistics.current);
    } else {
        ListVectors(dialog, statistics.current);
        ShowTimings(dialog, statistics.current);
    }
    DrawMap(dialog);
}

void NoteStart(HWND dialog, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    OutputDebugStringA("KORA_TST: WM_VPP_STATIST_INIT\n");
    Of(dialog).on = true;
}

void NoteEnd(HWND dialog, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    OutputDebugStringA("KORA_TST: WM_VPP_STATIST_TERM\n");
    Of(dialog).on = false;
}

void Paint(HWND dialog, WPARAM /*wParam*/, LPARAM /*lParam*/) {
    PAINTSTRUCT paint;
    BeginPaint(dialog, &paint);
    EndPaint(dialog, &paint);
    Of(dialog).map.DrawScale(GetDlgItem(dialog, IDC_MOTION_SCALE));
    if (Of(dialog).on) {
        DrawMap(dialog);
    }
}

// Whoever goes on feeding would feed a window that is gone.
void End(HWND dialog) {
    if (Of(dialog).feeding || Of(dialog).on) {
        Stop(dialog);
    }
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_VPP_STATISTICS_ENABLE, EnableStatistics},
    {IDC_VPP_STATISTICS_DISABLE, DisableStatistics},
    {IDC_MOTION_MAGNITUDE, Show<MotionShown::kMagnitude>},
    {IDC_MOTION_X, Show<MotionShown::kX>},
    {IDC_MOTION_Y, Show<MotionShown::kY>},
    {IDC_MOTION_CONTINUOUS, ChooseRefresh<true>},
    {IDC_MOTION_SINGLE, ChooseRefresh<false>},
    {IDC_MOTION_GET, RequestSnapshot},
    {IDCANCEL, EndWith<0>},
});

constexpr auto kMessages = std::to_array<DialogMessage>({
    {WM_VPP_STATIST_INIT, NoteStart},
    {WM_VPP_STATIST_TERM, NoteEnd},
    {WM_VPP_STATIST_DATA, TakeRecord},
    {WM_PAINT, Paint},
});

}  // namespace

INT_PTR OpenVppStatistics(HINSTANCE instance, HWND owner) {
    Statistics statistics;
    return RunDialog(instance, IDD_VPP_STATISTICS, owner,
                     {.open = Open, .actions = kActions, .messages = kMessages, .end = End},
                     &statistics);
}
