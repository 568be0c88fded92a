#include "platform/qt/surface.h"

#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <array>

#include "platform/qt/control.h"
#include "platform/qt/first_paint.h"
#include "platform/qt/image.h"
#include "platform/win32.h"

namespace vxd::qt {
namespace {

struct MouseMessages {
    Qt::MouseButton button;
    std::uint32_t press;
    std::uint32_t release;
    std::uint32_t doubleClick;
};

constexpr std::array kMouseMessages{
    MouseMessages{Qt::LeftButton, WM_LBUTTONDOWN, WM_LBUTTONUP, WM_LBUTTONDBLCLK},
    MouseMessages{Qt::RightButton, WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK},
};

class SurfaceControl : public Control {
  public:
    SurfaceControl(const WidgetSetup& setup, QWidget& parent, Report& report)
        : Control(setup, std::make_unique<Surface>(setup.id, setup.kind, &parent, report)) {}

    void Draw(const Pixels& pixels, const Rect& changed) override {
        static_cast<Surface&>(NativeWidget()).Draw(pixels, changed);
    }
};

void ReportWheel(Report& report, WidgetId id, const QWheelEvent& wheel) {
    const QPoint where = wheel.position().toPoint();
    if (const int turned = wheel.angleDelta().y(); turned != 0)
        report(input::Wheel, id, turned, Point{where.x(), where.y()});
}

}  // namespace

bool ReportMouse(Report& report, WidgetId id, const QEvent& event) {
    std::uint32_t MouseMessages::*message = nullptr;
    switch (event.type()) {
        case QEvent::MouseButtonPress:
            message = &MouseMessages::press;
            break;
        case QEvent::MouseButtonRelease:
            message = &MouseMessages::release;
            break;
        case QEvent::MouseButtonDblClick:
            message = &MouseMessages::doubleClick;
            break;
        case QEvent::Wheel:
            ReportWheel(report, id, static_cast<const QWheelEvent&>(event));
            return true;
        default:
            return false;
    }
    const auto& mouse = static_cast<const QMouseEvent&>(event);
    for (const MouseMessages& messages : kMouseMessages) {
        if (messages.button == mouse.button()) {
            const QPoint where = mouse.position().toPoint();
            report(input::Mouse, id, messages.*message, Point{where.x(), where.y()});
        }
    }
    return true;
}

Surface::Surface(WidgetId id, WidgetKind kind, QWidget* parent, Report& report)
    : QWidget(parent), id_(id), kind_(kind), report_(report) {
    // The whole area is painted each time; the desktop need not clear it first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    setContextMenuPolicy(Qt::PreventContextMenu);
}

void Surface::Draw(const Pixels& pixels, const Rect& changed) {
    update(qt::Update(image_, pixels, changed, QImage::Format_RGB32));
}

bool Surface::event(QEvent* event) {
    return ReportMouse(report_, id_, *event) || QWidget::event(event);
}

void Surface::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    // Until the core has drawn for a new size, part of the area has no pixels yet.
    if (!image_.rect().contains(event->rect()))
        painter.fillRect(event->rect(), palette().window());
    Paint(painter, image_);
    if (kind_ == WidgetKind::kWindow)
        ClientAreaPainted();
}

std::unique_ptr<Control> MakeSurface(const WidgetSetup& setup, QWidget& parent, Report& report) {
    return std::make_unique<SurfaceControl>(setup, parent, report);
}

}  // namespace vxd::qt
