// The utility on the screen without a display, which says when its window is first painted, and
// ends.
#include "bench/first_paint_report.h"
#include "platform/headless/headless_screen.h"
#include "platform/win32.h"

namespace {

class Painted : public vxd::Widget {
  public:
    explicit Painted(const char* start) : start_(start) {}
    void Draw(const vxd::Pixels&, const vxd::Rect&) override { ReportFirstPaint(start_); }

  private:
    const char* start_;
};

class PaintedOnce : public vxd::HeadlessScreen {
  public:
    explicit PaintedOnce(const char* start) : widget_(start) {}
    vxd::Widget& Create(const vxd::WidgetSetup&) override { return widget_; }

  private:
    Painted widget_;  // of all windows
};

}  // namespace

int main(int argc, char** argv) {
    PaintedOnce screen(argc > 1 ? argv[1] : "0");
    vxd::InstallScreen(screen);
    char commandLine[] = "";
    return WinMain(GetModuleHandleA(nullptr), nullptr, commandLine, SW_SHOWNORMAL);
}
