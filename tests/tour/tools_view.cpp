#include "tests/tour/tools_view.h"

#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QWidget>
#include <algorithm>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

#include "platform/core/resource.h"
#include "platform/qt/qt_screen.h"
#include "tests/kit/dialog.h"
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

// A dialog by its template: its caption and its controls' numbers.
struct Shape {
    std::string caption;
    std::vector<std::int16_t> controls;
};

std::vector<Shape>& ShapesRead() {
    static std::vector<Shape> shapes;
    return shapes;
}

Shape ShapeOf(HWND dialog) {
    char caption[200];
    GetWindowTextA(dialog, caption, sizeof caption);
    Shape shape{caption, {}};
    for (HWND child = GetWindow(dialog, GW_CHILD); child != nullptr;
         child = GetWindow(child, GW_HWNDNEXT)) {
        shape.controls.push_back(static_cast<std::int16_t>(GetDlgCtrlID(child)));
    }
    return shape;
}

// What a program adds lies behind the controls of the template.
bool IsMadeFrom(const Shape& shape, const vxd::DialogTemplate& source) {
    return shape.caption == source.title && shape.controls.size() >= source.controls.size() &&
           std::equal(source.controls.begin(), source.controls.end(), shape.controls.begin(),
                      [](const vxd::DialogControl& control, std::int16_t id) {
                          return static_cast<std::int16_t>(control.id) == id;
                      });
}

}  // namespace

void ExpectAllDialogsRead() {
    int dialogs = 0;
    for (int number = 1; number <= 0xFFFF; ++number) {
        const auto source = vxd::ParseDialog(
            vxd::FindResource(vxd::kResourceDialog, static_cast<std::uint16_t>(number)));
        if (!source) {
            continue;
        }
        ++dialogs;
        EXPECT_TRUE(std::ranges::any_of(ShapesRead(),
                                        [&](const Shape& s) { return IsMadeFrom(s, *source); }))
            << source->title << ", dialog " << number << ", has no stop";
    }
    EXPECT_GT(dialogs, 0);
}

void ExpectReadableByTools() {
    const HWND front = kit::FrontDialog().Handle();
    if (front == nullptr) {
        return;
    }
    kit::RunStep([front] {
        // What the desktop's own dialog says is the desktop's affair.
        if (QApplication::activeModalWidget() != nullptr) {
            return;
        }
        const auto& screen = dynamic_cast<vxd::QtScreen&>(vxd::CurrentScreen());
        QWidget* dialog = screen.NativeWidget(
            static_cast<vxd::WidgetId>(reinterpret_cast<std::uintptr_t>(front)));
        ASSERT_NE(dialog, nullptr);
        if (dialog->parentWidget() == nullptr) {
            return;
        }
        QAccessibleInterface& view = *QAccessible::queryAccessibleInterface(dialog);
        const std::string name = view.text(QAccessible::Name).toStdString();
        EXPECT_FALSE(name.empty());
        EXPECT_EQ(view.role(), QAccessible::Dialog) << name;
        EXPECT_TRUE(view.state().modal) << name;
        EXPECT_GT(view.childCount(), 0) << name;
        ShapesRead().push_back(ShapeOf(front));
        ExpectNamed(view, name);
    });
}

}  // namespace tour
