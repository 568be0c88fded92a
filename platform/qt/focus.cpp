#include "platform/qt/focus.h"

#include <QApplication>
#include <QPainter>
#include <QStyleOption>
#include <QWidget>

namespace vxd::qt {
namespace {

void DrawFrame(const QStyleOption& option, QPainter& painter) {
    constexpr int kWidth = 2;
    painter.save();
    QPen pen(option.palette.color(QPalette::Highlight), kWidth);
    pen.setJoinStyle(Qt::MiterJoin);
    painter.setPen(pen);
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(option.rect.adjusted(kWidth / 2, kWidth / 2, -kWidth / 2, -kWidth / 2));
    painter.restore();
}

}  // namespace

void FocusStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                               QPainter* painter, const QWidget* widget) const {
    const auto* focus = qstyleoption_cast<const QStyleOptionFocusRect*>(option);
    if (element != PE_FrameFocusRect || focus == nullptr)
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    QStyleOptionFocusRect shown(*focus);
    shown.state |= State_KeyboardFocusChange;
    QProxyStyle::drawPrimitive(element, &shown, painter, widget);
}

void FocusStyle::drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                             const QWidget* widget) const {
    QProxyStyle::drawControl(element, option, painter, widget);
    if (!option->state.testFlag(State_HasFocus))
        return;
    if (element == CE_ShapedFrame) {
        DrawFrame(*option, *painter);
    } else if (element == CE_PushButton) {
        QStyleOptionFocusRect focus;
        focus.QStyleOption::operator=(*option);
        focus.rect = subElementRect(SE_PushButtonFocusRect, option, widget);
        proxy()->drawPrimitive(PE_FrameFocusRect, &focus, painter, widget);
    }
}

void ShowFocus(QWidget& control) {
    static QStyle* style = [] {
        auto* made = new FocusStyle;
        made->setParent(qApp);
        return made;
    }();
    control.setStyle(style);
}

}  // namespace vxd::qt
