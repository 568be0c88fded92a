// What stands behind a widget number: one native widget, or a few that act as one.
#pragma once

#include <QWidget>
#include <memory>

#include "platform/qt/geometry.h"
#include "platform/qt/report.h"
#include "platform/screen.h"

class QAbstractScrollArea;

namespace vxd::qt {

// The height of a control that has one line of text: 14 dialog units, as dialogs give their
// buttons.
int LineControlHeight();

// Gives an edit or list the scroll bars that its style allows.
void SetScrollBars(QAbstractScrollArea& area, std::uint32_t style);

class Overlay;

class Control : public Widget {
  public:
    // The widget is to be hidden and inside its parent.
    Control(const WidgetSetup& setup, std::unique_ptr<QWidget> widget);
    ~Control() override;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    WidgetId Id() const { return id_; }
    WidgetKind Kind() const { return kind_; }
    // The window that the control goes down with; 0 if there is none.
    WidgetId Holder() const { return holder_; }
    QWidget& NativeWidget() const { return *widget_; }

    // What children are put into.
    virtual QWidget& Area() { return *widget_; }
    virtual void TakeFocus();
    void SetRect(const Rect& rect) override;
    void SetVisible(bool visible) override;
    void SetEnabled(bool enabled) override;
    // By default over the control's own look.
    void Draw(const Pixels& pixels, const Rect& changed) override;

  private:
    WidgetId id_;
    WidgetKind kind_;
    WidgetId holder_;
    std::unique_ptr<QWidget> widget_;
    Overlay* overlay_ = nullptr;  // the widget's own; null when nothing is drawn on it
};

// Makes a control of any kind but the top-level ones inside `parent`.
std::unique_ptr<Control> MakeControl(const WidgetSetup& setup, QWidget& parent, Report& report);

// The makers of the single families, for MakeControl.
std::unique_ptr<Control> MakeLabel(const WidgetSetup& setup, QWidget& parent);
std::unique_ptr<Control> MakePicture(const WidgetSetup& setup, QWidget& parent);
std::unique_ptr<Control> MakeFrame(const WidgetSetup& setup, QWidget& parent);
std::unique_ptr<Control> MakeGroupBox(const WidgetSetup& setup, QWidget& parent);
std::unique_ptr<Control> MakePushButton(const WidgetSetup& setup, QWidget& parent, Report& report);
std::unique_ptr<Control> MakeCheckBox(const WidgetSetup& setup, QWidget& parent, Report& report);
std::unique_ptr<Control> MakeRadioButton(const WidgetSetup& setup, QWidget& parent, Report& report);
std::unique_ptr<Control> MakeLineEdit(const WidgetSetup& setup, QWidget& parent, Report& report);
std::unique_ptr<Control> MakeTextEdit(const WidgetSetup& setup, QWidget& parent, Report& report);
std::unique_ptr<Control> MakeListBox(const WidgetSetup& setup, QWidget& parent, Report& report);
std::unique_ptr<Control> MakeComboBox(const WidgetSetup& setup, QWidget& parent, Report& report);
std::unique_ptr<Control> MakeSimpleCombo(const WidgetSetup& setup, QWidget& parent, Report& report);
std::unique_ptr<Control> MakeScrollBar(const WidgetSetup& setup, QWidget& parent, Report& report);
std::unique_ptr<Control> MakeSurface(const WidgetSetup& setup, QWidget& parent, Report& report);

}  // namespace vxd::qt
