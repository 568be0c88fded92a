#include "platform/qt/line_interface.h"

#include <QFontMetrics>
#include <QLineEdit>
#include <algorithm>

namespace vxd::qt {

LineInterface::LineInterface(QLineEdit* edit)
    : QAccessibleWidget(edit, QAccessible::EditableText), edit_(*edit) {}

void* LineInterface::interface_cast(QAccessible::InterfaceType type) {
    if (type == QAccessible::TextInterface) {
        return static_cast<QAccessibleTextInterface*>(this);
    }
    if (type == QAccessible::EditableTextInterface) {
        return edit_.isReadOnly() ? nullptr : static_cast<QAccessibleEditableTextInterface*>(this);
    }
    return QAccessibleWidget::interface_cast(type);
}

QString LineInterface::text(QAccessible::Text kind) const {
    return kind == QAccessible::Value ? edit_.text() : QAccessibleWidget::text(kind);
}

void LineInterface::setText(QAccessible::Text kind, const QString& text) {
    if (kind != QAccessible::Value) {
        return QAccessibleWidget::setText(kind, text);
    }
    replaceText(0, characterCount(), text);
}

QAccessible::State LineInterface::state() const {
    QAccessible::State state = QAccessibleWidget::state();
    state.readOnly = edit_.isReadOnly();
    state.editable = !edit_.isReadOnly();
    state.selectableText = true;
    return state;
}

void LineInterface::selection(int index, int* start, int* end) const {
    const bool selects = index == 0 && edit_.hasSelectedText();
    *start = selects ? edit_.selectionStart() : 0;
    *end = selects ? edit_.selectionEnd() : 0;
}

int LineInterface::selectionCount() const {
    return edit_.hasSelectedText() ? 1 : 0;
}

void LineInterface::addSelection(int start, int end) {
    setSelection(0, start, end);
}

void LineInterface::removeSelection(int index) {
    if (index == 0) {
        edit_.deselect();
    }
}

void LineInterface::setSelection(int index, int start, int end) {
    if (index == 0) {
        edit_.setSelection(start, end - start);
    }
}

int LineInterface::cursorPosition() const {
    return edit_.cursorPosition();
}

void LineInterface::setCursorPosition(int position) {
    edit_.setCursorPosition(position);
}

QString LineInterface::text(int start, int end) const {
    return start <= end ? edit_.text().mid(start, end - start) : QString();
}

int LineInterface::characterCount() const {
    return static_cast<int>(edit_.text().size());
}

// Counted from the caret, which tells how far the text is scrolled.
QRect LineInterface::characterRect(int offset) const {
    const QFontMetrics font(edit_.font());
    const QString text = edit_.text();
    const auto left = [&](int position) { return font.horizontalAdvance(text, position); };
    const QRect caret = edit_.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const int x = caret.center().x() + left(offset) - left(edit_.cursorPosition());
    const QRect place(x, caret.y(), left(offset + 1) - left(offset), caret.height());
    return place.translated(edit_.mapToGlobal(QPoint()));
}

int LineInterface::offsetAtPoint(const QPoint& point) const {
    const QPoint inside = edit_.mapFromGlobal(point);
    return edit_.rect().contains(inside) ? edit_.cursorPositionAt(inside) : -1;
}

void LineInterface::scrollToSubstring(int start, int end) {
    edit_.setCursorPosition(end);
    edit_.setCursorPosition(start);
}

// The whole text looks alike.
QString LineInterface::attributes(int offset, int* start, int* end) const {
    const bool isThere = offset >= 0 && offset <= characterCount();
    *start = isThere ? 0 : -1;
    *end = isThere ? characterCount() : -1;
    return QString();
}

void LineInterface::deleteText(int start, int end) {
    replaceText(start, end, QString());
}

void LineInterface::insertText(int offset, const QString& text) {
    replaceText(offset, offset, text);
}

void LineInterface::replaceText(int start, int end, const QString& text) {
    if (!edit_.isReadOnly()) {
        edit_.setText(edit_.text().replace(start, std::max(0, end - start), text));
    }
}

}  // namespace vxd::qt
