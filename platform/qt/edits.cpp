#include <QPlainTextEdit>
#include <algorithm>
#include <limits>
#include <utility>

#include "platform/qt/control.h"
#include "platform/qt/focus.h"
#include "platform/qt/line_text.h"
#include "platform/qt/text.h"
#include "platform/win32.h"

namespace vxd::qt {

LineText::LineText(QLineEdit& edit, WidgetId id, Report& report,
                   std::function<bool(const QString&)> isRow)
    : edit_(edit), id_(id), report_(report), isRow_(std::move(isRow)) {
    // The limit that binds typing and pasting is the core's; it counts bytes.
    edit.setMaxLength(std::numeric_limits<int>::max());
    QObject::connect(&edit, &QLineEdit::textChanged, &edit,
                     [this](const QString& text) { TextChanged(text); });
    QObject::connect(&edit, &QLineEdit::selectionChanged, &edit, [this] { SelectionMoved(); });
    QObject::connect(&edit, &QLineEdit::cursorPositionChanged, &edit, [this] { SelectionMoved(); });
}

void LineText::Set(const std::string& text) {
    edit_.setText(ToQt(text));
    KeepSelection();
}

void LineText::SetReadOnly(bool readOnly) {
    edit_.setReadOnly(readOnly);
    SetReadOnlyLook(edit_, readOnly);
}

void LineText::Select(int start, int end) {
    const QString text = edit_.text();
    const int from = ToQtPosition(text, start);
    const int to = ToQtPosition(text, end);
    // Always the caret first: a selection of nothing would leave it where it is.
    edit_.setCursorPosition(to);
    if (from != to)
        edit_.setSelection(from, to - from);
    start_ = std::min(start, end);
    end_ = std::max(start, end);
}

void LineText::RestoreSelection() {
    Select(start_, end_);
}

void LineText::TextChanged(const QString& text) {
    if (!report_.IsOpen() || (isRow_ && isRow_(text)))
        return;
    KeepSelection();
    report_(input::Edited, id_, FromQt(text), start_, end_);
}

void LineText::SelectionMoved() {
    // An edit loses its selection with the focus; the core's stays.
    if (report_.IsOpen() && edit_.hasFocus() && KeepSelection())
        report_(input::SelectionMoved, id_, start_, end_);
}

// Gives whether it differs from the selection known before.
bool LineText::KeepSelection() {
    const QString text = edit_.text();
    const bool selected = edit_.hasSelectedText();
    const int first = selected ? edit_.selectionStart() : edit_.cursorPosition();
    const int start = FromQtPosition(text, first);
    const int end = selected ? FromQtPosition(text, edit_.selectionEnd()) : start;
    const bool moved = start != start_ || end != end_;
    start_ = start;
    end_ = end;
    return moved;
}

void SetReadOnlyLook(QWidget& edit, bool readOnly) {
    QPalette palette = QPalette();
    if (readOnly)
        palette.setBrush(QPalette::Base, edit.parentWidget()->palette().window());
    edit.setPalette(palette);
}

namespace {

class LineEdit : public Control {
  public:
    LineEdit(const WidgetSetup& setup, QWidget& parent, Report& report)
        : Control(setup, std::make_unique<QLineEdit>(&parent)),
          text_(static_cast<QLineEdit&>(NativeWidget()), setup.id, report) {}

    void TakeFocus() override {
        Control::TakeFocus();
        text_.RestoreSelection();
    }
    void SetText(const std::string& text) override { text_.Set(text); }
    void SetReadOnly(bool readOnly) override { text_.SetReadOnly(readOnly); }
    void SetTextSelection(int start, int end) override { text_.Select(start, end); }

  private:
    LineText text_;
};

class TextEdit : public Control {
  public:
    TextEdit(const WidgetSetup& setup, QWidget& parent, Report& report)
        : Control(setup, std::make_unique<QPlainTextEdit>(&parent)), report_(report) {
        QPlainTextEdit& edit = Native();
        const bool scrollsAside = (setup.style & ES_AUTOHSCROLL) != 0;
        edit.setLineWrapMode(scrollsAside ? QPlainTextEdit::NoWrap : QPlainTextEdit::WidgetWidth);
        SetScrollBars(edit, setup.style);
        ShowFocus(edit);
        QObject::connect(&edit, &QPlainTextEdit::textChanged, &edit, [this] { TextEdited(); });
        QObject::connect(&edit, &QPlainTextEdit::selectionChanged, &edit,
                         [this] { SelectionMoved(); });
        QObject::connect(&edit, &QPlainTextEdit::cursorPositionChanged, &edit,
                         [this] { SelectionMoved(); });
    }

    void SetText(const std::string& text) override {
        Native().setPlainText(ToQt(text, LineEnd::kCrLf));
        text_ = Native().toPlainText();
    }

    void SetReadOnly(bool readOnly) override {
        Native().setReadOnly(readOnly);
        if (readOnly) {
            Native().setTextInteractionFlags(Qt::TextSelectableByMouse |
                                             Qt::TextSelectableByKeyboard);
        }
        SetReadOnlyLook(NativeWidget(), readOnly);
    }

    void SetTextSelection(int start, int end) override {
        QTextCursor cursor = Native().textCursor();
        cursor.setPosition(ToQtPosition(text_, start, LineEnd::kCrLf));
        cursor.setPosition(ToQtPosition(text_, end, LineEnd::kCrLf), QTextCursor::KeepAnchor);
        Native().setTextCursor(cursor);
    }

  private:
    QPlainTextEdit& Native() const { return static_cast<QPlainTextEdit&>(NativeWidget()); }

    int Position(int position) const { return FromQtPosition(text_, position, LineEnd::kCrLf); }

    void TextEdited() {
        // Qt signals a mere change of looks too.
        QString text = Native().toPlainText();
        if (!report_.IsOpen() || text == text_)
            return;
        text_ = std::move(text);
        const QTextCursor cursor = Native().textCursor();
        report_(input::Edited, Id(), FromQt(text_, LineEnd::kCrLf),
                Position(cursor.selectionStart()), Position(cursor.selectionEnd()));
    }

    void SelectionMoved() {
        // The caret moves ahead of the edit that moves it, which tells both.
        if (!report_.IsOpen() || Native().toPlainText() != text_)
            return;
        const QTextCursor cursor = Native().textCursor();
        report_(input::SelectionMoved, Id(), Position(cursor.selectionStart()),
                Position(cursor.selectionEnd()));
    }

    Report& report_;
    QString text_;  // as it was last told, by either side
};

}  // namespace

std::unique_ptr<Control> MakeLineEdit(const WidgetSetup& setup, QWidget& parent, Report& report) {
    return std::make_unique<LineEdit>(setup, parent, report);
}

std::unique_ptr<Control> MakeTextEdit(const WidgetSetup& setup, QWidget& parent, Report& report) {
    return std::make_unique<TextEdit>(setup, parent, report);
}

}  // namespace vxd::qt
