#include "platform/qt/activation.h"

#include <QApplication>
#include <QTimer>
#include <chrono>
#include <utility>

#include "platform/qt/control.h"
#include "platform/qt/controls.h"
#include "platform/qt/top_level.h"

namespace vxd::qt {
namespace {

// A desktop that has not made a window active by then has refused to. Until then it may still be
// carrying out earlier requests.
constexpr std::chrono::milliseconds kLongestAnswer{500};

}  // namespace

Activation::Activation(const Controls& controls, Report& report)
    : controls_(controls), report_(report), answerTime_(std::make_unique<QTimer>()) {
    answerTime_->setSingleShot(true);
}

Activation::~Activation() = default;

void Activation::Raise(WidgetId id) {
    TopLevel* top = controls_.FindTopLevel(id);
    if (top == nullptr) {
        return;
    }
    // The desktop activates a window that is new, whatever it takes for active now.
    const bool isShown = top->Raise();
    const bool isActive =
        isShown && active_ == id && QApplication::activeWindow() == &top->NativeWidget();
    toActivate_ = isActive ? 0 : id;
    if (isShown) {
        Expect(id);
    }
}

void Activation::Expect(WidgetId id) {
    active_ = id;
    requests_ = answerTime_->isActive() ? requests_ + 1 : 1;
    answerTime_->start(kLongestAnswer);
}

// Only the last window that the core has made active is asked for: the desktop would answer for
// each of them, and for one that it has yet to show behind all others. One that was hidden is asked
// for when it is shown: a busy desktop may give the keyboard back to the window before.
void Activation::AskDesktop() {
    TopLevel* top = controls_.FindTopLevel(toActivate_);
    if (top == nullptr || !top->NativeWidget().isVisible()) {
        return;
    }
    const WidgetId id = std::exchange(toActivate_, 0);
    if (active_ != id) {
        Expect(id);
    }
    top->AskForActivation();
}

// What the desktop does on the way to what it was asked for is none of the core's business. That a
// disabled window is active is reported once: the core asks for another one in its place, which the
// desktop may refuse.
void Activation::ReportChange() {
    const QWidget* window = QApplication::activeWindow();
    const Control* control = controls_.Of(window);
    if (window != nullptr && control == nullptr) {
        return;
    }
    const WidgetId active = control != nullptr ? control->Id() : 0;
    const bool toldAsDisabled = active != 0 && active == disabledActive_;
    if (!toldAsDisabled) {
        disabledActive_ = 0;
    }
    if (active == active_) {
        // After several requests the desktop may be carrying out any of them.
        if (requests_ == 1) {
            answerTime_->stop();
        }
        return;
    }
    const bool isDisabled = active != 0 && controls_.IsShutOut(*window);
    if (isDisabled ? toldAsDisabled : answerTime_->isActive()) {
        return;
    }
    if (isDisabled) {
        disabledActive_ = active;
    }
    toActivate_ = 0;
    const WidgetId before = std::exchange(active_, active);
    if (active != 0) {
        report_(input::Activated, active, true);
    } else {
        report_(input::Activated, before, false);
    }
}

void Activation::Forget(WidgetId id) {
    if (active_ == id) {
        active_ = 0;
    }
}

void Activation::Retire() {
    answerTime_.reset();
}

}  // namespace vxd::qt
