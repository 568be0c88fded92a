#include "tests/tour/tools_view.h"

#include <QAccessible>

#include "platform/qt/qt_screen.h"
#include "tests/kit/user_interface.h"

namespace tour {
namespace {

bool IsButton(QAccessible::Role role) {
    return role == QAccessible::Button || role == QAccessible::CheckBox ||
           role == QAccessible::RadioButton;
}

bool NeedsName(QAccessible::Role role) {
    return IsButton(role) || role == QAccessible::EditableText || role == QAccessible::ComboBox ||
           role == QAccessible::List || role == QAccessible::Dialog;
}

void ExpectNamed(QAccessibleInterface& view, const std::string& dialog) {
    std::set<std::string> buttons;
    for (int at = 0; at < view.childCount(); ++at) {
        QAccessibleInterface& part = *view.child(at);
        const std::string name = part.text(QAccessible::Name).toStdString();
        EXPECT_TRUE(!name.empty() || !NeedsName(part.role()))
            << "part " << at << " of " << view.text(QAccessible::Name).toStdString() << " in "
            << dialog;
        EXPECT_EQ(name.find('&'), std::string::npos) << name << " in " << dialog;
        EXPECT_TRUE(!IsButton(part.role()) || buttons.insert(name).second)
            << name << " twice in " << dialog;
        // The rows of a list are what they are.
        if (part.role() != QAccessible::List)
            ExpectNamed(part, dialog);
    }
}

}  // namespace

QWidget& WidgetOf(HWND window) {
    const auto id = static_cast<vxd::WidgetId>(reinterpret_cast<std::uintptr_t>(window));
    return *dynamic_cast<vxd::QtScreen&>(vxd::CurrentScreen()).NativeWidget(id);
}

void ExpectReadableByTools(HWND dialog) {
    kit::RunStep([dialog] {
        QAccessibleInterface& view = *QAccessible::queryAccessibleInterface(&WidgetOf(dialog));
        const std::string name = view.text(QAccessible::Name).toStdString();
        EXPECT_FALSE(name.empty());
        EXPECT_EQ(view.role(), QAccessible::Dialog) << name;
        EXPECT_TRUE(view.state().modal) << name;
        EXPECT_GT(view.childCount(), 0) << name;
        ExpectNamed(view, name);
    });
}

}  // namespace tour
