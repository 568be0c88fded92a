// The form that the screen is tried with, run by a program, and what its controls tell.
#pragma once

#include <QImage>
#include <QWidget>

#include "platform/win32.h"
#include "tests/kit/dialog.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/form.h"
#include "tests/qt/native.h"

namespace form {

using Codes = std::vector<int>;

// The controls and their notification codes, as WM_COMMAND tells them. User-interface thread.
std::vector<std::pair<int, int>>& Notices();
// The notification codes that a control has told; all of all controls so far are forgotten.
Codes TakeCodes(int id);

// What the dialog hears of its scroll bar, of the wheel and of the mouse. User-interface thread.
std::string& Heard();

// User-interface thread: four rows for a list or combo box.
void AddRows(HWND dialog, int id, UINT message);

// Whether the list's focus is answered with a message box. User-interface thread.
bool& BoxIsDue();

// Has the program change one of the form's controls, which one and how by a number.
constexpr UINT kChange = WM_APP + 1;

// User-interface thread: runs the form until it is closed.
int RunForm(HWND owner);

class FormTest : public testing::Test {
  protected:
    FormTest()
        : result_(kit::StartProgram([] { return RunForm(nullptr); })),
          form_(kit::WaitForDialog("Form")) {
        native::Do([] {});
    }

    ~FormTest() override {
        if (!result_.valid())
            return;
        kit::OnUserInterface([this] { EndDialog(form_.Handle(), 0); });
        result_.wait();
    }

    HWND Control(int id) const { return form_.Control(id); }

    // What the program does with a control.
    LRESULT Send(int id, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) const {
        const HWND control = Control(id);
        return kit::OnUserInterface([=] { return SendMessageA(control, message, wParam, lParam); });
    }
    void SetText(int id, const char* text) const {
        Send(id, WM_SETTEXT, 0, reinterpret_cast<LPARAM>(text));
    }
    void Focus(int id) const {
        const HWND control = Control(id);
        kit::OnUserInterface([control] { SetFocus(control); });
    }

    // What a control's widget shows: one of its members, or a function of it.
    template <typename Widget, typename Question>
    auto Shown(int id, Question question) const {
        const HWND control = Control(id);
        return kit::OnUserInterface(
            [=] { return std::invoke(question, *native::As<Widget>(control)); });
    }
    std::string ShownText(int id, const char* property = "text") const {
        return Shown<QWidget>(id, [property](QWidget& widget) {
            return widget.property(property).toString().toStdString();
        });
    }

    static std::string TakeHeard() {
        return kit::OnUserInterface([] { return std::exchange(Heard(), {}); });
    }
    QImage Look(int id) const {
        return Shown<QWidget>(id, [](QWidget& widget) { return widget.grab().toImage(); });
    }

    std::future<int> result_;
    kit::Dialog form_;
};

}  // namespace form
