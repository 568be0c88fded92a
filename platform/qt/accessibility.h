// What assistive tools are told about the widgets beyond what Qt's own interfaces tell them.
#pragma once

#include <QAccessible>
#include <QString>

class QLabel;
class QWidget;

namespace vxd::qt {

// Has the functions below take effect. Once, after the QApplication is made.
void InstallAccessibility();

// Says what a widget is that Qt takes for a bare one.
void SetRole(QWidget& widget, QAccessible::Role role);

// Says whether a window takes input. A dialog over one that takes none is modal.
void SetTakesInput(QWidget& window, bool takesInput);

// A caption without the marks of its key.
QString WithoutKeyMarks(const QString& caption);

// Ties a control that has just been put into its parent, at its place, to what names it there: a
// field to the label before it, a button to the group box around it. Again when a button's
// caption changes; a field follows its label by itself.
void NameByNeighbours(QWidget& control);

// Names a label, and with it the field that is tied to it.
void NameLabel(QLabel& label, const QString& name);

}  // namespace vxd::qt
