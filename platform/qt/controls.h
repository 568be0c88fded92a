// The controls that the core has now.
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "platform/screen.h"

class QWidget;

namespace vxd::qt {

class Control;
class TopLevel;

// Found by their number and by what Qt tells events of. All functions belong to Qt's thread.
class Controls {
  public:
    Controls();
    ~Controls();
    Controls(const Controls&) = delete;
    Controls& operator=(const Controls&) = delete;

    // Null for a number that stands for nothing, or, for a top-level window, for a control.
    Control* Find(WidgetId id) const;
    TopLevel* FindTopLevel(WidgetId id) const;
    QWidget* NativeWidget(WidgetId id) const;
    // The control that a native widget is or belongs to, and the top-level window that it is in;
    // null for what is not the core's.
    Control* Of(const QWidget* widget) const;
    TopLevel* TopLevelOf(const QWidget& widget) const;
    // Whether the window that a native widget is in takes no input now.
    bool IsShutOut(const QWidget& widget) const;

    // The controls that go down with a window.
    std::vector<WidgetId> HeldBy(WidgetId holder) const;
    bool IsEmpty() const { return byId_.empty(); }
    WidgetId First() const { return byId_.begin()->first; }

    Control& Add(std::unique_ptr<Control> control);
    void Remove(WidgetId id);

  private:
    std::unordered_map<WidgetId, std::unique_ptr<Control>> byId_;
    std::unordered_map<const QWidget*, Control*> byWidget_;
};

}  // namespace vxd::qt
