#include "platform/screen.h"

#include "platform/headless/headless_screen.h"

namespace vxd {
namespace {

Screen* installed = nullptr;

}  // namespace

void InstallScreen(Screen& screen) {
    installed = &screen;
}

Widget& NoWidget() {
    static Widget none;
    return none;
}

Screen& CurrentScreen() {
    // Never destroyed: other threads may still wake it while the process ends.
    static HeadlessScreen& headless = *new HeadlessScreen;
    return installed != nullptr ? *installed : headless;
}

}  // namespace vxd
