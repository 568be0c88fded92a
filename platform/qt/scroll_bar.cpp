#include <QScopedValueRollback>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStyleOption>
#include <QStylePainter>
#include <QWheelEvent>
#include <algorithm>
#include <utility>

#include "platform/qt/control.h"
#include "platform/win32.h"

namespace vxd::qt {
namespace {

// What a person does to the bar with the mouse, in the codes of WM_HSCROLL. The wheel is left to
// the dialog, and Qt's own menu of ways to scroll is not offered. A position that is
// given by assistive tools counts as the thumb drawn there and let go.
class Bar : public QScrollBar {
  public:
    Bar(QWidget* parent, WidgetId id, std::uint32_t style, Report& report)
        : QScrollBar((style & SBS_VERT) != 0 ? Qt::Vertical : Qt::Horizontal, parent),
          id_(id),
          report_(report) {
        setFocusPolicy(Qt::ClickFocus);
        setContextMenuPolicy(Qt::NoContextMenu);
        connect(this, &QScrollBar::actionTriggered, this, [this](int action) { Tell(action); });
        connect(this, &QScrollBar::sliderPressed, this, [this] { scrolling_ = true; });
        connect(this, &QScrollBar::sliderReleased, this,
                [this] { report_(input::Scrolled, id_, SB_THUMBPOSITION, sliderPosition()); });
        connect(this, &QScrollBar::valueChanged, this, [this](int value) { TellValue(value); });
    }

    void Set(int minimum, int maximum, int position) {
        // A thumb of one page, as long as the eight pages of a fixed one.
        constexpr int kPages = 8;
        setRange(minimum, maximum);
        setPageStep(std::max(1, (maximum - minimum) / kPages));
        position_ = position;
        if (!isSliderDown())
            setValue(position);
    }

  protected:
    bool event(QEvent* event) override {
        const QScopedValueRollback inside(inEvent_, true);
        return QScrollBar::event(event);
    }

    // The thumb shows that the bar has the keyboard, which the style itself does not.
    void paintEvent(QPaintEvent* event) override {
        QScrollBar::paintEvent(event);
        if (!hasFocus())
            return;
        constexpr int kInside = 2;
        QStyleOptionSlider bar;
        initStyleOption(&bar);
        QStyleOptionFocusRect focus;
        focus.initFrom(this);
        focus.rect =
            style()->subControlRect(QStyle::CC_ScrollBar, &bar, QStyle::SC_ScrollBarSlider, this);
        focus.rect.adjust(kInside, kInside, -kInside, -kInside);
        QStylePainter(this).drawPrimitive(QStyle::PE_FrameFocusRect, focus);
    }
    void mouseReleaseEvent(QMouseEvent* event) override {
        QScrollBar::mouseReleaseEvent(event);
        if (std::exchange(scrolling_, false))
            report_(input::Scrolled, id_, SB_ENDSCROLL, 0);
    }
    void wheelEvent(QWheelEvent* event) override { event->ignore(); }

  private:
    void Tell(int action) {
        scrolling_ = true;
        report_(input::Scrolled, id_, CodeOf(action), sliderPosition());
    }

    void TellValue(int value) {
        if (inEvent_ || !report_.IsOpen())
            return;
        {
            const QSignalBlocker blocker(this);
            setValue(position_);
        }
        report_(input::Scrolled, id_, SB_THUMBTRACK, value);
        report_(input::Scrolled, id_, SB_THUMBPOSITION, value);
        report_(input::Scrolled, id_, SB_ENDSCROLL, 0);
    }

    static std::uint32_t CodeOf(int action) {
        switch (action) {
            case SliderSingleStepSub:
                return SB_LINELEFT;
            case SliderSingleStepAdd:
                return SB_LINERIGHT;
            case SliderPageStepSub:
                return SB_PAGELEFT;
            case SliderPageStepAdd:
                return SB_PAGERIGHT;
            case SliderToMinimum:
                return SB_LEFT;
            case SliderToMaximum:
                return SB_RIGHT;
            default:
                return SB_THUMBTRACK;
        }
    }

    WidgetId id_;
    Report& report_;
    int position_ = 0;  // as the core has set it
    bool scrolling_ = false;
    bool inEvent_ = false;  // what changes then is the mouse's
};

class ScrollBar : public Control {
  public:
    ScrollBar(const WidgetSetup& setup, QWidget& parent, Report& report)
        : Control(setup, std::make_unique<Bar>(&parent, setup.id, setup.style, report)) {}

    void SetScroll(int minimum, int maximum, int position) override {
        static_cast<Bar&>(NativeWidget()).Set(minimum, maximum, position);
    }
};

}  // namespace

std::unique_ptr<Control> MakeScrollBar(const WidgetSetup& setup, QWidget& parent, Report& report) {
    return std::make_unique<ScrollBar>(setup, parent, report);
}

}  // namespace vxd::qt
