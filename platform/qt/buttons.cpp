#include <QButtonGroup>
#include <QCheckBox>
#include <QPushButton>
#include <QRadioButton>
#include <QSignalBlocker>
#include <utility>

#include "platform/qt/accessibility.h"
#include "platform/qt/control.h"
#include "platform/qt/focus.h"
#include "platform/qt/text.h"
#include "platform/win32.h"

namespace vxd::qt {
namespace {

// A check box or radio button that a click does not change: the core says what the click did.
template <typename Native>
class Steady : public Native {
  public:
    using Native::Native;

  protected:
    void nextCheckState() override {}
};

class Button : public Control {
  public:
    Button(const WidgetSetup& setup, std::unique_ptr<QAbstractButton> button, Report& report)
        : Control(setup, std::move(button)) {
        QObject::connect(&Native(), &QAbstractButton::clicked, &Native(),
                         [&report, id = setup.id] { report(input::Clicked, id); });
        ShowFocus(Native());
    }

    void SetText(const std::string& text) override {
        Native().setText(ToQt(text));
        NameByNeighbours(NativeWidget());
    }

  protected:
    QAbstractButton& Native() const { return static_cast<QAbstractButton&>(NativeWidget()); }
};

class PushButton : public Button {
  public:
    PushButton(const WidgetSetup& setup, QWidget& parent, Report& report)
        : Button(setup, std::make_unique<QPushButton>(&parent), report) {}

    void SetDefaultLook(bool isDefault) override {
        static_cast<QPushButton&>(NativeWidget()).setDefault(isDefault);
    }
};

// A button with a check. Assistive tools toggle it without a click; it counts as one.
class CheckedButton : public Button {
  public:
    CheckedButton(const WidgetSetup& setup, std::unique_ptr<QAbstractButton> button, Report& report)
        : Button(setup, std::move(button), report) {
        QObject::connect(&Native(), &QAbstractButton::toggled, &Native(), [this, &report] {
            if (!report.IsOpen())
                return;
            ShowAsSet();
            report(input::Clicked, Id());
        });
    }

    void SetCheck(int check) override {
        check_ = check;
        ShowAsSet();
    }

  private:
    virtual void ShowCheck(int check) = 0;

    void ShowAsSet() {
        const QSignalBlocker blocker(Native());
        ShowCheck(check_);
    }

    int check_ = BST_UNCHECKED;
};

class CheckBox : public CheckedButton {
  public:
    CheckBox(const WidgetSetup& setup, QWidget& parent, Report& report)
        : CheckedButton(setup, std::make_unique<Steady<QCheckBox>>(&parent), report) {}

  private:
    void ShowCheck(int check) override {
        static_cast<QCheckBox&>(NativeWidget())
            .setCheckState(check == BST_CHECKED         ? Qt::Checked
                           : check == BST_INDETERMINATE ? Qt::PartiallyChecked
                                                        : Qt::Unchecked);
    }
};

class RadioButton : public CheckedButton {
  public:
    RadioButton(const WidgetSetup& setup, QWidget& parent, Report& report)
        : CheckedButton(setup, std::make_unique<Steady<QRadioButton>>(&parent), report) {
        // Alone in a group that excludes nothing: which others go off is the core's to say. Without
        // its mark of exclusiveness Qt would call it a check box.
        alone_.setExclusive(false);
        alone_.addButton(&Native());
    }

  private:
    void ShowCheck(int check) override { Native().setChecked(check == BST_CHECKED); }

    QButtonGroup alone_;
};

}  // namespace

std::unique_ptr<Control> MakePushButton(const WidgetSetup& setup, QWidget& parent, Report& report) {
    return std::make_unique<PushButton>(setup, parent, report);
}

std::unique_ptr<Control> MakeCheckBox(const WidgetSetup& setup, QWidget& parent, Report& report) {
    return std::make_unique<CheckBox>(setup, parent, report);
}

std::unique_ptr<Control> MakeRadioButton(const WidgetSetup& setup, QWidget& parent,
                                         Report& report) {
    return std::make_unique<RadioButton>(setup, parent, report);
}

}  // namespace vxd::qt
