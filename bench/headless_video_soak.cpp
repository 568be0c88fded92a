// The utility's video at work on the screen without a display, as the sanitizers watch it.
#include "bench/video_soak.h"
#include "platform/headless/headless_screen.h"

int main(int argc, char** argv) {
    vxd::HeadlessScreen screen;
    vxd::InstallScreen(screen);
    return RunVideoSoak(argc, argv);
}
