// The text of a one-line edit, alone or as part of a combo box.
#pragma once

#include <QLineEdit>

#include "platform/qt/report.h"
#include "platform/screen.h"

namespace vxd::qt {

class LineText {
  public:
    // Reports what a person does with `edit` as done to the widget `id`.
    LineText(QLineEdit& edit, WidgetId id, Report& report);
    LineText(const LineText&) = delete;
    LineText& operator=(const LineText&) = delete;

    void Set(const std::string& text);
    void SetReadOnly(bool readOnly);
    void Select(int start, int end);
    // Shows the selection again that the edit had when the focus left it.
    void RestoreSelection();

  private:
    void TextEdited();
    void SelectionMoved();
    bool KeepSelection();

    QLineEdit& edit_;
    WidgetId id_;
    Report& report_;
    int start_ = 0;
    int end_ = 0;
};

// Read-only edits have the colour of what lies behind them.
void SetReadOnlyLook(QWidget& edit, bool readOnly);

}  // namespace vxd::qt
