// The look of a control that has the keyboard. Some styles mark it too faintly to be found, or not
// at all.
#pragma once

#include <QProxyStyle>

class QWidget;

namespace vxd::qt {

// The person's own style, with a frame around lists and texts that have the focus and a mark on
// buttons that have it, whether a key or the mouse has brought it there.
class FocusStyle : public QProxyStyle {
  public:
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
};

// Gives a control that style, which all such controls share.
void ShowFocus(QWidget& control);

}  // namespace vxd::qt
