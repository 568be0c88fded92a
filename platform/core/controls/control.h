// What all built-in controls have in common.
#pragma once

#include "platform/core/window.h"

namespace vxd {

class BasicControl : public BuiltInControl {
  public:
    explicit BasicControl(Window& window) : window_(window) {}

  protected:
    // What a control does with a message that is none of its own.
    LRESULT Default(UINT message, WPARAM wParam, LPARAM lParam) {
        return DefWindowProcA(window_.handle, message, wParam, lParam);
    }

    // Tells the parent; false when the program has destroyed the control in answer, which ends this
    // object too.
    bool Tell(int code) {
        const HWND handle = window_.handle;
        Notify(window_, code);
        return IsLiveWindow(handle);
    }

    bool Has(DWORD style) const { return (window_.style & style) != 0; }
    bool IsFocused() const { return FocusedWindow() == window_.handle; }

    Window& window_;
};

std::unique_ptr<BuiltInControl> MakeStatic(Window& window);
std::unique_ptr<BuiltInControl> MakeButton(Window& window);
std::unique_ptr<BuiltInControl> MakeEdit(Window& window);
std::unique_ptr<BuiltInControl> MakeListBox(Window& window);
std::unique_ptr<BuiltInControl> MakeScrollBar(Window& window);
std::unique_ptr<BuiltInControl> MakeComboBox(Window& window);

}  // namespace vxd
