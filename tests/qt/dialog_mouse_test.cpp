// The mouse on a dialog's own area: where no control lies that has a use for it.
#include <gtest/gtest.h>

#include <QTest>
#include <QWindow>
#include <future>
#include <string>
#include <utility>

#include "platform/win32.h"
#include "tests/kit/dialog.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/form.h"
#include "tests/qt/native.h"

namespace {

using kit::OnUserInterface;

// What the dialog hears, and where on the desktop. User-interface thread.
std::string& Told() {
    static std::string told;
    return told;
}

// A group box of the dialog's.
HWND theFrame = nullptr;

INT_PTR CALLBACK HearingProcedure(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    POINT where{static_cast<SHORT>(LOWORD(lParam)), static_cast<SHORT>(HIWORD(lParam))};
    switch (message) {
        case WM_INITDIALOG:
            theFrame = CreateWindowExA(0, "Button", "Frame", WS_CHILD | WS_VISIBLE | BS_GROUPBOX,
                                       200, 60, 30, 30, dialog, nullptr, nullptr, nullptr);
            return TRUE;
        case WM_RBUTTONDBLCLK:
            ClientToScreen(dialog, &where);
            Told() += "double ";
            break;
        case WM_MOUSEWHEEL:
            Told() += "wheel " + std::to_string(GET_WHEEL_DELTA_WPARAM(wParam)) + " ";
            break;
        default:
            return message == WM_COMMAND;
    }
    Told() += std::to_string(where.x) + "," + std::to_string(where.y);
    return TRUE;
}

TEST(DialogMouse, ReachesTheDialogThroughWhateverTakesNoInput) {
    std::future<int> result = kit::StartProgram([] {
        return static_cast<int>(DialogBoxParamA(
            GetModuleHandleA(nullptr), MAKEINTRESOURCEA(IDD_FORM), nullptr, HearingProcedure, 0));
    });
    const kit::Dialog form = kit::WaitForDialog("Form");
    OnUserInterface([&] { EnableWindow(GetDlgItem(form.Handle(), IDC_APPLY), FALSE); });
    // Acts in the middle of a control; gives what is heard of it and what was to be.
    const auto act = [&](HWND control, const std::string& heard, auto mouse) {
        std::string place;
        native::Do([&] {
            QWidget& widget = *native::WidgetOf(control);
            const QPoint middle = widget.mapTo(widget.window(), widget.rect().center());
            const QPoint onDesktop = widget.window()->mapToGlobal(middle);
            place = std::to_string(onDesktop.x()) + "," + std::to_string(onDesktop.y());
            mouse(*widget.window(), middle);
        });
        return std::pair(OnUserInterface([] { return std::exchange(Told(), {}); }),
                         heard.empty() ? heard : heard + " " + place);
    };
    const auto doubleClick = [](QWidget& window, QPoint where) {
        QTest::mouseDClick(window.windowHandle(), Qt::RightButton, {}, where);
    };
    const auto turn = [](QWidget& window, QPoint where) { native::TurnWheel(window, where, -120); };
    const HWND label = OnUserInterface([&] { return GetWindow(form.Handle(), GW_CHILD); });
    for (const HWND control : {form.Handle(), label, theFrame, form.Control(IDC_APPLY)}) {
        const auto [heard, expected] = act(control, "double", doubleClick);
        EXPECT_EQ(heard, expected);
    }
    for (const int id : {IDOK, IDC_NAME, IDC_RED}) {
        const auto [heard, expected] = act(form.Control(id), "", doubleClick);
        EXPECT_EQ(heard, expected) << id;
    }
    for (const HWND control : {form.Handle(), label, form.Control(IDOK)}) {
        const auto [heard, expected] = act(control, "wheel -120", turn);
        EXPECT_EQ(heard, expected);
    }
    OnUserInterface([&] { EndDialog(form.Handle(), 0); });
    result.wait();
}

}  // namespace
