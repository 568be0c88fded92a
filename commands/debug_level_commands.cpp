#include "commands/debug_level_commands.h"

#include <algorithm>
#include <array>

#include "res/resource.h"
#include "services/diagnostics.h"
#include "services/settings.h"

namespace {

struct DebugLevel {
    uint32_t command;
    uint16_t level;
};

constexpr std::array kDebugLevels = {
    DebugLevel{IDM_DEBUG_KORA_MUTE, 0},    DebugLevel{IDM_DEBUG_KORA_ERROR, 1},
    DebugLevel{IDM_DEBUG_KORA_WARN, 2},    DebugLevel{IDM_DEBUG_KORA_TRACE_1, 3},
    DebugLevel{IDM_DEBUG_KORA_TRACE_2, 4}, DebugLevel{IDM_DEBUG_KORA_TRACE_3, 5},
};

// The board's other programs count their levels in tens.
constexpr int kStoredScale = 10;

}  // namespace

void ChooseDebugLevel(HWND /*window*/, uint32_t command) {
    const auto chosen =
        std::find_if(kDebugLevels.begin(), kDebugLevels.end(),
                     [command](const DebugLevel& each) { return each.command == command; });
    if (chosen == kDebugLevels.end())
        return;
    ForceDebugOutputLevel(chosen->level);
    WriteSetting(setting::kDebugLevel, chosen->level * kStoredScale);
}
