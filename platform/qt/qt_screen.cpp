#include "platform/qt/qt_screen.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QFileDialog>
#include <QFontMetrics>
#include <QMenu>
#include <QScreen>
#include <QTimer>
#include <clocale>
#include <utility>

#include "platform/qt/accessibility.h"
#include "platform/qt/control.h"
#include "platform/qt/file_dialog.h"
#include "platform/qt/input_filter.h"
#include "platform/qt/menus.h"
#include "platform/qt/text.h"
#include "platform/qt/top_level.h"

namespace vxd {

QtScreen::QtScreen()
    : report_([this] { activation_.ReportChange(); }),
      held_(report_),
      activation_(controls_, report_),
      filter_(std::make_unique<qt::InputFilter>(controls_, held_, report_)),
      dispatcher_(QAbstractEventDispatcher::instance()),
      timeLimit_(std::make_unique<QTimer>()) {
    timeLimit_->setSingleShot(true);
    // Qt has taken the desktop's, with its decimal comma; the program's numbers are its own.
    std::setlocale(LC_NUMERIC, "C");
    qt::InstallAccessibility();
}

QtScreen::~QtScreen() {
    Retire();
}

void QtScreen::Retire() {
    ClosePopup();
    CloseFileDialog();
    while (!controls_.IsEmpty()) {
        Destroy(controls_.First());
    }
    held_.Clear();
    timeLimit_.reset();
    activation_.Retire();
    filter_.reset();
    const std::lock_guard lock(wakeMutex_);
    dispatcher_ = nullptr;
}

// Measures.

FontMetrics QtScreen::DialogFont() {
    const QFontMetrics font(QApplication::font());
    constexpr int kLetters = 26;
    const int alphabet = font.horizontalAdvance(
        QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"));
    return {(alphabet / kLetters + 1) / 2, font.height()};
}

Size QtScreen::TextSize(const std::string& text, int wrapWidth) {
    constexpr int kUnbounded = 1 << 20;
    const QFontMetrics font(QApplication::font());
    const QRect room(0, 0, wrapWidth > 0 ? wrapWidth : kUnbounded, kUnbounded);
    const int flags = Qt::TextExpandTabs | (wrapWidth > 0 ? Qt::TextWordWrap : 0);
    const QSize size = font.boundingRect(room, flags, qt::ToQt(text)).size();
    return {size.width(), size.height()};
}

Rect QtScreen::WorkArea() {
    return qt::FromQt(QGuiApplication::primaryScreen()->availableGeometry());
}

// Widgets.

Widget& QtScreen::Create(const WidgetSetup& setup) {
    std::unique_ptr<qt::Control> control;
    if (setup.kind == WidgetKind::kWindow || setup.kind == WidgetKind::kDialog) {
        control = std::make_unique<qt::TopLevel>(setup, NativeWidget(setup.owner), report_);
    } else if (qt::Control* parent = controls_.Find(setup.parent); parent != nullptr) {
        control = qt::MakeControl(setup, parent->Area(), report_);
    }
    if (control == nullptr) {
        return NoWidget();
    }
    control->SetText(setup.text);
    control->SetRect(setup.rect);
    control->SetEnabled(setup.enabled);
    qt::NameByNeighbours(control->NativeWidget());
    return controls_.Add(std::move(control));
}

void QtScreen::Destroy(WidgetId id) {
    for (const WidgetId held : controls_.HeldBy(id)) {
        Destroy(held);
    }
    activation_.Forget(id);
    controls_.Remove(id);
}

void QtScreen::SetFocus(WidgetId id) {
    focus_ = id;
    if (qt::Control* control = controls_.Find(id); control != nullptr) {
        control->TakeFocus();
    }
}

// Top-level windows.

void QtScreen::Raise(WidgetId id) {
    activation_.Raise(id);
}

void QtScreen::ShowPopup(WidgetId id, const std::vector<MenuView>& menu, Point where) {
    popup_ = std::make_unique<QMenu>(NativeWidget(id));
    QMenu* shown = popup_.get();
    auto chosen = std::make_shared<std::uint32_t>(0);
    qt::FillMenu(*shown, menu, [chosen](std::uint32_t command) { *chosen = command; });
    // The menu goes before it tells what was chosen.
    const auto ended = [this, chosen] {
        held_.SetPopupEnds(false);
        report_(input::MenuEnded, *chosen);
    };
    QObject::connect(shown, &QMenu::aboutToHide, shown, [this, shown, ended] {
        held_.SetPopupEnds(true);
        QMetaObject::invokeMethod(shown, ended, Qt::QueuedConnection);
    });
    shown->popup(QPoint(where.x, where.y));
}

void QtScreen::ClosePopup() {
    popup_.reset();
    held_.SetPopupEnds(false);
}

void QtScreen::AskForFile(const FileQuestion& question) {
    fileDialog_ = qt::ShowFileDialog(question, NativeWidget(question.owner), report_);
}

void QtScreen::CloseFileDialog() {
    fileDialog_.reset();
}

// Native events.

void QtScreen::Wait(int milliseconds) {
    held_.SetCoreIsBehind(input::Waits());
    activation_.AskDesktop();
    report_.Open();
    // No event loop of Qt's own ever runs that would do this.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    held_.Deliver([this] { return KeyboardWindow(); });
    if (milliseconds > 0) {
        timeLimit_->start(milliseconds);
    }
    const auto isOver = [&] {
        activation_.ReportChange();
        return report_.Handed() || woken_.exchange(false) ||
               (milliseconds >= 0 && !timeLimit_->isActive());
    };
    dispatcher_->processEvents(QEventLoop::AllEvents);
    while (!isOver()) {
        dispatcher_->processEvents(QEventLoop::WaitForMoreEvents);
    }
    timeLimit_->stop();
    report_.Close();
}

void QtScreen::Wake() {
    woken_ = true;
    const std::lock_guard lock(wakeMutex_);
    if (dispatcher_ != nullptr) {
        dispatcher_->wakeUp();
    }
}

QWidget* QtScreen::KeyboardWindow() const {
    if (fileDialog_ != nullptr) {
        return fileDialog_.get();
    }
    const QWidget* focus = NativeWidget(focus_);
    return focus != nullptr ? focus->window() : nullptr;
}

}  // namespace vxd
