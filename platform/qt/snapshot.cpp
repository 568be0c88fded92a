#include "platform/qt/snapshot.h"

#include <QApplication>
#include <QPainter>
#include <QPixmap>
#include <QStyleOptionTitleBar>
#include <algorithm>
#include <tuple>
#include <vector>

#include "platform/qt/desktop.h"
#include "platform/qt/qt_screen.h"

namespace vxd::qt {
namespace {

constexpr int kMargin = 16;
constexpr QColor kDesktopColour(0x5C, 0x6B, 0x7A);
constexpr QColor kBorderColour(0x30, 0x38, 0x40);

bool IsPopup(const QWidget& window) {
    return window.windowType() == Qt::Popup;
}

// How many windows a window stands in front of because it belongs to them.
int Depth(const QWidget& window) {
    int depth = 0;
    for (const QWidget* at = window.parentWidget(); at != nullptr; at = at->parentWidget())
        depth += at->isWindow() ? 1 : 0;
    return depth;
}

std::vector<QWidget*> VisibleWindows() {
    std::vector<QWidget*> windows;
    for (QWidget* window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && !window->size().isEmpty())
            windows.push_back(window);
    }
    const auto order = [](const QWidget* window) {
        return std::tuple(IsPopup(*window), Depth(*window), window->isActiveWindow());
    };
    std::stable_sort(windows.begin(), windows.end(),
                     [&](const QWidget* a, const QWidget* b) { return order(a) < order(b); });
    return windows;
}

QRect WithCaption(const QWidget& window) {
    return window.geometry().adjusted(0, -PicturedCaptionHeight(window), 0, 0);
}

void PaintCaption(QPainter& painter, const QWidget& window) {
    QStyleOptionTitleBar option;
    option.initFrom(&window);
    option.rect = QRect(0, 0, window.width(), PicturedCaptionHeight(window));
    option.text = window.windowTitle();
    option.icon = window.windowIcon();
    option.titleBarFlags = window.windowFlags();
    option.subControls = QStyle::SC_TitleBarLabel;
    const auto add = [&](Qt::WindowType flag, QStyle::SubControl control) {
        if (window.windowFlags().testFlag(flag))
            option.subControls |= control;
    };
    add(Qt::WindowMinimizeButtonHint, QStyle::SC_TitleBarMinButton);
    add(Qt::WindowMaximizeButtonHint, QStyle::SC_TitleBarMaxButton);
    add(Qt::WindowCloseButtonHint, QStyle::SC_TitleBarCloseButton);
    if (!option.icon.isNull())
        option.subControls |= QStyle::SC_TitleBarSysMenu;
    if (window.isActiveWindow()) {
        option.titleBarState |= Qt::WindowActive;
        option.state |= QStyle::State_Active;
    } else {
        option.palette.setCurrentColorGroup(QPalette::Inactive);
    }
    window.style()->drawComplexControl(QStyle::CC_TitleBar, &option, &painter);
}

void PaintWindow(QPainter& painter, QWidget& window) {
    const QRect whole = WithCaption(window);
    painter.save();
    painter.translate(whole.topLeft());
    if (PicturedCaptionHeight(window) > 0) {
        PaintCaption(painter, window);
        painter.setPen(kBorderColour);
        painter.drawRect(QRect(QPoint(), whole.size()).adjusted(-1, -1, 0, 0));
    }
    painter.drawPixmap(0, PicturedCaptionHeight(window), window.grab());
    painter.restore();
}

bool SavePicture(const std::vector<QWidget*>& windows, const std::string& path) {
    QRect covered;
    for (const QWidget* window : windows)
        covered |= WithCaption(*window);
    if (covered.isEmpty())
        return false;
    covered.adjust(-kMargin, -kMargin, kMargin, kMargin);
    QPixmap picture(covered.size());
    picture.fill(kDesktopColour);
    QPainter painter(&picture);
    painter.translate(-covered.topLeft());
    for (QWidget* window : windows)
        PaintWindow(painter, *window);
    painter.end();
    return picture.save(QString::fromStdString(path), "PNG");
}

}  // namespace

bool SaveDesktopPicture(const std::string& path) {
    return SavePicture(VisibleWindows(), path);
}

bool SaveWindowPicture(WidgetId id, const std::string& path) {
    const auto* screen = dynamic_cast<const QtScreen*>(&CurrentScreen());
    QWidget* widget = screen != nullptr ? screen->NativeWidget(id) : nullptr;
    if (widget == nullptr || !widget->isVisible())
        return false;
    return widget->isWindow() ? SavePicture({widget}, path)
                              : widget->grab().save(QString::fromStdString(path), "PNG");
}

}  // namespace vxd::qt
