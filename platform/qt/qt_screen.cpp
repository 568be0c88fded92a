#include "platform/qt/qt_screen.h"

#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QFileDialog>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QListView>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>
#include <QWindow>
#include <algorithm>
#include <chrono>
#include <clocale>
#include <vector>

#include "platform/qt/accessibility.h"
#include "platform/qt/control.h"
#include "platform/qt/file_dialog.h"
#include "platform/qt/keys.h"
#include "platform/qt/menus.h"
#include "platform/qt/text.h"
#include "platform/qt/top_level.h"

namespace vxd {

using qt::Control;
using qt::TopLevel;

namespace {

// A desktop that has not made a window active by then has refused to. Until then it may still be
// carrying out earlier requests.
constexpr std::chrono::milliseconds kLongestAnswer{500};

bool IsAltLetter(const input::KeyPress& key) {
    return key.alt && !key.control && key.character != 0;
}

}  // namespace

class QtScreen::Watcher : public QObject {
  public:
    explicit Watcher(QtScreen& screen) : screen_(screen) { qApp->installEventFilter(this); }

    bool eventFilter(QObject* object, QEvent* event) override {
        if (object->isWindowType())
            return screen_.InterceptAtWindow(*static_cast<QWindow*>(object), *event);
        return object->isWidgetType() && screen_.Intercept(*static_cast<QWidget*>(object), *event);
    }

