// Which window is the active one: what the core wants, and what the desktop makes of it.
#pragma once

#include <memory>

#include "platform/qt/report.h"
#include "platform/screen.h"

class QTimer;

namespace vxd::qt {

class Controls;

// All functions belong to Qt's thread.
class Activation {
  public:
    // Both outlive it.
    Activation(const Controls& controls, Report& report);
    ~Activation();
    Activation(const Activation&) = delete;
    Activation& operator=(const Activation&) = delete;

    // The core makes a window the active one. The desktop is asked by the next AskDesktop that
    // finds it shown.
    void Raise(WidgetId id);
    void AskDesktop();
    // Reports which window is active now if the core takes another one for active.
    void ReportChange();
    // The window is gone.
    void Forget(WidgetId id);
    // All windows are gone for good, and Qt's timers with them.
    void Retire();

  private:
    void Expect(WidgetId id);

    const Controls& controls_;
    Report& report_;
    // The window that the core takes for the active one, as far as it was asked for or reported.
    WidgetId active_ = 0;
    WidgetId toActivate_ = 0;      // what the desktop is still to be asked for
    WidgetId disabledActive_ = 0;  // a disabled window that was reported as active
    // Runs while the desktop may still answer a request for another active window.
    std::unique_ptr<QTimer> answerTime_;
    int requests_ = 0;  // in that time
};

}  // namespace vxd::qt
