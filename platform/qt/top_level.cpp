#include "platform/qt/top_level.h"

#include <QApplication>
#include <QCloseEvent>
#include <QElapsedTimer>
#include <QIcon>
#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>
#include <QWindow>

#include "platform/qt/accessibility.h"
#include "platform/qt/desktop.h"
#include "platform/qt/image.h"
#include "platform/qt/menus.h"
#include "platform/qt/surface.h"
#include "platform/qt/text.h"
#include "platform/win32.h"

namespace vxd::qt {
namespace {

Qt::WindowFlags WindowFlags(const WidgetSetup& setup) {
    const bool dialog = setup.kind == WidgetKind::kDialog;
    Qt::WindowFlags flags = dialog ? Qt::Dialog : Qt::Window;
    if ((setup.style & WS_CAPTION) != WS_CAPTION)
        return flags | Qt::FramelessWindowHint;
    // A dialog uses the bits of the two boxes to other ends.
    constexpr std::uint32_t kAllBoxes = WS_SYSMENU | WS_MINIMIZEBOX | WS_MAXIMIZEBOX;
    const std::uint32_t boxes = setup.style & (dialog ? WS_SYSMENU : kAllBoxes);
    if (boxes == kAllBoxes)
        return flags;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    flags.setFlag(Qt::WindowSystemMenuHint, (boxes & WS_SYSMENU) != 0);
    flags.setFlag(Qt::WindowCloseButtonHint, (boxes & WS_SYSMENU) != 0);
    flags.setFlag(Qt::WindowMinimizeButtonHint, (boxes & WS_MINIMIZEBOX) != 0);
    flags.setFlag(Qt::WindowMaximizeButtonHint, (boxes & WS_MAXIMIZEBOX) != 0);
    return flags;
}

// An open menu of a window that takes no input any more would keep mouse and keyboard from the one
// that does.
void CloseMenusOf(const QWidget& window) {
    const auto isOf = [&window](const QObject* popup) {
        while (popup != nullptr && popup != &window) {
            popup = popup->parent();
        }
        return popup != nullptr;
    };
    // The innermost one is the active one.
    QWidget* closed = nullptr;
    for (QWidget* popup = QApplication::activePopupWidget();
         popup != nullptr && popup != closed && isOf(popup);
         popup = QApplication::activePopupWidget()) {
        closed = popup;
        popup->close();
    }
}

}  // namespace

class Frame : public QWidget {
  public:
    Frame(const WidgetSetup& setup, QWidget* owner, Report& report)
        : QWidget(owner, WindowFlags(setup)), id_(setup.id), report_(report) {
        setContextMenuPolicy(Qt::PreventContextMenu);
        if (setup.kind == WidgetKind::kDialog) {
            const bool isMessage = (setup.style & DS_NOIDLEMSG) != 0;
            SetRole(*this, isMessage ? QAccessible::AlertMessage : QAccessible::Dialog);
            return;
        }
        SetRole(*this, QAccessible::Window);
        client_ = std::make_unique<Surface>(setup.id, setup.kind, this, report);
        menu_ = std::make_unique<MenuRows>(
            *this, [this](int position) { report_(input::MenuOpened, id_, position); },
            [this](std::uint32_t command) { report_(input::MenuChosen, id_, command); });
    }

    Surface* Client() const { return client_.get(); }
    MenuRows* Menu() const { return menu_.get(); }

    // What is drawn on a dialog lies on its own look, behind its controls.
    void DrawOnDialog(const Pixels& pixels, const Rect& changed) {
        update(qt::Update(drawing_, pixels, changed, QImage::Format_ARGB32));
    }

    // Gives the place before.
    QRect PlacedByCore(const QRect& rect) { return std::exchange(placed_, rect); }

    void LayOut() {
        if (client_ == nullptr)
            return;
        const int top = menu_->LayOut(width());
        client_->setGeometry(0, top, width(), std::max(0, height() - top));
    }

