#include "commands/window_commands.h"

#include "res/resource.h"
#include "services/settings.h"

namespace {

bool alwaysOnTop = false;

void ApplyAlwaysOnTop(HWND window) {
    SetWindowPos(window, alwaysOnTop ? HWND_TOPMOST : HWND_NOTOPMOST, 0, 0, 0, 0,
                 SWP_NOSIZE | SWP_NOMOVE);
    MarkAlwaysOnTop(window);
}

}  // namespace

void ExitUtility(HWND window) {
    PostMessageA(window, WM_CLOSE, 0, 0);
}

void ChangeColor(HWND window) {
    InvalidateRect(window, nullptr, FALSE);
}

void ToggleAlwaysOnTop(HWND window) {
    alwaysOnTop = !alwaysOnTop;
    ApplyAlwaysOnTop(window);
    WriteSetting(setting::kAlwaysOnTop, alwaysOnTop);
    WriteSetting(setting::kAlwaysOnTopShared, alwaysOnTop);
}

void RestoreAlwaysOnTop(HWND window) {
    alwaysOnTop = ReadSetting(setting::kAlwaysOnTop) != 0;
    ApplyAlwaysOnTop(window);
}

void MarkAlwaysOnTop(HWND window) {
    CheckMenuItem(GetMenu(window), IDM_HELP_ALWAYS_ON_TOP, alwaysOnTop ? MF_CHECKED : MF_UNCHECKED);
}
