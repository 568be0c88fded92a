// What a program draws on a control lies over the control's own look.
#pragma once

#include <QImage>
#include <QWidget>

#include "platform/screen.h"

namespace vxd::qt {

class Overlay : public QWidget {
  public:
    // Over all of `control`, and as large as the pixels.
    explicit Overlay(QWidget& control);

    void Draw(const Pixels& pixels, const Rect& changed);

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    QImage image_;
};

}  // namespace vxd::qt
