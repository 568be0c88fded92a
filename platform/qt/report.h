// The way back from the screen to the core.
#pragma once

#include <functional>
#include <type_traits>
#include <utility>

namespace vxd::qt {

// Hands the core what a person did. The gate is open while the screen waits for native events; what
// a widget signals at any other time is the echo of the core's own call and goes nowhere.
class Report {
  public:
    // Runs before every report, so that what came about earlier is told earlier.
    explicit Report(std::function<void()> before) : before_(std::move(before)) {}
    Report(const Report&) = delete;
    Report& operator=(const Report&) = delete;

    void Open() {
        open_ = true;
        handed_ = false;
    }
    void Close() { open_ = false; }
    bool IsOpen() const { return open_; }
    // Whether anything was handed over since the gate was opened.
    bool Handed() const { return handed_; }

    template <typename... Arguments>
    void operator()(void (*input)(Arguments...), std::type_identity_t<Arguments>... arguments) {
        if (!open_)
            return;
        before_();
        handed_ = true;
        input(std::forward<Arguments>(arguments)...);
    }

    // An offer: handed over only if the core takes it. Gives whether it does.
    template <typename... Arguments>
    bool operator()(bool (*input)(Arguments...), std::type_identity_t<Arguments>... arguments) {
        if (!open_)
            return false;
        before_();
        const bool taken = input(std::forward<Arguments>(arguments)...);
        handed_ = handed_ || taken;
        return taken;
    }

  private:
    std::function<void()> before_;
    bool open_ = false;
    bool handed_ = false;
};

}  // namespace vxd::qt
