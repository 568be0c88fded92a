// A program's window with a menu bar, filled with one colour, and what it is told.
#pragma once

#include <QApplication>
#include <QColor>
#include <QCoreApplication>
#include <QExposeEvent>
#include <QImage>
#include <QMenu>
#include <QMenuBar>
#include <QRect>
#include <QWidget>
#include <QWindow>

#include "platform/win32.h"
#include "tests/kit/user_interface.h"
#include "tests/qt/form.h"
#include "tests/qt/native.h"

namespace form {

constexpr QColor kSeenColour(0x20, 0x60, 0xA0);

class WindowTest : public testing::Test {
  public:
    // What the program does at the bare entry of its menu bar. User-interface thread.
    static std::function<void()>& AtBare();

  protected:
    WindowTest();

    ~WindowTest() override {
        native::DoLast([this] { native::WidgetOf(window_)->close(); });
        EXPECT_EQ(result_.get(), 7);
    }

    // What came since it was last taken: commands, one kind of message, areas painted.
    static std::vector<UINT> TakeCommands();
    static std::size_t TakeMessages(UINT message);
    std::vector<QRect> TakePainted() const;

    static void ExpectKeyboard() {
        TakeMessages(WM_KEYDOWN);
        native::Type("x");
        EXPECT_EQ(TakeMessages(WM_KEYDOWN), 1u) << "the window has no keyboard";
    }

    // The desktop has lost a part of the window.
    void Expose(QRect area) const {
        native::Do([=, this] {
            QExposeEvent exposure(area);
            QCoreApplication::sendEvent(native::WidgetOf(window_)->windowHandle(), &exposure);
        });
    }

    // A click near the lower left corner, inside the client area.
    void ClickBelow(Qt::MouseButton button) const {
        native::Do([=, this] {
            QWidget* widget = native::WidgetOf(window_);
            native::ClickWidget(*widget, QPoint(5, widget->height() - 5), button);
        });
    }

    // User-interface thread: the rows of the menu bar, and the entries of the menu that is open.
    QList<QMenuBar*> Rows() const { return native::WidgetOf(window_)->findChildren<QMenuBar*>(); }
    static QList<QAction*> OpenMenu() {
        const auto* menu = dynamic_cast<QMenu*>(QApplication::activePopupWidget());
        return menu != nullptr ? menu->actions() : QList<QAction*>();
    }

    QImage MenuBarLook() const {
        return kit::OnUserInterface([this] { return Rows().front()->grab().toImage(); });
    }

    // The entry of the menu bar that the keyboard is on; empty for none.
    std::string ActiveEntry() const {
        return kit::OnUserInterface([this] {
            for (const QMenuBar* row : Rows()) {
                if (row->hasFocus() && row->activeAction() != nullptr)
                    return row->activeAction()->text().toStdString();
            }
            return std::string();
        });
    }

    QRect ClientRect() const {
        return kit::OnUserInterface([this] {
            RECT rect{};
            GetClientRect(window_, &rect);
            return QRect(0, 0, rect.right, rect.bottom);
        });
    }

    QRect WindowRect() const {
        return kit::OnUserInterface([this] { return native::WidgetOf(window_)->geometry(); });
    }

    // What the person sees at a place of the client area.
    QColor SeenAt(QPoint place) const {
        return kit::OnUserInterface([=, this] {
            UpdateWindow(window_);
            POINT point{place.x(), place.y()};
            ClientToScreen(window_, &point);
            QWidget* widget = native::WidgetOf(window_);
            const QPoint inside = QPoint(point.x, point.y) - widget->geometry().topLeft();
            return widget->grab().toImage().pixelColor(inside);
        });
    }

    std::future<int> result_;
    HWND window_ = nullptr;
};

}  // namespace form
