// What templates make: dialogs of both formats with their controls in order.

#include "tests/kit/user_interface.h"
#include "tests/platform/dialogs.h"
#include "tests/platform/recorder.h"

namespace {

using kit::OnUserInterface;

// A control as "class id 'text'" and what its styles say to the dialog.
std::string Describe(HWND control) {
    std::array<char, 32> name{};
    std::array<char, 32> text{};
    GetClassNameA(control, name.data(), static_cast<int>(name.size()));
    GetWindowTextA(control, text.data(), static_cast<int>(text.size()));
    const auto style = static_cast<DWORD>(GetWindowLongPtrA(control, GWL_STYLE));
    return std::string(name.data()) + " " + std::to_string(GetDlgCtrlID(control)) + " '" +
           text.data() + "'" + ((style & WS_TABSTOP) != 0 ? " stop" : "") +
           ((style & WS_GROUP) != 0 ? " group" : "") +
           ((style & WS_DISABLED) != 0 ? " disabled" : "") +
           ((style & WS_VISIBLE) != 0 ? "" : " hidden") + "\n";
}

std::string Controls(const kit::RecordedDialog& dialog) {
    return OnUserInterface([&] {
        std::string all;
        for (HWND child = GetWindow(dialog->Handle(), GW_CHILD); child != nullptr;
             child = GetWindow(child, GW_HWNDNEXT))
            all += Describe(child);
        return all;
    });
}

TEST(DialogTemplate, AnExtendedOneMakesItsControlsInOrder) {
    const kit::RecordedDialog dialog(IDD_KEYS, "Keys");
    EXPECT_EQ(Controls(dialog),
              "Edit 201 '' stop group\n"
              "Edit 202 '' stop\n"
              "Edit 203 '' stop\n"
              "Button 211 '&A' stop group\n"
              "Button 212 '&B'\n"
              "Button 213 'C'\n"
              "Button 214 '&Check' stop group\n"
              "Static -1 '&Name:' group\n"
              "Edit 222 '' stop\n"
              "Button 1 'OK' stop group\n"
              "Button 220 'A&pply' stop\n"
              "Button 221 '&Grey' stop disabled\n");
}

TEST(DialogTemplate, AClassicOneMakesItsControlsInOrder) {
    const kit::RecordedDialog dialog(IDD_LISTS, "Lists");
    EXPECT_EQ(Controls(dialog),
              "ListBox 301 '' stop\n"
              "ComboBox 302 '' stop\n"
              "ComboBox 303 '' stop\n"
              "Edit 306 '' stop\n");
}

}  // namespace
