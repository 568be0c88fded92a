#include "platform/qt/controls.h"

#include <utility>

#include "platform/qt/control.h"
#include "platform/qt/top_level.h"

namespace vxd::qt {

Controls::Controls() = default;
Controls::~Controls() = default;

Control* Controls::Find(WidgetId id) const {
    const auto found = byId_.find(id);
    return found != byId_.end() ? found->second.get() : nullptr;
}

TopLevel* Controls::FindTopLevel(WidgetId id) const {
    return dynamic_cast<TopLevel*>(Find(id));
}

QWidget* Controls::NativeWidget(WidgetId id) const {
    const Control* control = Find(id);
    return control != nullptr ? &control->NativeWidget() : nullptr;
}

Control* Controls::Of(const QWidget* widget) const {
    for (; widget != nullptr; widget = widget->isWindow() ? nullptr : widget->parentWidget()) {
        if (const auto found = byWidget_.find(widget); found != byWidget_.end()) {
            return found->second;
        }
    }
    return nullptr;
}

TopLevel* Controls::TopLevelOf(const QWidget& widget) const {
    return dynamic_cast<TopLevel*>(Of(widget.window()));
}

bool Controls::IsShutOut(const QWidget& widget) const {
    const TopLevel* top = TopLevelOf(widget);
    return top != nullptr && !top->TakesInput();
}

std::vector<WidgetId> Controls::HeldBy(WidgetId holder) const {
    std::vector<WidgetId> held;
    for (const auto& [id, control] : byId_) {
        if (control->Holder() == holder) {
            held.push_back(id);
        }
    }
    return held;
}

Control& Controls::Add(std::unique_ptr<Control> control) {
    Control& added = *control;
    byWidget_[&added.NativeWidget()] = &added;
    byId_[added.Id()] = std::move(control);
    return added;
}

void Controls::Remove(WidgetId id) {
    const auto found = byId_.find(id);
    if (found == byId_.end()) {
        return;
    }
    byWidget_.erase(&found->second->NativeWidget());
    byId_.erase(found);
}

}  // namespace vxd::qt