  protected:
    bool event(QEvent* event) override {
        return (client_ == nullptr && IsOwnMouse(*event) && ReportMouse(report_, id_, *event)) ||
               QWidget::event(event);
    }

    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        Paint(painter, drawing_);
    }

    void closeEvent(QCloseEvent* event) override {
        event->ignore();
        report_(input::CloseRequested, id_);
    }

    void showEvent(QShowEvent*) override {
        // Styles draw the focus only in windows where Qt itself saw the keyboard move it.
        setAttribute(Qt::WA_KeyboardFocusChange);
        // Some changes of a window's looks make its native part anew.
        if (client_ != nullptr)
            windowHandle()->installEventFilter(this);
        ReportPlace();
    }

    void hideEvent(QHideEvent* event) override {
        // Minimised by the desktop, the window comes back uncovered; hidden by the core, it is
        // shown for the first time again.
        if (!event->spontaneous())
            exposedSize_ = QSize();
    }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object == windowHandle() && event->type() == QEvent::Expose)
            ReportExposure(static_cast<const QExposeEvent&>(*event));
        return QWidget::eventFilter(object, event);
    }

    void moveEvent(QMoveEvent*) override { ReportPlace(); }

    void resizeEvent(QResizeEvent*) override {
        LayOut();
        ReportPlace();
    }

    // The core alone moves the focus.
    bool focusNextPrevChild(bool) override { return false; }

  private:
    // Some of Qt's controls hand on a button of the mouse that they have no use for, which is not
    // the dialog's for that. The wheel is.
    bool IsOwnMouse(const QEvent& event) const {
        switch (event.type()) {
            case QEvent::MouseButtonPress:
            case QEvent::MouseButtonRelease:
            case QEvent::MouseButtonDblClick:
                return childAt(static_cast<const QMouseEvent&>(event).position().toPoint()) ==
                       nullptr;
            default:
                return true;
        }
    }

    // A window that is shown, or has a new size, is painted by the core anyway. X tells of either
    // more than once, in quick succession.
    void ReportExposure(const QExposeEvent& event) {
        constexpr int kSettling = 300;  // milliseconds
        if (std::exchange(exposedSize_, size()) != size())
            sinceNewSize_.start();
        if (!sinceNewSize_.hasExpired(kSettling))
            return;
        QT_WARNING_PUSH
        QT_WARNING_DISABLE_DEPRECATED
        const QRect area = event.region().boundingRect();
        QT_WARNING_POP
        const QRect lost = client_->geometry().intersected(area).translated(-client_->pos());
        if (!lost.isEmpty())
            report_(input::Uncovered, id_, FromQt(lost));
    }

    void ReportPlace() {
        if (!isVisible() || geometry() == placed_)
            return;
        // The desktop may have its own mind about a place that the core has just given.
        if (!report_.IsOpen()) {
            QMetaObject::invokeMethod(
                this, [this] { ReportPlace(); }, Qt::QueuedConnection);
            return;
        }
        placed_ = geometry();
        report_(input::Placed, id_, FromQt(placed_));
    }

    WidgetId id_;
    Report& report_;
    QImage drawing_;                   // on a dialog; null until something is drawn
    std::unique_ptr<Surface> client_;  // dialogs have none: their area is the frame's own
    std::unique_ptr<MenuRows> menu_;
    QRect placed_;
    QSize exposedSize_;  // invalid until the desktop shows the window
    QElapsedTimer sinceNewSize_;
};

TopLevel::TopLevel(const WidgetSetup& setup, QWidget* owner, Report& report)
    : Control(setup, std::make_unique<Frame>(setup, owner, report)), style_(setup.style) {}

TopLevel::~TopLevel() = default;

Frame& TopLevel::Native() const {
    return static_cast<Frame&>(NativeWidget());
}

