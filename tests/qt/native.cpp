#include "tests/qt/native.h"

#include <QApplication>
#include <QDropEvent>
#include <QInputMethodEvent>
#include <QMimeData>
#include <QTest>
#include <QWheelEvent>
#include <QWindow>
#include <cstdio>

#include "platform/qt/qt_screen.h"
#include "tests/kit/user_interface.h"

namespace native {

namespace {

vxd::QtScreen& Screen() {
    return dynamic_cast<vxd::QtScreen&>(vxd::CurrentScreen());
}

}  // namespace

QWidget* WidgetOf(HWND window) {
    return Screen().NativeWidget(
        static_cast<vxd::WidgetId>(reinterpret_cast<std::uintptr_t>(window)));
}

void DoLast(const std::function<void()>& events) {
    std::promise<void> done;
    QMetaObject::invokeMethod(
        qApp,
        [&] {
            events();
            done.set_value();
        },
        Qt::QueuedConnection);
    constexpr std::chrono::seconds kLongest{30};
    if (done.get_future().wait_for(kLongest) != std::future_status::ready) {
        std::fprintf(stderr, "the screen takes no events\n");
        std::abort();
    }
}

void Do(const std::function<void()>& events) {
    DoLast(events);
    // The screen waits again when the program has nothing left to do; it hands over what came in
    // one go bit by bit.
    for (bool holds = true; holds;) {
        kit::RunStep([] {});
        DoLast([&holds] { holds = Screen().HoldsInput(); });
    }
    kit::RunStep([] {});
    DoLast([] {});
}

namespace {

// The window that has the keyboard. Offscreen no window manager gives it back when a menu goes.
QWindow* KeyboardWindow() {
    QWindow* window = QGuiApplication::focusWindow();
    return window != nullptr ? window : QApplication::activeWindow()->windowHandle();
}

}  // namespace

void PressKey(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    QTest::keyClick(KeyboardWindow(), key, modifiers);
}

void TypeLetter(char letter) {
    QTest::keyClick(KeyboardWindow(), letter);
}

void Commit(const char* text) {
    QInputMethodEvent made;
    made.setCommitString(QString::fromUtf8(text));
    QCoreApplication::sendEvent(QGuiApplication::focusObject(), &made);
}

void Drop(QWidget& widget, const char* text) {
    QMimeData dragged;
    dragged.setText(QString::fromUtf8(text));
    QWindow* window = widget.window()->windowHandle();
    const QPoint place = widget.mapTo(widget.window(), widget.rect().center());
    QDragEnterEvent enter(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &enter);
    QDropEvent drop(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window, &drop);
}

void Press(Qt::Key key, Qt::KeyboardModifiers modifiers) {
    Do([=] { PressKey(key, modifiers); });
}

void Type(const char* text) {
    for (; *text != '\0'; ++text)
        Do([text] { TypeLetter(*text); });
}

void ClickWidget(QWidget& widget, QPoint where, Qt::MouseButton button) {
    QTest::mouseClick(widget.window()->windowHandle(), button, Qt::NoModifier,
                      widget.mapTo(widget.window(), where));
}

void TurnWheel(QWidget& widget, QPoint where, int turned) {
    QWindow* window = widget.window()->windowHandle();
    const QPoint inWindow = widget.mapTo(widget.window(), where);
    QWheelEvent wheel(inWindow, window->mapToGlobal(inWindow), QPoint(), QPoint(0, turned),
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    // As the desktop sends it.
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    QCoreApplication::instance()->notify(window, &wheel);
}

void Click(HWND window) {
    Do([=] { ClickWidget(*WidgetOf(window), WidgetOf(window)->rect().center()); });
}

void ClickAt(HWND window, QPoint where) {
    Do([=] { ClickWidget(*WidgetOf(window), where); });
}

}  // namespace native
