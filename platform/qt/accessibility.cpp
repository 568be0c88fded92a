#include "platform/qt/accessibility.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAccessibleWidget>
#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QVariant>

#include "platform/qt/line_interface.h"

namespace vxd::qt {
namespace {

constexpr char kRoleProperty[] = "accessibleRole";
constexpr char kShutOutProperty[] = "accessibleShutOut";

// A window says that it is modal.
class RoleInterface : public QAccessibleWidget {
  public:
    using QAccessibleWidget::QAccessibleWidget;

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        const QWidget* owner = widget()->isWindow() ? widget()->parentWidget() : nullptr;
        state.modal = owner != nullptr && owner->window()->property(kShutOutProperty).toBool();
        return state;
    }
};

// Qt's own interface calls a combo box by what it shows and leaves the label aside.
class ComboInterface : public QAccessibleWidget {
  public:
    explicit ComboInterface(QComboBox* combo)
        : QAccessibleWidget(combo, QAccessible::ComboBox), combo_(*combo) {}

    int childCount() const override { return combo_.isEditable() ? 2 : 1; }

    QAccessibleInterface* child(int index) const override {
        if (index == 0)
            return QAccessible::queryAccessibleInterface(combo_.view());
        return index == 1 ? QAccessible::queryAccessibleInterface(combo_.lineEdit()) : nullptr;
    }

    int indexOfChild(const QAccessibleInterface* child) const override {
        if (child->object() == combo_.view())
            return 0;
        return combo_.isEditable() && child->object() == combo_.lineEdit() ? 1 : -1;
    }

    QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Value ? combo_.currentText() : QAccessibleWidget::text(kind);
    }

    QAccessible::State state() const override {
        QAccessible::State state = QAccessibleWidget::state();
        state.expandable = true;
        state.expanded = combo_.view()->isVisible();
        state.editable = combo_.isEditable();
        return state;
    }

    QStringList actionNames() const override {
        return QStringList{showMenuAction(), pressAction()} + QAccessibleWidget::actionNames();
    }

    void doAction(const QString& action) override {
        if (action != showMenuAction() && action != pressAction())
            return QAccessibleWidget::doAction(action);
        if (!combo_.isEnabled())
            return;
        if (combo_.view()->isVisible()) {
            combo_.hidePopup();
        } else {
            combo_.showPopup();
        }
    }

  private:
    QComboBox& combo_;
};

// Asked for each object's classes, the most derived one that Qt knows first.
QAccessibleInterface* MakeInterface(const QString&, QObject* object) {
    if (auto* combo = qobject_cast<QComboBox*>(object); combo != nullptr)
        return new ComboInterface(combo);
    if (auto* edit = qobject_cast<QLineEdit*>(object); edit != nullptr) {
        return new LineInterface(edit);
    }
    const QVariant role = object->property(kRoleProperty);
    if (!role.isValid())
        return nullptr;
    return new RoleInterface(static_cast<QWidget*>(object),
                             static_cast<QAccessible::Role>(role.toInt()));
}

// Fields have no caption of their own. One that is made of several widgets gives its name to each.
bool IsPlainField(const QWidget& widget) {
    return qobject_cast<const QLineEdit*>(&widget) != nullptr ||
           qobject_cast<const QPlainTextEdit*>(&widget) != nullptr ||
           qobject_cast<const QAbstractItemView*>(&widget) != nullptr ||
           qobject_cast<const QScrollBar*>(&widget) != nullptr;
}

bool IsField(const QWidget& widget) {
    return IsPlainField(widget) || qobject_cast<const QComboBox*>(&widget) != nullptr ||
           widget.property(kRoleProperty).toInt() == QAccessible::ComboBox;
}

void NameField(QWidget& field, const QString& name) {
    field.setAccessibleName(name);
    for (QWidget* part : field.findChildren<QWidget*>()) {
        if (IsPlainField(*part) && qobject_cast<QScrollBar*>(part) == nullptr)
            part->setAccessibleName(name);
    }
}

// A second field behind a label shares it.
QLabel* LabelBefore(const QWidget& field) {
    QLabel* label = nullptr;
    for (QObject* sibling : field.parentWidget()->children()) {
        const auto* widget = qobject_cast<QWidget*>(sibling);
        if (widget == &field)
            break;
        if (widget != nullptr && !IsField(*widget))
            label = qobject_cast<QLabel*>(sibling);
    }
    return label;
}

// The field that a button behind it is for: one that asks further ("Browse...") brings its text.
QWidget* FieldBefore(const QAbstractButton& button) {
    QWidget* before = nullptr;
    for (QObject* sibling : button.parentWidget()->children()) {
        if (sibling == &button)
            break;
        if (auto* widget = qobject_cast<QWidget*>(sibling); widget != nullptr)
            before = widget;
    }
    const bool asks = button.text().endsWith(QLatin1String("..."));
    return asks && before != nullptr && IsField(*before) ? before : nullptr;
}

QString TitleAround(const QWidget& control) {
    for (const auto* group :
         control.parentWidget()->findChildren<QGroupBox*>(Qt::FindDirectChildrenOnly)) {
        if (group->geometry().contains(control.geometry()))
            return WithoutKeyMarks(group->title());
    }
    return QString();
}

}  // namespace

void InstallAccessibility() {
    QAccessible::installFactory(MakeInterface);
}

void SetRole(QWidget& widget, QAccessible::Role role) {
    widget.setProperty(kRoleProperty, static_cast<int>(role));
}

void SetTakesInput(QWidget& window, bool takesInput) {
    window.setProperty(kShutOutProperty, !takesInput);
}

QString WithoutKeyMarks(const QString& caption) {
    QString plain;
    for (qsizetype at = 0; at < caption.size(); ++at) {
        if (caption[at] == QLatin1Char('&') && ++at == caption.size())
            break;
        plain += caption[at];
    }
    return plain.trimmed();
}

void NameByNeighbours(QWidget& control) {
    if (control.isWindow())
        return;
    const QString title = TitleAround(control);
    if (const auto* button = qobject_cast<QAbstractButton*>(&control); button != nullptr) {
        const QString caption = WithoutKeyMarks(button->text());
        // Two groups, or two fields, may have a button of the same caption each. A box that is
        // checked keeps its own name; the group tells more of it.
        const bool isPush = qobject_cast<QPushButton*>(&control) != nullptr;
        const QWidget* field = isPush ? FieldBefore(*button) : nullptr;
        const QString owner = field != nullptr ? field->accessibleName() : title;
        control.setAccessibleName(isPush && !owner.isEmpty() ? owner + QLatin1Char(' ') + caption
                                                             : caption);
    } else if (!IsField(control)) {
        return;
    } else if (QLabel* label = LabelBefore(control); label != nullptr) {
        NameField(control, label->accessibleName());
        if (label->buddy() == nullptr)
            label->setBuddy(&control);
    } else {
        NameField(control, title);
    }
    control.setAccessibleDescription(title != control.accessibleName() ? title : QString());
}

void NameLabel(QLabel& label, const QString& name) {
    label.setAccessibleName(name);
    if (QWidget* field = label.buddy(); field != nullptr)
        NameField(*field, name);
}

}  // namespace vxd::qt
