// The least that a Qt program with a menu bar does: what the utility's start is measured against.
#include <QApplication>
#include <QMainWindow>
#include <QMenuBar>

#include "bench/first_paint_report.h"

namespace {

constexpr int kMenuEntries = 14;

class BareWindow : public QMainWindow {
  public:
    explicit BareWindow(const char* start) : start_(start) {
        for (int entry = 0; entry < kMenuEntries; ++entry)
            menuBar()->addMenu(QStringLiteral("Entry %1").arg(entry))->addAction("Command");
        resize(900, 180);
    }

  protected:
    void paintEvent(QPaintEvent* event) override {
        QMainWindow::paintEvent(event);
        // The picture reaches the desktop when this event has been handled.
        QMetaObject::invokeMethod(
            this, [this] { ReportFirstPaint(start_); }, Qt::QueuedConnection);
    }

  private:
    const char* start_;
};

}  // namespace

int main(int argc, char** argv) {
    const char* start = argc > 1 ? argv[1] : "0";
    QApplication application(argc, argv);
    BareWindow window(start);
    window.show();
    return QApplication::exec();
}
