// The text of a one-line edit, alone or as part of a combo box.
#pragma once

#include <QLineEdit>
#include <functional>

#include "platform/qt/report.h"
#include "platform/screen.h"

namespace vxd::qt {

class LineText {
  public:
    // Reports what a person does with `edit`, by whatever means, as done to the widget `id`. A text
    // that comes into the edit from a row that was chosen is no edit of the person's: `isRow`
    // tells.
    LineText(QLineEdit& edit, WidgetId id, Report& report,
             std::function<bool(const QString&)> isRow = nullptr);
    LineText(const LineText&) = delete;
    LineText& operator=(const LineText&) = delete;

    void Set(const std::string& text);
    void SetReadOnly(bool readOnly);
    void Select(int start, int end);
    // Shows the selection again that the edit had when the focus left it.
    void RestoreSelection();

  private:
    void TextChanged(const QString& text);
    void SelectionMoved();
    bool KeepSelection();

    QLineEdit& edit_;
    WidgetId id_;
    Report& report_;
    std::function<bool(const QString&)> isRow_;
    int start_ = 0;
    int end_ = 0;
};

// Read-only edits have the colour of what lies behind them.
void SetReadOnlyLook(QWidget& edit, bool readOnly);

}  // namespace vxd::qt
