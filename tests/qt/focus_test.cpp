// Where the keyboard is can be seen, in the style that a desktop without one of its own shows.
#include <gtest/gtest.h>

#include <QApplication>
#include <QImage>
#include <QStyleFactory>
#include <cstdlib>
#include <future>

#include "platform/win32.h"
#include "tests/kit/dialog.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/form.h"
#include "tests/qt/native.h"

namespace {

INT_PTR CALLBACK QuietProcedure(HWND dialog, UINT message, WPARAM, LPARAM) {
    if (message == WM_INITDIALOG) {
        // A selected row stays as it is without the focus.
        SendDlgItemMessageA(dialog, IDC_LIST, LB_ADDSTRING, 0, reinterpret_cast<LPARAM>("row"));
        SendDlgItemMessageA(dialog, IDC_LIST, LB_SETCURSEL, 0, 0);
    }
    return message == WM_INITDIALOG || message == WM_COMMAND;
}

// How many pixels differ so much that the eye finds them.
int PlainlyDifferent(const QImage& one, const QImage& other) {
    constexpr int kPlain = 60;  // of all three colours together
    int count = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x) {
            const QColor a = one.pixelColor(x, y);
            const QColor b = other.pixelColor(x, y);
            count += std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) +
                                 std::abs(a.blue() - b.blue()) >=
                             kPlain
                         ? 1
                         : 0;
        }
    }
    return count;
}

TEST(FocusOnScreen, IsSeenOnEveryKindOfControlWhetherKeysOrTheMouseBroughtIt) {
    std::future<int> result = kit::StartProgram([] {
        QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
        return static_cast<int>(DialogBoxParamA(
            GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_FORM), nullptr, QuietProcedure, 0));
    });
    const kit::Dialog form = kit::WaitForDialog("Form");
    native::Do([] {});
    const auto look = [&form](int id, int focused) {
        return kit::OnUserInterface([=, &form] {
            const HWND control = GetDlgItem(form.Handle(), id);
            SetFocus(GetDlgItem(form.Handle(), focused));
            // The caret and a selection are no marks of the field: they may be missing.
            SendMessageA(control, EM_SETSEL, 0, 0);
            return native::WidgetOf(control)->grab().toImage();
        });
    };
    for (const bool afterClick : {false, true}) {
        if (afterClick)
            native::Click(form.Control(IDC_MANUAL));
        for (const int id : {IDC_NAME, IDC_NOTE, IDC_RED, IDC_MANUAL, IDC_PLACE, IDC_WORD, IDC_LIST,
                             IDC_SIMPLE, IDC_APPLY, IDOK}) {
            // Between push buttons the look of the default one goes with the focus.
            const int elsewhere = id == IDC_NAME ? IDC_PLACE : IDC_NAME;
            const QImage without = look(id, elsewhere);
            // A mark takes as many pixels as a line along the control's shorter side, and more.
            EXPECT_GT(PlainlyDifferent(look(id, id), without), 2 * without.height())
                << id << (afterClick ? " after a click" : "");
        }
    }
    kit::OnUserInterface([&form] { EndDialog(form.Handle(), 0); });
    result.wait();
}

}  // namespace