bool TopLevel::HasFixedSize() const {
    return (style_ & WS_THICKFRAME) == 0;
}

QWidget& TopLevel::Area() {
    return Native().Client() != nullptr ? static_cast<QWidget&>(*Native().Client())
                                        : NativeWidget();
}

void TopLevel::TakeFocus() {
    Area().setFocus(Qt::OtherFocusReason);
}

void TopLevel::SetText(const std::string& text) {
    NativeWidget().setWindowTitle(ToQt(text));
}

void TopLevel::SetRect(const Rect& rect) {
    Frame& frame = Native();
    const bool stays = frame.PlacedByCore(ToQt(rect)).topLeft() == QPoint(rect.x, rect.y);
    if (HasFixedSize())
        frame.setFixedSize(rect.width, rect.height);
    if (frame.testAttribute(Qt::WA_WState_Created)) {
        frame.setGeometry(ToQt(rect));
        // The desktop has yet to put its frame around a window that was just shown. One that only
        // gets another size has its place as that of the frame still.
        QWindow& native = *frame.windowHandle();
        if (stays && !IsOffscreen() && native.frameMargins().isNull()) {
            native.setFramePosition(QPoint(rect.x, rect.y));
        }
        return;
    }
    // Before the desktop has put its frame around a window, its place is that of the frame, so that
    // the caption covers nothing above it.
    frame.resize(rect.width, rect.height);
    frame.move(rect.x, rect.y + PicturedCaptionHeight(frame));
}

void TopLevel::SetVisible(bool visible) {
    if (visible)
        Native().LayOut();
    Control::SetVisible(visible);
}

void TopLevel::SetEnabled(bool enabled) {
    takesInput_ = enabled;
    SetTakesInput(NativeWidget(), enabled);
    if (!enabled)
        CloseMenusOf(NativeWidget());
}

void TopLevel::SetIcon(const Pixels& icon) {
    NativeWidget().setWindowIcon(QIcon(QPixmap::fromImage(ToImage(icon))));
}

void TopLevel::Draw(const Pixels& pixels, const Rect& changed) {
    if (Native().Client() != nullptr) {
        Native().Client()->Draw(pixels, changed);
    } else {
        Native().DrawOnDialog(pixels, changed);
    }
}

bool TopLevel::Raise() {
    if (!IsOffscreen())
        NativeWidget().raise();
    return NativeWidget().isVisible();
}

void TopLevel::AskForActivation() {
    NativeWidget().activateWindow();
}

void TopLevel::SetTopmost(bool topmost) {
    QWidget& window = NativeWidget();
    if (window.windowFlags().testFlag(Qt::WindowStaysOnTopHint) == topmost)
        return;
    // Qt hides a window to change this.
    const bool visible = window.isVisible();
    const QRect place = window.geometry();
    window.setWindowFlag(Qt::WindowStaysOnTopHint, topmost);
    if (visible) {
        window.setGeometry(place);
        window.show();
    }
}

void TopLevel::SetSizeLimits(Size least, Size most) {
    if (HasFixedSize()) {
        return;
    }
    const QSize smallest(least.width, least.height);
    NativeWidget().setMaximumSize(QSize(most.width, most.height).expandedTo(smallest));
    NativeWidget().setMinimumSize(smallest);
}

void TopLevel::SetMenuBar(const std::vector<MenuView>& menu) {
    if (Native().Menu() == nullptr)
        return;
    Native().Menu()->Set(menu);
    Native().LayOut();
}

int TopLevel::MenuBarHeight(int width) const {
    return Native().Menu() != nullptr ? Native().Menu()->HeightFor(width) : 0;
}

bool TopLevel::EnterMenuBar() {
    return Native().Menu() != nullptr && Native().Menu()->Enter();
}

bool TopLevel::OpenMenu(char32_t letter) {
    return Native().Menu() != nullptr && Native().Menu()->Open(letter);
}

}  // namespace vxd::qt
