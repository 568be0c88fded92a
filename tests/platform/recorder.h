// A dialog of the test's own that writes down what its procedure is told.
#pragma once

#include "platform/win32.h"
#include "tests/kit/dialog.h"

namespace kit {

// How a notification is written down.
std::string Code(int id, int code);

// Engineer's thread. Opens one of the test's dialogs as a program of its own and ends it when
// the object goes.
class RecordedDialog {
  public:
    // What the procedure answers WM_INITDIALOG with, and what it does then.
    struct Opening {
        INT_PTR answer = TRUE;
        std::function<void(HWND)> act = {};
        // Also writes down "font", "shown" and "destroyed".
        bool life = false;
    };

    RecordedDialog(int templateId, const std::string& caption);
    RecordedDialog(int templateId, const std::string& caption, Opening opening);
    ~RecordedDialog();

    const Dialog* operator->() const { return &dialog_; }
    // What came so far, separated by blanks, and forgets it: "init:id" with the control that is to
    // take the focus, "id:code" for what a control tells, and "id" for a command that comes from
    // no control.
    std::string TakeNotifications();
    // Has the dialog end with `result` when it is sent the command `id`.
    void EndOn(int id, INT_PTR result);
    // Waits for the dialog's end and gives its result.
    INT_PTR Result();

  private:
    Dialog dialog_{nullptr};
};

// A test on one recorded dialog.
class RecordedTest : public testing::Test {
  protected:
    RecordedTest(int templateId, const std::string& caption, RecordedDialog::Opening opening = {})
        : dialog_(templateId, caption, std::move(opening)) {}

    LRESULT Send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
        return dialog_->Send(id, message, wParam, lParam);
    }
    // Gives a control the focus as a program does; what that tells is forgotten.
    void Focus(int id) {
        dialog_->Focus(id);
        dialog_.TakeNotifications();
    }

    RecordedDialog dialog_;
};

}  // namespace kit
