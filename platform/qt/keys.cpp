#include "platform/qt/keys.h"

#include <QKeyEvent>
#include <array>

#include "platform/win32.h"

namespace vxd::qt {
namespace {

struct KeyPair {
    int key;
    std::uint32_t virtualKey;
};

constexpr std::uint32_t kVirtualPause = 0x13;
constexpr std::uint32_t kVirtualCapsLock = 0x14;
constexpr std::uint32_t kVirtualInsert = 0x2D;
constexpr std::uint32_t kVirtualNumpad0 = 0x60;
constexpr std::uint32_t kVirtualF1 = 0x70;

constexpr std::array kNamedKeys{
    KeyPair{Qt::Key_Escape, VK_ESCAPE},
    KeyPair{Qt::Key_Tab, VK_TAB},
    KeyPair{Qt::Key_Backtab, VK_TAB},
    KeyPair{Qt::Key_Backspace, VK_BACK},
    KeyPair{Qt::Key_Return, VK_RETURN},
    KeyPair{Qt::Key_Enter, VK_RETURN},
    KeyPair{Qt::Key_Delete, VK_DELETE},
    KeyPair{Qt::Key_Insert, kVirtualInsert},
    KeyPair{Qt::Key_Pause, kVirtualPause},
    KeyPair{Qt::Key_Home, VK_HOME},
    KeyPair{Qt::Key_End, VK_END},
    KeyPair{Qt::Key_Left, VK_LEFT},
    KeyPair{Qt::Key_Up, VK_UP},
    KeyPair{Qt::Key_Right, VK_RIGHT},
    KeyPair{Qt::Key_Down, VK_DOWN},
    KeyPair{Qt::Key_PageUp, VK_PRIOR},
    KeyPair{Qt::Key_PageDown, VK_NEXT},
    KeyPair{Qt::Key_Shift, VK_SHIFT},
    KeyPair{Qt::Key_Control, VK_CONTROL},
    KeyPair{Qt::Key_Alt, VK_MENU},
    KeyPair{Qt::Key_CapsLock, kVirtualCapsLock},
    KeyPair{Qt::Key_Menu, VK_APPS},
};

bool IsBetween(int key, int first, int last) {
    return key >= first && key <= last;
}

std::uint32_t VirtualKey(int key, bool onKeypad) {
    if (IsBetween(key, Qt::Key_0, Qt::Key_9))
        return static_cast<std::uint32_t>(onKeypad ? kVirtualNumpad0 + (key - Qt::Key_0) : key);
    // Letters and the space bar have the numbers of their ASCII characters on both sides.
    if (IsBetween(key, Qt::Key_A, Qt::Key_Z) || key == Qt::Key_Space)
        return static_cast<std::uint32_t>(key);
    if (IsBetween(key, Qt::Key_F1, Qt::Key_F24))
        return kVirtualF1 + static_cast<std::uint32_t>(key - Qt::Key_F1);
    for (const KeyPair& pair : kNamedKeys) {
        if (pair.key == key)
            return pair.virtualKey;
    }
    return 0;
}

std::uint32_t CharacterOf(const QKeyEvent& event) {
    if (const auto text = event.text().toUcs4(); !text.isEmpty())
        return text.front();
    // Together with Alt a key makes no text, but dialogs look for its letter.
    const int key = event.key();
    if (!event.modifiers().testFlag(Qt::AltModifier) || !IsBetween(key, '!', '~'))
        return 0;
    const bool lower = IsBetween(key, 'A', 'Z') && !event.modifiers().testFlag(Qt::ShiftModifier);
    return static_cast<std::uint32_t>(lower ? key - 'A' + 'a' : key);
}

}  // namespace

input::KeyPress ToKeyPress(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers();
    input::KeyPress press;
    press.virtualKey = VirtualKey(event.key(), modifiers.testFlag(Qt::KeypadModifier));
    press.character = CharacterOf(event);
    press.shift = modifiers.testFlag(Qt::ShiftModifier) || event.key() == Qt::Key_Backtab;
    press.control = modifiers.testFlag(Qt::ControlModifier);
    press.alt = modifiers.testFlag(Qt::AltModifier);
    return press;
}

}  // namespace vxd::qt
