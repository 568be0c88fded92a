// The utility on the screen without a display, which says when its window is first painted, and
// ends.
#include "bench/first_paint_report.h"
#include "platform/headless/headless_screen.h"
#include "platform/win32.h"

namespace {

class PaintedOnce : public vxd::HeadlessScreen {
  public:
    explicit PaintedOnce(const char* start) : start_(start) {}
    void Draw(vxd::WidgetId, const vxd::Pixels&, const vxd::Rect&) override {
        ReportFirstPaint(start_);
    }

  private:
    const char* start_;
};

}  // namespace

int main(int argc, char** argv) {
    PaintedOnce screen(argc > 1 ? argv[1] : "0");
    vxd::InstallScreen(screen);
    char commandLine[] = "";
    return WinMain(GetModuleHandleA(nullptr), nullptr, commandLine, SW_SHOWNORMAL);
}
