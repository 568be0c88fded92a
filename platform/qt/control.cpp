#include "platform/qt/control.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QFontMetrics>
#include <utility>

#include "platform/qt/overlay.h"
#include "platform/win32.h"

namespace vxd::qt {

int LineControlHeight() {
    constexpr int kUnits = 14;
    constexpr int kUnitsInHeight = 8;
    static const int height =
        (kUnits * QFontMetrics(QApplication::font()).height() + kUnitsInHeight / 2) /
        kUnitsInHeight;
    return height;
}

void SetScrollBars(QAbstractScrollArea& area, std::uint32_t style) {
    const auto policy = [style](std::uint32_t bar) {
        return (style & bar) != 0 ? Qt::ScrollBarAsNeeded : Qt::ScrollBarAlwaysOff;
    };
    area.setVerticalScrollBarPolicy(policy(WS_VSCROLL));
    area.setHorizontalScrollBarPolicy(policy(WS_HSCROLL));
}

Control::Control(const WidgetSetup& setup, std::unique_ptr<QWidget> widget)
    : id_(setup.id),
      kind_(setup.kind),
      holder_(setup.parent != 0 ? setup.parent : setup.owner),
      widget_(std::move(widget)) {
    // Hidden by intent, so that showing the parent does not show it.
    widget_->hide();
    // No control is in Qt's own tab chain: where a key moves the focus is the core's to say.
    if (widget_->focusPolicy() != Qt::NoFocus)
        widget_->setFocusPolicy(Qt::ClickFocus);
}

Control::~Control() = default;

void Control::TakeFocus() {
    widget_->setFocus(Qt::OtherFocusReason);
}

void Control::SetRect(const Rect& rect) {
    widget_->setGeometry(ToQt(rect));
}

void Control::SetVisible(bool visible) {
    widget_->setVisible(visible);
}

void Control::SetEnabled(bool enabled) {
    widget_->setEnabled(enabled);
    // The mouse passes through what takes no input; Qt's buttons would swallow it.
    if (kind_ != WidgetKind::kLabel && kind_ != WidgetKind::kGroupBox)
        widget_->setAttribute(Qt::WA_TransparentForMouseEvents, !enabled);
}

void Control::Draw(const Pixels& pixels, const Rect& changed) {
    if (pixels.data.empty()) {
        delete std::exchange(overlay_, nullptr);
        return;
    }
    if (overlay_ == nullptr)
        overlay_ = new Overlay(*widget_);
    overlay_->Draw(pixels, changed);
}

std::unique_ptr<Control> MakeControl(const WidgetSetup& setup, QWidget& parent, Report& report) {
    switch (setup.kind) {
        case WidgetKind::kWindow:
        case WidgetKind::kDialog:
            break;
        case WidgetKind::kSurface:
            return MakeSurface(setup, parent, report);
        case WidgetKind::kLabel:
            return MakeLabel(setup, parent);
        case WidgetKind::kPicture:
            return MakePicture(setup, parent);
        case WidgetKind::kFrame:
            return MakeFrame(setup, parent);
        case WidgetKind::kPushButton:
            return MakePushButton(setup, parent, report);
        case WidgetKind::kCheckBox:
            return MakeCheckBox(setup, parent, report);
        case WidgetKind::kRadioButton:
            return MakeRadioButton(setup, parent, report);
        case WidgetKind::kGroupBox:
            return MakeGroupBox(setup, parent);
        case WidgetKind::kLineEdit:
            return MakeLineEdit(setup, parent, report);
        case WidgetKind::kTextEdit:
            return MakeTextEdit(setup, parent, report);
        case WidgetKind::kListBox:
            return MakeListBox(setup, parent, report);
        case WidgetKind::kDropDownList:
        case WidgetKind::kComboBox:
            return MakeComboBox(setup, parent, report);
        case WidgetKind::kSimpleCombo:
            return MakeSimpleCombo(setup, parent, report);
        case WidgetKind::kScrollBar:
            return MakeScrollBar(setup, parent, report);
    }
    return nullptr;
}

}  // namespace vxd::qt
