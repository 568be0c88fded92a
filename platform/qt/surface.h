// Areas that show the program's own pixels.
#pragma once

#include <QImage>
#include <QWidget>

#include "platform/qt/report.h"
#include "platform/screen.h"

namespace vxd::qt {

// Tells the core a mouse or wheel event on a window, dialog or surface; gives whether it was one.
bool ReportMouse(Report& report, WidgetId id, const QEvent& event);

class Surface : public QWidget {
  public:
    Surface(WidgetId id, WidgetKind kind, QWidget* parent, Report& report);

    void Draw(const Pixels& pixels, const Rect& changed);

  protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

  private:
    WidgetId id_;
    WidgetKind kind_;
    Report& report_;
    QImage image_;
};

}  // namespace vxd::qt
