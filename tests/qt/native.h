// A person at the keyboard and the mouse: what they do comes in as events of the window system.
#pragma once

#include <QWidget>

#include "platform/win32.h"
#include "tests/kit/test.h"

namespace native {

// User-interface thread: the native widget that shows a window.
QWidget* WidgetOf(HWND window);
template <typename Widget>
Widget* As(HWND window) {
    return dynamic_cast<Widget*>(WidgetOf(window));
}

// Engineer's thread: runs `events` while the screen takes in native events, and comes back when the
// program has dealt with them.
void Do(const std::function<void()>& events);
// The same for events that end the program; comes back at once.
void DoLast(const std::function<void()>& events);

// Engineer's thread: keys that go to whatever has the keyboard.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void Type(const char* text);

// Engineer's thread: a click in the middle of a window or at a place in it.
void Click(HWND window);
void ClickAt(HWND window, QPoint where);

// User-interface thread, inside Do: a click on any native widget.
void ClickWidget(QWidget& widget, QPoint where, Qt::MouseButton button = Qt::LeftButton);
// The same for the wheel, turned by 120 for each notch away from the person.
void TurnWheel(QWidget& widget, QPoint where, int turned);
// The same for keys, which go to whatever has the keyboard.
void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier);
void TypeLetter(char letter);
// The same for what an input method makes, and for a text that is dropped on a widget.
void Commit(const char* text);
void Drop(QWidget& widget, const char* text);

}  // namespace native
