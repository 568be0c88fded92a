// The classes that windows are made of.
//
// Everything here belongs to the user-interface thread.
#pragma once

#include "platform/core/window.h"

namespace vxd {

// By name, or by the atom that registering gave; null if there is none.
const WindowClass* FindClass(LPCSTR name);

// The classes of the built-in controls and of dialog boxes register themselves by these.
void RegisterControl(const char* name, std::unique_ptr<BuiltInControl> (*make)(Window& window));
void RegisterBuiltInClasses();
// The procedure of all built-in controls: hands the message to the control's object.
LRESULT CALLBACK ControlProcedure(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

}  // namespace vxd
