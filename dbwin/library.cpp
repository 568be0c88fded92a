// The viewer's library, by which programs ask what it wants to see.
#include "platform/debug_monitor.h"

extern "C" {

// 0 while the viewer is paused, else 1.
int GetOutputMode() {
    return IsDebugMonitorPaused() ? 0 : 1;
}
}