  private:
    QtScreen& screen_;
};

QtScreen::QtScreen()
    : report_([this] { ReportActivation(); }),
      answerTime_(std::make_unique<QTimer>()),
      dispatcher_(QAbstractEventDispatcher::instance()),
      timeLimit_(std::make_unique<QTimer>()),
      watcher_(std::make_unique<Watcher>(*this)) {
    timeLimit_->setSingleShot(true);
    answerTime_->setSingleShot(true);
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
    while (!controls_.empty())
        Destroy(controls_.begin()->first);
    held_.Clear();
    timeLimit_.reset();
    answerTime_.reset();
    watcher_.reset();
    const std::lock_guard lock(wakeMutex_);
    dispatcher_ = nullptr;
}

Control* QtScreen::Find(WidgetId id) const {
    const auto found = controls_.find(id);
    return found != controls_.end() ? found->second.get() : nullptr;
}

TopLevel* QtScreen::FindTopLevel(WidgetId id) const {
    return dynamic_cast<TopLevel*>(Find(id));
}

Control* QtScreen::ControlOf(const QWidget* widget) const {
    for (; widget != nullptr; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        if (const auto found = byWidget_.find(widget); found != byWidget_.end())
            return found->second;
    }
    return nullptr;
}

QWidget* QtScreen::NativeWidget(WidgetId id) const {
    const Control* control = Find(id);
    return control != nullptr ? &control->NativeWidget() : nullptr;
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
    std::unique_ptr<Control> control;
    if (setup.kind == WidgetKind::kWindow || setup.kind == WidgetKind::kDialog) {
        control = std::make_unique<TopLevel>(setup, NativeWidget(setup.owner), report_);
    } else if (Control* parent = Find(setup.parent); parent != nullptr) {
        control = qt::MakeControl(setup, parent->Area(), report_);
    }
    if (control == nullptr)
        return NoWidget();
    control->SetText(setup.text);
    control->SetRect(setup.rect);
    control->SetEnabled(setup.enabled);
    qt::NameByNeighbours(control->NativeWidget());
    byWidget_[&control->NativeWidget()] = control.get();
    return *(controls_[setup.id] = std::move(control));
}

void QtScreen::Destroy(WidgetId id) {
    std::vector<WidgetId> held;
    for (const auto& [each, control] : controls_) {
        if (control->Holder() == id)
            held.push_back(each);
    }
    for (const WidgetId each : held)
        Destroy(each);
    const auto found = controls_.find(id);
    if (found == controls_.end())
        return;
    if (active_ == id)
        active_ = 0;
    byWidget_.erase(&found->second->NativeWidget());
    controls_.erase(found);
}

void QtScreen::SetFocus(WidgetId id) {
    focus_ = id;
    if (Control* control = Find(id); control != nullptr)
        control->TakeFocus();
}

// Top-level windows.

void QtScreen::Raise(WidgetId id) {
    if (TopLevel* top = FindTopLevel(id); top != nullptr && top->Raise()) {
        // The desktop activates a window that is new, whatever it takes for active now.
        if (active_ != id || QApplication::activeWindow() != &top->NativeWidget()) {
            toActivate_ = id;
        }
        active_ = id;
        requests_ = answerTime_->isActive() ? requests_ + 1 : 1;
        answerTime_->start(kLongestAnswer);
    }
}

// Only the last window that the core has made active is asked for: the desktop would answer for
// each of them, and for one that it has yet to show behind all others.
void QtScreen::AskForActivation() {
    if (TopLevel* top = FindTopLevel(std::exchange(toActivate_, 0)); top != nullptr) {
        top->AskForActivation();
    }
}

void QtScreen::ShowPopup(WidgetId id, const std::vector<MenuView>& menu, Point where) {
    popup_ = std::make_unique<QMenu>(NativeWidget(id));
    QMenu* shown = popup_.get();
    auto chosen = std::make_shared<std::uint32_t>(0);
    qt::FillMenu(*shown, menu, [chosen](std::uint32_t command) { *chosen = command; });
    // The menu goes before it tells what was chosen.
    const auto ended = [this, chosen] {
        popupEnds_ = false;
        report_(input::MenuEnded, *chosen);
    };
    QObject::connect(shown, &QMenu::aboutToHide, shown, [this, shown, ended] {
        popupEnds_ = true;
        QMetaObject::invokeMethod(shown, ended, Qt::QueuedConnection);
    });
    shown->popup(QPoint(where.x, where.y));
}

void QtScreen::ClosePopup() {
    popup_.reset();
    popupEnds_ = false;
}

void QtScreen::AskForFile(const FileQuestion& question) {
    fileDialog_ = qt::ShowFileDialog(question, NativeWidget(question.owner), report_);
}

void QtScreen::CloseFileDialog() {
    fileDialog_.reset();
}

// Native events.

void QtScreen::Wait(int milliseconds) {
    coreIsBehind_ = input::Waits();
    AskForActivation();
    report_.Open();
    // No event loop of Qt's own ever runs that would do this.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    DeliverHeld();
    if (milliseconds > 0)
        timeLimit_->start(milliseconds);
    const auto isOver = [&] {
        ReportActivation();
        return report_.Handed() || woken_.exchange(false) ||
               (milliseconds >= 0 && !timeLimit_->isActive());
    };
    dispatcher_->processEvents(QEventLoop::AllEvents);
    while (!isOver())
        dispatcher_->processEvents(QEventLoop::WaitForMoreEvents);
    timeLimit_->stop();
    report_.Close();
}

void QtScreen::Wake() {
    woken_ = true;
    const std::lock_guard lock(wakeMutex_);
    if (dispatcher_ != nullptr)
        dispatcher_->wakeUp();
}

// Whatever a person does waits while the core has something to deal with: it may move the focus,
// open a dialog or change what the next key or click means.
bool QtScreen::Holds() const {
    return report_.IsOpen() && !held_.IsDelivering() &&
           (coreIsBehind_ || popupEnds_ || report_.Handed() || !held_.IsEmpty());
}

bool QtScreen::InterceptAtWindow(QWindow& receiver, QEvent& event) {
    // A list that closed when it was asked about the key has dealt with it.
    if (event.type() == QEvent::KeyPress && static_cast<QKeyEvent&>(event).key() == popupKey_)
        return false;
    return qt::HeldInput::ConcernsWindow(event) && Hold(receiver, event);
}

bool QtScreen::Hold(QObject& receiver, QEvent& event) {
    if (!Holds()) {
        return false;
    }
    held_.Add(receiver, event);
    return true;
}

// Hands on what was held until some of it gives the core something to do.
void QtScreen::DeliverHeld() {
    while (!held_.IsEmpty() && !coreIsBehind_ && !popupEnds_ && !report_.Handed()) {
        const QWidget* focus = NativeWidget(focus_);
        QWidget* const active = focus != nullptr ? focus->window() : nullptr;
        held_.DeliverFirst(fileDialog_ != nullptr ? fileDialog_.get() : active);
    }
}

bool QtScreen::Intercept(QWidget& receiver, QEvent& event) {
    if (qt::HeldInput::ConcernsWidget(event) && Hold(receiver, event)) {
        return true;
    }
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
            return InterceptKey(receiver, static_cast<QKeyEvent&>(event));
        case QEvent::ShortcutOverride:
            return InterceptShortcut(receiver, static_cast<QKeyEvent&>(event));
        case QEvent::FocusIn:
            ReportFocus(receiver, event);
            return false;
        case QEvent::WindowDeactivate:
            altAlone_ = false;
            return false;
        case QEvent::MouseButtonPress:
            altAlone_ = false;
            return KeepOut(receiver);
        case QEvent::MouseButtonDblClick:
            return KeepOut(receiver);
        case QEvent::MouseButtonRelease:
            // Whatever was pressed while the window took input comes up again. What that does is
            // the core's to drop.
            return false;
        case QEvent::MouseMove:
        case QEvent::Wheel:
        case QEvent::Enter:
        case QEvent::HoverEnter:
        case QEvent::HoverMove:
        case QEvent::ContextMenu:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
            return IsShutOut(receiver);
        case QEvent::DragEnter:
        case QEvent::DragMove:
        case QEvent::Drop:
            if (!IsShutOut(receiver)) {
                return false;
            }
            event.ignore();
            return true;
        case QEvent::Close:
            if (!IsShutOut(receiver))
                return false;
            event.ignore();
            return true;
        default:
            return false;
    }
}

