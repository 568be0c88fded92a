#include "platform/core/keyboard.h"

#include "platform/core/key_message.h"
#include "platform/win32.h"

namespace vxd {
namespace {

struct Modifiers {
    bool shift = false;
    bool control = false;
    bool alt = false;
};

Modifiers& TheModifiers() {
    static Modifiers modifiers;
    return modifiers;
}

// The character that a key makes on a keyboard without a layout of its own.
WPARAM CharacterOf(const MSG& message) {
    if (const WPARAM given = CharacterIn(message.lParam); given != 0)
        return given;
    const WPARAM key = message.wParam;
    switch (key) {
        case VK_BACK:
        case VK_TAB:
        case VK_RETURN:
        case VK_ESCAPE:
        case VK_SPACE:
            return key;
        default:
            break;
    }
    if (key >= 'A' && key <= 'Z')
        return TheModifiers().shift ? key : key + ('a' - 'A');
    return key >= '0' && key <= '9' ? key : 0;
}

}  // namespace

bool IsShiftDown() {
    return TheModifiers().shift;
}

bool IsControlDown() {
    return TheModifiers().control;
}

bool IsAltDown() {
    return TheModifiers().alt;
}

void SetModifiers(bool shift, bool control, bool alt) {
    TheModifiers() = {shift, control, alt};
}

}  // namespace vxd

BOOL WINAPI TranslateMessage(const MSG* message) {
    if (message->message != WM_KEYDOWN && message->message != WM_SYSKEYDOWN)
        return FALSE;
    const WPARAM character = vxd::CharacterOf(*message);
    if (character != 0) {
        PostMessageA(message->hwnd, message->message == WM_KEYDOWN ? WM_CHAR : WM_SYSCHAR,
                     character, message->lParam);
    }
    return TRUE;
}
