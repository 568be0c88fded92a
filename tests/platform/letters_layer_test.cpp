// Letters as the layer's screens report them: by their number in Unicode, where Windows has a byte.
#include "platform/win32.h"
#include "tests/kit/test.h"

namespace {

TEST(Letters, BeyondAsciiAreNotTakenForThePlainOneInTheirLowByte) {
    const HWND dialog = CreateWindowExA(0, "#32770", "", WS_POPUP | WS_VISIBLE, 0, 0, 100, 100,
                                        nullptr, nullptr, nullptr, nullptr);
    const auto add = [dialog](const char* kind, const char* text, DWORD style) {
        return CreateWindowExA(0, kind, text, WS_CHILD | WS_VISIBLE | WS_TABSTOP | style, 0, 0, 50,
                               10, dialog, nullptr, nullptr, nullptr);
    };
    const HWND field = add("Edit", "", 0);
    const HWND box = add("Button", "&Up", BS_AUTOCHECKBOX);
    SetFocus(field);
    const auto follow = [&](WPARAM letter) {
        MSG message{};
        message.hwnd = field;
        message.message = WM_SYSCHAR;
        message.wParam = letter;
        EXPECT_TRUE(IsDialogMessageA(dialog, &message));
        return SendMessageA(box, BM_GETCHECK, 0, 0);
    };
    EXPECT_EQ(follow(0x155), BST_UNCHECKED);
    EXPECT_EQ(GetFocus(), field);
    EXPECT_EQ(follow('u'), BST_CHECKED);
    DestroyWindow(dialog);
}

}  // namespace
