#include "platform/screen.h"

#include "platform/headless/headless_screen.h"

namespace vxd {
namespace {

Screen* installed = nullptr;

}  // namespace

void InstallScreen(Screen& screen) {
    installed = &screen;
}

Screen& CurrentScreen() {
    static HeadlessScreen headless;
    return installed != nullptr ? *installed : headless;
}

}  // namespace vxd
