// "Set Debug Levels". The levels and flags live on the board: they are read as the dialog opens and
// when the engineer asks, and written at once.
#include "debug/debug_levels.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

#include "driver/debug_levels.h"
#include "driver/firmware_command.h"
#include "driver/papi.h"
#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/dialog_kit.h"

namespace {

struct DebugLevelEntry {
    const char* name;
    uint16_t level;
};

// In the order of the level box.
constexpr auto kLevels = std::to_array<DebugLevelEntry>({
    {"TRACE5", DEBUG_LEVEL_TRACE5},
    {"TRACE4", DEBUG_LEVEL_TRACE4},
    {"TRACE3", DEBUG_LEVEL_TRACE3},
    {"TRACE2", DEBUG_LEVEL_TRACE2},
    {"TRACE1", DEBUG_LEVEL_TRACE1},
    {"WARN", DEBUG_LEVEL_WARN},
    {"ERROR", DEBUG_LEVEL_ERROR},
    {"NONE", DEBUG_LEVEL_NONE},
});

constexpr uint16_t kFailedLevel = 0xFFFF;  // no entry of the box stands for it

struct UsbTraceFlag {
    int box;
    uint32_t bit;
};

constexpr auto kUsbTraceFlags = std::to_array<UsbTraceFlag>({
    {IDC_USB_ERRORS, USB_TRACE_ERRORS},
    {IDC_USB_ANY, USB_TRACE_ANY},
    {IDC_USB_FLOW, USB_TRACE_FLOW},
    {IDC_USB_CHAP9, USB_TRACE_CHAP9},
    {IDC_USB_PROTO, USB_TRACE_PROTO},
    {IDC_USB_BUFQE, USB_TRACE_BUFQE},
    {IDC_USB_HWINT, USB_TRACE_HWINT},
    {IDC_USB_TXDATA, USB_TRACE_TXDATA},
    {IDC_USB_RXDATA, USB_TRACE_RXDATA},
    {IDC_USB_HWDIAG, USB_TRACE_HWDIAG},
    {IDC_USB_HWEVENT, USB_TRACE_HWEVENT},
    {IDC_USB_VSP, USB_TRACE_VSP},
});

// --- Modules ---

LRESULT SelectedModule(HWND dialog) {
    return SendDlgItemMessageA(dialog, IDC_DEBUG_MODULES, LB_GETCURSEL, 0, 0);
}

// A level that has no name counts as the entry's number itself: beyond the last one it leaves the
// box without a selection.
WPARAM EntryOf(uint16_t level) {
    const auto found = std::ranges::find(kLevels, level, &DebugLevelEntry::level);
    return found == kLevels.end() ? level : static_cast<WPARAM>(found - kLevels.begin());
}

void ShowLevel(HWND dialog, uint16_t level) {
    SelectRow(dialog, IDC_DEBUG_LEVEL, EntryOf(level));
}

void ShowModuleLevel(HWND dialog) {
    const LRESULT row = SelectedModule(dialog);
    if (row == LB_ERR) {
        return;
    }
    uint16_t level = 0;
    const ResultCode code = CodeOf(
        vdapi_GetModuleDebugLevel(kFirmwareModules[static_cast<std::size_t>(row)].id, &level));
    ReportFailure(dialog, code, "vdapi_GetModuleDebugLevel");
    ShowLevel(dialog, code == VXD_SUCCESS ? level : kFailedLevel);
}

void SetLevel(HWND dialog, const FirmwareModuleEntry& module, uint16_t level) {
    ReportFailure(dialog, CodeOf(vdapi_SetModuleDebugLevel(module.id, level)),
                  "vdapi_SetModuleDebugLevel");
}

void SetModuleLevel(HWND dialog) {
    const LRESULT row = SelectedModule(dialog);
    const LRESULT entry = SendDlgItemMessageA(dialog, IDC_DEBUG_LEVEL, CB_GETCURSEL, 0, 0);
    if (row != LB_ERR && entry != CB_ERR) {
        SetLevel(dialog, kFirmwareModules[static_cast<std::size_t>(row)],
                 kLevels[static_cast<std::size_t>(entry)].level);
    }
}

template <uint16_t kLevel>
void SetAllModules(HWND dialog) {
    const LRESULT row = SelectedModule(dialog);
    if (row == LB_ERR) {
        return;
    }
    for (const FirmwareModuleEntry& module : kFirmwareModules) {
        SetLevel(dialog, module, kLevel);
    }
    SendDlgItemMessageA(dialog, IDC_DEBUG_MODULES, LB_SETCURSEL, static_cast<WPARAM>(row), 0);
    ShowLevel(dialog, kLevel);
}

// --- USB ---

// Nothing where the read failed, which is reported.
std::optional<uint32_t> ReadUsbTrace(HWND dialog) {
    uint32_t flags = 0;
    uint32_t unused = 0;
    uint16_t unusedShort = 0;
    const ResultCode code = CodeOf(vdapi_SendCommand(
        PELLAN_COMMAND_GET_SOFTWARE_VAR, kUsbTraceVariable, 0, 0, &flags, &unused, &unusedShort));
    ReportFailure(dialog, code, "vdapi_Debug: PELLAN_COMMAND_GET_SOFTWARE_VAR ");
    return code == VXD_SUCCESS ? std::optional(flags) : std::nullopt;
}

void RefreshUsbTrace(HWND dialog) {
    const std::optional<uint32_t> flags = ReadUsbTrace(dialog);
    if (!flags) {
        return;
    }
    for (const UsbTraceFlag& flag : kUsbTraceFlags) {
        CheckDlgButton(dialog, flag.box, (*flags & flag.bit) != 0 ? BST_CHECKED : BST_UNCHECKED);
    }
}

void UpdateUsbTrace(HWND dialog) {
    uint32_t flags = 0;
    for (const UsbTraceFlag& flag : kUsbTraceFlags) {
        if (IsDlgButtonChecked(dialog, flag.box) == BST_CHECKED) {
            flags |= flag.bit;
        }
    }
    uint32_t unused = 0;
    uint32_t unusedToo = 0;
    uint16_t unusedShort = 0;
    ReportFailure(dialog,
                  CodeOf(vdapi_SendCommand(PELLAN_COMMAND_SET_SOFTWARE_VAR, kUsbTraceVariable,
                                           flags, 0, &unused, &unusedToo, &unusedShort)),
                  "vdapi_Debug: PELLAN_COMMAND_SET_SOFTWARE_VAR ");
}

// --- The dialog ---

// Adds names as far as a list or a combo box takes them.
template <typename Table>
void AddNames(HWND control, UINT message, const Table& table) {
    for (const auto& row : table) {
        if (SendMessageA(control, message, 0, reinterpret_cast<LPARAM>(row.name)) < 0) {
            return;
        }
    }
}

void Open(HWND dialog) {
    const HWND levels = GetDlgItem(dialog, IDC_DEBUG_LEVEL);
    SendMessageA(levels, CB_RESETCONTENT, 0, 0);
    AddNames(levels, CB_ADDSTRING, kLevels);
    const HWND modules = GetDlgItem(dialog, IDC_DEBUG_MODULES);
    SendMessageA(modules, LB_RESETCONTENT, 0, 0);
    AddNames(modules, LB_ADDSTRING, kFirmwareModules);
    SendMessageA(modules, LB_SETCURSEL, 0, 0);
    ShowModuleLevel(dialog);
    RefreshUsbTrace(dialog);
}

constexpr auto kActions = std::to_array<DialogAction>({
    {IDC_DEBUG_MODULES, ShowModuleLevel, LBN_SELCHANGE},
    {IDC_DEBUG_MODULES, ShowModuleLevel, LBN_DBLCLK},
    {IDC_DEBUG_MODULES, ShowModuleLevel, LBN_SETFOCUS},
    {IDC_DEBUG_LEVEL, SetModuleLevel, CBN_SELCHANGE},
    {IDC_DEBUG_MUTE, SetAllModules<DEBUG_LEVEL_NONE>},
    {IDC_DEBUG_TECHNICAL, SetAllModules<DEBUG_LEVEL_ERROR>},
    {IDC_DEBUG_TRACE, SetAllModules<DEBUG_LEVEL_TRACE1>},
    {IDC_USB_UPDATE, UpdateUsbTrace},
    {IDC_USB_REFRESH, RefreshUsbTrace},
    {IDCANCEL, EndWith<0>},
});

}  // namespace

INT_PTR OpenDebugLevels(HINSTANCE instance, HWND owner) {
    return RunDialog(instance, IDD_DEBUG_LEVELS, owner, {Open, kActions});
}
