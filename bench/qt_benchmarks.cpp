// How long dialogs take on the Qt screen, until they are painted.
#include <benchmark/benchmark.h>

#include <QApplication>
#include <QWidget>

#include "bench/dialog_benchmarks.h"
#include "bench/map_benchmarks.h"
#include "bench/video_benchmarks.h"
#include "platform/qt/qt_screen.h"

namespace {

class WindowPainted : public QObject {
  public:
    // What is in a window is painted along with it, before any message comes.
    bool eventFilter(QObject* object, QEvent* event) override {
        if (event->type() == QEvent::Paint && object->isWidgetType() &&
            static_cast<QWidget*>(object)->isWindow())
            DialogIsSeen();
        return false;
    }
};

}  // namespace

int main(int argc, char** argv) {
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    auto& screen = *new vxd::QtScreen;  // for good, as the utility has it
    vxd::InstallScreen(screen);
    WindowPainted windowPainted;
    application.installEventFilter(&windowPainted);
    RegisterDialogBenchmarks();
    RegisterVideoBenchmarks();
    RegisterMapBenchmarks();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    screen.Retire();
}