bool QtScreen::IsShutOut(const QWidget& receiver) const {
    const auto* top = dynamic_cast<const TopLevel*>(ControlOf(receiver.window()));
    return top != nullptr && !top->TakesInput();
}

bool QtScreen::KeepOut(const QWidget& receiver) {
    if (!IsShutOut(receiver)) {
        return false;
    }
    report_(input::Activated, ControlOf(receiver.window())->Id(), true);
    return true;
}

bool QtScreen::InterceptShortcut(QWidget& receiver, QKeyEvent& event) {
    // A key that waits is asked about again when its turn has come.
    if (Holds()) {
        event.accept();
        return true;
    }
    if (QApplication::activePopupWidget() != nullptr) {
        popupKey_ = event.key();
        return false;
    }
    if (TakesKeysFirst(receiver))
        popupKey_ = 0;
    // What a key does in the program's windows is told below or said by the core; Qt's own
    // mnemonics must not take it.
    if (ControlOf(receiver.window()) == nullptr || IsMenuBars(receiver, event))
        return false;
    event.accept();
    return true;
}

bool QtScreen::InterceptKey(QWidget& receiver, QKeyEvent& event) {
    if (event.type() == QEvent::KeyRelease && !event.isAutoRepeat()) {
        ReportRelease(event);
    }
    if (IsShutOut(receiver))
        return true;
    const bool isPress = event.type() == QEvent::KeyPress;
    const bool altCameAlone = std::exchange(altAlone_, false);
    const bool beganInPopup = isPress && std::exchange(popupKey_, 0) == event.key();
    if (QApplication::activePopupWidget() != nullptr || IsMenuBars(receiver, event))
        return false;
    if (beganInPopup)
        return true;
    if (!report_.IsOpen() || !TakesKeysFirst(receiver) || ControlOf(&receiver) == nullptr)
        return false;
    const bool isAlt = event.key() == Qt::Key_Alt;
    if (isPress) {
        altAlone_ = isAlt;
        return OfferKey(receiver, event);
    }
    auto* top = dynamic_cast<TopLevel*>(ControlOf(receiver.window()));
    return isAlt && altCameAlone && top != nullptr && top->EnterMenuBar();
}

