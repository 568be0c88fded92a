#include "tests/kit/person.h"

#include "platform/core/handle_table.h"
#include "platform/core/queue.h"
#include "platform/screen.h"
#include "tests/kit/user_interface.h"

namespace kit {
namespace {

using vxd::WidgetId;

// Has the screen report something and waits until its turn has come, which is behind all that is
// posted.
void Report(const std::function<void()>& report) {
    std::promise<void> taken;
    RunStep([&] {
        report();
        vxd::QueueInput([&taken] { taken.set_value(); });
    });
    constexpr std::chrono::seconds kLongestWait{10};
    ASSERT_EQ(taken.get_future().wait_for(kLongestWait), std::future_status::ready);
    Settle();
}

// A press of the button takes the focus to what is pressed.
WidgetId Press(HWND window) {
    if (GetFocus() != window)
        vxd::input::Focused(vxd::HandleNumber(window));
    return vxd::HandleNumber(window);
}

}  // namespace

void ClickButton(HWND button) {
    Report([=] { vxd::input::Clicked(Press(button)); });
}

void ClickRow(HWND listBox, int row) {
    Report([list = vxd::HandleNumber(listBox), row] {
        vxd::input::RowPressed(list, row);
        vxd::input::RowChosen(list, row);
    });
}

void DoubleClickRow(HWND listBox, int row) {
    ClickRow(listBox, row);
    Report([=] { vxd::input::RowDoubleClicked(vxd::HandleNumber(listBox), row); });
}

void Paste(HWND edit, const std::string& text) {
    Report([&] {
        std::string all(static_cast<std::size_t>(GetWindowTextLengthA(edit)) + 1, '\0');
        all.resize(static_cast<std::size_t>(
            GetWindowTextA(edit, all.data(), static_cast<int>(all.size()))));
        char className[16];
        GetClassNameA(edit, className, sizeof className);
        const bool isCombo = std::string_view(className) == "ComboBox";
        const LRESULT selection = SendMessageA(edit, isCombo ? CB_GETEDITSEL : EM_GETSEL, 0, 0);
        const std::size_t start = LOWORD(selection);
        all.replace(start, HIWORD(selection) - start, text);
        const int caret = static_cast<int>(start + text.size());
        vxd::input::Edited(vxd::HandleNumber(edit), all, caret, caret);
    });
}

void ClickRightArrow(HWND scrollBar) {
    Report([=] {
        const WidgetId bar = Press(scrollBar);
        vxd::input::Scrolled(bar, SB_LINERIGHT, 0);
        vxd::input::Scrolled(bar, SB_ENDSCROLL, 0);
    });
}

void DragThumbToEnd(HWND scrollBar, int end) {
    Report([=] {
        const WidgetId bar = Press(scrollBar);
        for (const UINT code : {SB_THUMBTRACK, SB_THUMBPOSITION, SB_ENDSCROLL})
            vxd::input::Scrolled(bar, code, end);
    });
}

namespace {

// The middle of a control in its dialog.
vxd::Point MiddleOf(HWND control) {
    POINT corner{0, 0};
    ClientToScreen(GetParent(control), &corner);
    RECT rect{};
    GetWindowRect(control, &rect);
    return {(rect.left + rect.right) / 2 - corner.x, (rect.top + rect.bottom) / 2 - corner.y};
}

}  // namespace

void TurnWheel(HWND control, int notches) {
    Report([=] {
        vxd::input::Wheel(vxd::HandleNumber(GetParent(control)), notches * WHEEL_DELTA,
                          MiddleOf(control));
    });
}

void DoubleClickRight(HWND label) {
    Report([=] {
        for (const UINT message : {WM_RBUTTONDOWN, WM_RBUTTONUP, WM_RBUTTONDBLCLK, WM_RBUTTONUP})
            vxd::input::Mouse(vxd::HandleNumber(GetParent(label)), message, MiddleOf(label));
    });
}

}  // namespace kit
