#include "app/dispatcher.h"

#include <algorithm>
#include <array>

#include "app/board_commands.h"
#include "app/board_menu.h"
#include "app/debug_level_commands.h"
#include "app/led.h"
#include "app/services/application.h"
#include "app/window_commands.h"
#include "codec/raw_command.h"
#include "debug/about.h"
#include "res/resource.h"

namespace {

using Action = void (*)(HWND window, uint32_t command);

struct Command {
    uint32_t id;
    Action run;
};

// A command that needs nothing but the main window.
template <void (*kRun)(HWND)>
void Run(HWND window, uint32_t /*command*/) {
    kRun(window);
}

// A command that opens a dialog; what the dialog answers is its own affair.
template <INT_PTR (*kOpen)(HINSTANCE, HWND)>
void Open(HWND window, uint32_t /*command*/) {
    kOpen(AppInstance, window);
}

constexpr std::array kCommands = {
    Command{IDM_FILE_EXIT, Run<ExitUtility>},
    Command{IDM_FILE_RESET, Run<ResetHardware>},
    Command{IDM_FILE_RESET_VXD, Run<ResetVxD>},
    Command{IDM_FILE_SEND_RAW_COMMAND, Open<OpenRawCommand>},

    Command{IDM_DEBUG_KORA_MUTE, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_ERROR, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_WARN, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_TRACE_1, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_TRACE_2, ChooseDebugLevel},
    Command{IDM_DEBUG_KORA_TRACE_3, ChooseDebugLevel},
    Command{IDM_DEBUG_LED, Run<ToggleLed>},

    Command{IDM_HELP_ABOUT, Open<OpenAbout>},
    Command{IDM_HELP_CHANGE_COLOR, Run<ChangeColor>},
    Command{IDM_HELP_ALWAYS_ON_TOP, Run<ToggleAlwaysOnTop>},

    Command{IDM_MENU_OLDER, Run<ChooseOlderMenu>},
    Command{IDM_MENU_NEWER, Run<ChooseNewerMenu>},
};

}  // namespace

LRESULT DispatchCommand(HWND window, uint32_t command) {
    const auto found = std::find_if(kCommands.begin(), kCommands.end(),
                                    [command](const Command& each) { return each.id == command; });
    if (found != kCommands.end())
        found->run(window, command);
    return 0;
}