// Whether a key comes to the widget from the desktop, and not on its way up from the focus.
bool QtScreen::TakesKeysFirst(const QWidget& receiver) {
    const QWidget* focus = receiver.window()->focusWidget();
    return focus != nullptr ? focus == &receiver : receiver.isWindow();
}

// An active menu bar has its keys for itself, but for a letter with Alt, which leaves it first.
bool QtScreen::IsMenuBars(const QWidget& receiver, const QKeyEvent& event) {
    return dynamic_cast<const QMenuBar*>(receiver.window()->focusWidget()) != nullptr &&
           !IsAltLetter(qt::ToKeyPress(event));
}

bool QtScreen::OfferKey(QWidget& receiver, const QKeyEvent& event) {
    const input::KeyPress key = qt::ToKeyPress(event);
    auto* top = dynamic_cast<TopLevel*>(ControlOf(receiver.window()));
    const bool opensMenuBar = event.key() == Qt::Key_F10 && event.modifiers() == Qt::NoModifier;
    if (top != nullptr && opensMenuBar && top->EnterMenuBar())
        return true;
    const bool isAltLetter = IsAltLetter(key);
    if (top != nullptr && isAltLetter && top->OpenMenu(key.character))
        return true;
    if (report_(input::KeyPressed, ControlOf(&receiver)->Id(), key)) {
        keysDown_.insert(key.virtualKey);
        return true;
    }
    // An edit would take the letter as text.
    return isAltLetter && ControlOf(receiver.window())->Kind() == WidgetKind::kDialog;
}

// A key that the core has taken comes up for it too, whoever has the keyboard by then.
void QtScreen::ReportRelease(const QKeyEvent& event) {
    const input::KeyPress key = qt::ToKeyPress(event);
    if (keysDown_.erase(key.virtualKey) != 0) {
        report_(input::KeyReleased, key);
    }
}

void QtScreen::ReportFocus(const QWidget& receiver, const QEvent& event) {
    // With a window or a menu the focus comes and goes without the person moving it.
    const Qt::FocusReason reason = static_cast<const QFocusEvent&>(event).reason();
    if (reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
        reason == Qt::MenuBarFocusReason)
        return;
    const Control* control = ControlOf(&receiver);
    // A list tells of the mouse that brings it the focus by itself, if the press gets to it.
    const bool tellsItself = reason == Qt::MouseFocusReason && !IsShutOut(receiver) &&
                             dynamic_cast<const QListView*>(&receiver) != nullptr;
    if (control != nullptr && !tellsItself)
        report_(input::Focused, control->Id());
}

// Reports which window is active now if the core takes another one for active. What the desktop
// does on the way to what it was asked for is none of the core's business. That a disabled window
// is active is reported once: the core asks for another one in its place, which the desktop may
// refuse.
void QtScreen::ReportActivation() {
    const QWidget* window = QApplication::activeWindow();
    const Control* control = ControlOf(window);
    if (window != nullptr && control == nullptr)
        return;
    const WidgetId active = control != nullptr ? control->Id() : 0;
    const bool toldAsDisabled = active != 0 && active == disabledActive_;
    if (!toldAsDisabled)
        disabledActive_ = 0;
    if (active == active_) {
        // After several requests the desktop may be carrying out any of them.
        if (requests_ == 1)
            answerTime_->stop();
        return;
    }
    const bool isDisabled = active != 0 && IsShutOut(*window);
    if (isDisabled ? toldAsDisabled : answerTime_->isActive())
        return;
    if (isDisabled)
        disabledActive_ = active;
    const WidgetId before = std::exchange(active_, active);
    if (active != 0)
        report_(input::Activated, active, true);
    else
        report_(input::Activated, before, false);
}

}  // namespace vxd
