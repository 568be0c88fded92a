#include "platform/window_system.h"

WindowSystem CurrentWindowSystem() {
    return WindowSystem::kLayer;
}
