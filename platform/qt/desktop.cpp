#include "platform/qt/desktop.h"

#include <QGuiApplication>
#include <QStyle>
#include <QWidget>

namespace vxd::qt {

bool IsOffscreen() {
    static const bool offscreen = QGuiApplication::platformName() == QLatin1String("offscreen");
    return offscreen;
}

int PicturedCaptionHeight(const QWidget& window) {
    const bool pictured = IsOffscreen() && window.isWindow() &&
                          window.windowFlags().testFlag(Qt::WindowTitleHint) &&
                          window.windowType() != Qt::Popup;
    return pictured ? window.style()->pixelMetric(QStyle::PM_TitleBarHeight) : 0;
}

}  // namespace vxd::qt
